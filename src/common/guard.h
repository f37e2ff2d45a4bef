#pragma once

namespace tarvoni {

// A Boolean that tells handlers to stand back while the Screen itself fills fields or moves a list. It nests:
//   const auto hold = loading.Hold();
class Guard {
 public:
  class Scope {
   public:
    explicit Scope(Guard& guard) : guard_(guard) { ++guard_.depth_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() { --guard_.depth_; }

   private:
    Guard& guard_;
  };

  [[nodiscard]] Scope Hold() { return Scope(*this); }
  bool IsSet() const { return depth_ > 0; }
  explicit operator bool() const { return IsSet(); }

 private:
  int depth_ = 0;
};

}  // namespace tarvoni
