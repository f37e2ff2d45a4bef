#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvoni {

__extension__ using Int128 = __int128;
__extension__ using UInt128 = unsigned __int128;

// An exact decimal number of up to 38 digits: `unscaled` divided by ten to the power of `scale`.
class Decimal {
 public:
  static constexpr int kMaxDigits = 38;

  constexpr Decimal() = default;
  constexpr Decimal(Int128 unscaled, int scale)
      : high_(static_cast<std::int64_t>(unscaled >> 64)),
        low_(static_cast<std::uint64_t>(unscaled)),
        scale_(scale) {}

  // Reads an optional sign, digits and at most one point; anything else gives nothing.
  static std::optional<Decimal> Parse(std::string_view text);
  // The decimal with `scale` places nearest to `value`, half away from zero; nothing if it has over 38 digits.
  static std::optional<Decimal> FromDouble(double value, int scale);

  constexpr Int128 Unscaled() const {
    return static_cast<Int128>((static_cast<UInt128>(static_cast<std::uint64_t>(high_)) << 64) | low_);
  }
  constexpr int Scale() const { return scale_; }
  // The same value with another number of places: rounded half away from zero when places are lost; nothing
  // if it would need more than 38 digits.
  std::optional<Decimal> Rescaled(int scale) const;
  // The value with half-away-from-zero rounding to `places` (which may be negative), the scale kept.
  Decimal Rounded(int places) const;
  double ToDouble() const;
  // All places of the scale with a point: "12.50".
  std::string ToString() const;
  // Without trailing zeros: "12.5", "0", "-3.25".
  std::string ToShortString() const;

  friend bool operator==(const Decimal& a, const Decimal& b) { return (a <=> b) == 0; }
  friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

 private:
  // Two words instead of one __int128 keep the alignment at eight bytes.
  std::int64_t high_ = 0;
  std::uint64_t low_ = 0;
  std::int32_t scale_ = 0;
};

// Ten to the power of `exponent`, 0 to 38.
Int128 PowerOfTen(int exponent);

// Exact arithmetic; nothing when the result would need more than 38 digits.
std::optional<Decimal> Add(const Decimal& a, const Decimal& b);
std::optional<Decimal> Subtract(const Decimal& a, const Decimal& b);
std::optional<Decimal> Multiply(const Decimal& a, const Decimal& b);

}  // namespace tarvoni
