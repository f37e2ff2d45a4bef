#include "src/entry/class_table.h"

#include <algorithm>
#include <array>
#include <string>

#include "src/entry/c_lohn.h"
#include "src/entry/screens.h"

namespace tarvoni {
namespace {

// "major.minor" of the file version; needs no database, no windows and no record.
class Version final : public Object<C_Version, kInterface_C_Version> {
 public:
  Result DLL_Version(std::string& version) override {
    ForgetFailure();
    version = std::to_string(TARVONI_VERSION_MAJOR) + "." + std::to_string(TARVONI_VERSION_MINOR);
    return kResultOk;
  }
};

// Makes an object and hands out its interface `id`.
template <typename Class>
Result Create(const Guid& id, void** object) {
  auto* const made = new Class;
  const Result result = made->QueryInterface(id, object);
  made->Release();
  return result;
}

struct ClassEntry {
  Guid class_id;
  Result (*create)(const Guid& id, void** object);
};

constexpr std::array kClasses = {ClassEntry{kClass_c_Lohn, &Create<c_Lohn<Screens>>},
                                 ClassEntry{kClass_C_Version, &Create<Version>}};

class Factory final : public Object<ClassFactory, kInterfaceClassFactory> {
 public:
  explicit Factory(const ClassEntry& entry) : entry_(entry) {}

  Result CreateInstance(Unknown* outer, const Guid& id, void** object) override {
    if (!object) return kResultPointer;
    *object = nullptr;
    return outer ? kResultNoAggregation : entry_.create(id, object);
  }

  Result LockServer(bool lock) override {
    if (lock) LibraryLocks::Add();
    return lock || LibraryLocks::TakeBack() ? kResultOk : kResultFail;
  }

 private:
  const ClassEntry& entry_;
};

}  // namespace

Result GetClassObject(const Guid& class_id, const Guid& id, void** object) {
  if (!object) return kResultPointer;
  *object = nullptr;
  const auto entry = std::ranges::find(kClasses, class_id, &ClassEntry::class_id);
  if (entry == kClasses.end()) return kResultClassNotAvailable;
  auto* const factory = new Factory(*entry);
  const Result result = factory->QueryInterface(id, object);
  factory->Release();
  return result;
}

bool LibraryInUse() {
  return LibraryUse::Count() > 0 || LibraryLocks::Any();
}

}  // namespace tarvoni
