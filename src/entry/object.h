#pragma once

#include <atomic>
#include <cstdint>

#include "include/tarvoni_lohn.h"

namespace tarvoni {

// Counts one use of the library for its life.
class LibraryUse {
 public:
  LibraryUse() { ++Count(); }
  LibraryUse(const LibraryUse&) = delete;
  LibraryUse& operator=(const LibraryUse&) = delete;
  ~LibraryUse() { --Count(); }

  static std::atomic<std::int32_t>& Count() {
    static std::atomic<std::int32_t> count = 0;
    return count;
  }
};

// The locks that hosts hold on the library beside its objects.
class LibraryLocks {
 public:
  static void Add() { ++Count(); }
  // False when there is none to take back.
  static bool TakeBack() {
    std::int32_t held = Count();
    while (held > 0 && !Count().compare_exchange_weak(held, held - 1)) {
    }
    return held > 0;
  }
  static bool Any() { return Count() > 0; }

 private:
  static std::atomic<std::int32_t>& Count() {
    static std::atomic<std::int32_t> count = 0;
    return count;
  }
};

// The reference counting of an object with one interface; it is made with one reference and ends with the last.
template <typename Interface, const Guid& kInterfaceId>
class Object : public Interface {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  Result QueryInterface(const Guid& id, void** object) final {
    if (!object) return kResultPointer;
    *object = nullptr;
    if (id != kInterfaceId && id != kInterfaceUnknown) return kResultNoInterface;
    *object = static_cast<Interface*>(this);
    AddRef();
    return kResultOk;
  }
  std::uint32_t AddRef() final { return ++references_; }
  std::uint32_t Release() final {
    const std::uint32_t left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  Object() = default;

 private:
  std::atomic<std::uint32_t> references_ = 1;
  LibraryUse use_;
};

}  // namespace tarvoni
