#pragma once

#include "include/tarvoni_lohn.h"

namespace tarvoni {

// The factory of one of the component's classes.
Result GetClassObject(const Guid& class_id, const Guid& id, void** object);

// True while an object lives or the library is locked.
bool LibraryInUse();

}  // namespace tarvoni
