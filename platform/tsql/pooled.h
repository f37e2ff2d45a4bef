#pragma once

#include <cassert>
#include <cstddef>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define TARVONI_POOLED 0
#elif defined(__has_feature)
#define TARVONI_POOLED !__has_feature(address_sanitizer)
#else
#define TARVONI_POOLED 1
#endif

namespace tarvoni::tsql {

// The base of a node that trees are made of by the thousand: freed nodes wait for the next tree of their thread,
// kLongest of them at most. Under the address sanitizer each has memory of its own, so that it finds faults.
template <class Node>
class Pooled {
 public:
#if TARVONI_POOLED
  static void* operator new(std::size_t size) {
    assert(size == sizeof(Node));
    if (free_.first == nullptr) return NewMemory(size);
    --free_.length;
    Link* const link = free_.first;
    free_.first = link->next;
    return link;
  }

  static void operator delete(void* memory) noexcept {
    if (memory == nullptr || free_.length == kLongest || !free_.kept) return ::operator delete(memory);
    ++free_.length;
    free_.first = new (memory) Link{free_.first};
  }

 private:
  static constexpr std::size_t kLongest = 8192;

  struct Link {
    Link* next;
  };
  struct List {
    Link* first = nullptr;
    std::size_t length = 0;
    bool kept = false;  // from the thread's first node until it ends
  };
  struct Keeper {
    Keeper() { free_.kept = true; }
    ~Keeper() {
      free_.kept = false;
      while (Link* const link = free_.first) {
        free_.first = link->next;
        ::operator delete(link);
      }
    }
  };

  static void* NewMemory(std::size_t size) {
    static thread_local const Keeper keeper;
    return ::operator new(size);
  }

  static inline constinit thread_local List free_;
#endif
};

}  // namespace tarvoni::tsql
