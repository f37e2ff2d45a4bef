#include "src/entry/class_table.h"

#include <gtest/gtest.h>

namespace tarvoni {
namespace {

template <typename Interface>
Interface* Made(const Guid& class_id, const Guid& interface_id) {
  void* factory = nullptr;
  EXPECT_EQ(GetClassObject(class_id, kInterfaceClassFactory, &factory), kResultOk);
  void* object = nullptr;
  EXPECT_EQ(static_cast<ClassFactory*>(factory)->CreateInstance(nullptr, interface_id, &object), kResultOk);
  static_cast<ClassFactory*>(factory)->Release();
  return static_cast<Interface*>(object);
}

TEST(ClassTable, MakesBothClasses) {
  auto* const version = Made<C_Version>(kClass_C_Version, kInterface_C_Version);
  std::string text;
  EXPECT_EQ(version->DLL_Version(text), kResultOk);
  EXPECT_EQ(text, "2.0");
  version->Release();
  Made<_c_Lohn>(kClass_c_Lohn, kInterface_c_Lohn)->Release();
}

TEST(ClassTable, RefusesWhatItDoesNotHave) {
  void* object = &object;
  EXPECT_EQ(GetClassObject(kLibraryTarvoni_Lohn, kInterfaceClassFactory, &object), kResultClassNotAvailable);
  EXPECT_EQ(object, nullptr);
  object = &object;
  EXPECT_EQ(GetClassObject(kClass_c_Lohn, kInterface_c_Lohn, &object), kResultNoInterface);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(GetClassObject(kClass_c_Lohn, kInterfaceClassFactory, nullptr), kResultPointer);

  ASSERT_EQ(GetClassObject(kClass_c_Lohn, kInterfaceClassFactory, &object), kResultOk);
  auto* const factory = static_cast<ClassFactory*>(object);
  EXPECT_EQ(factory->CreateInstance(factory, kInterface_c_Lohn, &object), kResultNoAggregation);
  EXPECT_EQ(factory->CreateInstance(nullptr, kInterface_C_Version, &object), kResultNoInterface);
  EXPECT_EQ(factory->CreateInstance(nullptr, kInterface_c_Lohn, nullptr), kResultPointer);
  factory->Release();
  EXPECT_FALSE(LibraryInUse());
}

TEST(ClassTable, CountsReferencesAndUse) {
  EXPECT_FALSE(LibraryInUse());
  auto* const lohn = Made<_c_Lohn>(kClass_c_Lohn, kInterfaceUnknown);
  EXPECT_TRUE(LibraryInUse());
  void* again = nullptr;
  EXPECT_EQ(lohn->QueryInterface(kInterface_c_Lohn, &again), kResultOk);
  EXPECT_EQ(lohn->Release(), 1U);
  EXPECT_TRUE(LibraryInUse());
  EXPECT_EQ(static_cast<_c_Lohn*>(again)->Release(), 0U);
  EXPECT_FALSE(LibraryInUse());
}

TEST(ClassTable, ALockKeepsTheLibraryInUse) {
  void* factory = nullptr;
  GetClassObject(kClass_c_Lohn, kInterfaceClassFactory, &factory);
  static_cast<ClassFactory*>(factory)->LockServer(true);
  static_cast<ClassFactory*>(factory)->Release();
  EXPECT_TRUE(LibraryInUse());
  GetClassObject(kClass_C_Version, kInterfaceClassFactory, &factory);
  EXPECT_EQ(static_cast<ClassFactory*>(factory)->LockServer(false), kResultOk);
  // One unlock too many takes nothing from the factory itself.
  EXPECT_EQ(static_cast<ClassFactory*>(factory)->LockServer(false), kResultFail);
  EXPECT_TRUE(LibraryInUse());
  static_cast<ClassFactory*>(factory)->Release();
  EXPECT_FALSE(LibraryInUse());
}

}  // namespace
}  // namespace tarvoni
