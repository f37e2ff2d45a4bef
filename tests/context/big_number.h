#pragma once

#include <algorithm>
#include <random>
#include <string>

// School arithmetic on digit strings: slow, obvious, and independent of what it checks.
namespace tarvoni::test {

// A whole number of any size; digits from the last one.
struct BigNumber {
  std::string digits;  // '0' to '9', no leading zeros at the end; empty for 0
  bool negative = false;

  static BigNumber Of(std::string text) {
    BigNumber number;
    number.negative = text.starts_with('-');
    if (number.negative) text.erase(0, 1);
    number.digits.assign(text.rbegin(), text.rend());
    return number.Trimmed();
  }

  std::string Text() const {
    if (digits.empty()) return "0";
    return (negative ? "-" : "") + std::string(digits.rbegin(), digits.rend());
  }

  BigNumber Trimmed() const {
    BigNumber number = *this;
    while (number.digits.ends_with('0')) number.digits.pop_back();
    if (number.digits.empty()) number.negative = false;
    return number;
  }

  BigNumber Negated() const { return BigNumber{digits, !negative}.Trimmed(); }
  BigNumber Shifted(int places) const {
    return BigNumber{std::string(static_cast<std::size_t>(places), '0') + digits, negative}.Trimmed();
  }
  // Drops the last `places` digits, half away from zero.
  BigNumber Rounded(int places) const {
    const auto count = static_cast<std::size_t>(places);
    if (places == 0) return *this;
    if (digits.size() < count) return {};
    const bool up = digits[count - 1] >= '5';
    BigNumber number{digits.substr(count), false};
    if (up) number = AddMagnitudes(number, {"1", false});
    number.negative = negative;
    return number.Trimmed();
  }

  static int CompareMagnitudes(const BigNumber& a, const BigNumber& b) {
    if (a.digits.size() != b.digits.size()) return a.digits.size() < b.digits.size() ? -1 : 1;
    return std::string(a.digits.rbegin(), a.digits.rend())
        .compare(std::string(b.digits.rbegin(), b.digits.rend()));
  }

  static BigNumber AddMagnitudes(const BigNumber& a, const BigNumber& b) {
    BigNumber sum;
    int carry = 0;
    for (std::size_t i = 0; i < std::max(a.digits.size(), b.digits.size()) || carry != 0; ++i) {
      carry += a.DigitAt(i) + b.DigitAt(i);
      sum.digits += static_cast<char>('0' + carry % 10);
      carry /= 10;
    }
    return sum;
  }

  static BigNumber SubtractMagnitudes(const BigNumber& a, const BigNumber& b) {
    BigNumber rest;
    int borrow = 0;
    for (std::size_t i = 0; i < a.digits.size(); ++i) {
      const int digit = a.DigitAt(i) - b.DigitAt(i) - borrow;
      borrow = digit < 0;
      rest.digits += static_cast<char>('0' + (digit + 10) % 10);
    }
    return rest.Trimmed();
  }

  friend BigNumber operator+(const BigNumber& a, const BigNumber& b) {
    BigNumber sum;
    if (a.negative == b.negative) {
      sum = AddMagnitudes(a, b);
      sum.negative = a.negative;
    } else if (CompareMagnitudes(a, b) >= 0) {
      sum = SubtractMagnitudes(a, b);
      sum.negative = a.negative;
    } else {
      sum = SubtractMagnitudes(b, a);
      sum.negative = b.negative;
    }
    return sum.Trimmed();
  }

  friend BigNumber operator*(const BigNumber& a, const BigNumber& b) {
    BigNumber product;
    for (std::size_t i = 0; i < a.digits.size(); ++i) {
      for (int times = 0; times < a.DigitAt(i); ++times) {
        product = AddMagnitudes(product, BigNumber{b.digits, false}.Shifted(static_cast<int>(i)));
      }
    }
    product.negative = a.negative != b.negative;
    return product.Trimmed();
  }

  int DigitAt(std::size_t index) const { return index < digits.size() ? digits[index] - '0' : 0; }
};

// A whole number of up to `digits` digits; the short ones are as frequent as the long ones.
inline std::string RandomWholeNumber(std::mt19937& random, int digits) {
  const int count = std::uniform_int_distribution<>(1, digits)(random);
  std::string text(random() % 2 == 0 ? "-" : "");
  text += static_cast<char>('1' + random() % 9);
  for (int i = 1; i < count; ++i) text += static_cast<char>('0' + random() % 10);
  return text;
}

}  // namespace tarvoni::test
