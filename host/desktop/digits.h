#pragma once

#include <QLineEdit>

namespace tarvoni::host {

// Lets a box take so many digits and nothing else, and tells whoever types something else.
void TakeDigits(QLineEdit& box, int most);

}  // namespace tarvoni::host
