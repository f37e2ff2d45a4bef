#include "src/context/values/text.h"

#include <algorithm>
#include <cstdint>

namespace tarvoni {
namespace {

constexpr char32_t kFirstLatin = 0xC0;
constexpr char32_t kLastLatin = 0x17F;

// Two signs for each code from kFirstLatin to kLastLatin: a letter and its accent (out of kAccentSigns), or
// the two letters it stands for; blanks for × and ÷, which are no letters.
constexpr std::string_view kLatin =
    "a`a'a^a~a:a*aec,e`e'e^e:i`i'i^i:d-n~o`o'o^o~o:  o/u`u'u^u:y'thss"
    "a`a'a^a~a:a*aec,e`e'e^e:i`i'i^i:d-n~o`o'o^o~o:  o/u`u'u^u:y'thy:"
    "a=a=a(a(a;a;c'c'c^c^c.c.c<c<d<d<d/d/e=e=e(e(e.e.e;e;e<e<g^g^g(g("
    "g.g.g,g,h^h^h/h/i~i~i=i=i(i(i;i;i.i-ijijj^j^k,k,k-l'l'l,l,l<l<l."
    "l.l/l/n'n'n,n,n<n<n-n/n/o=o=o(o(o\"o\"oeoer'r'r,r,r<r<s's's^s^s,s,"
    "s<s<t,t,t<t<t/t/u~u~u=u=u(u(u*u*u\"u\"u;u;w^w^y^y^y:z'z'z.z.z<z<s ";
static_assert(kLatin.size() == std::size_t{2} * (kLastLatin - kFirstLatin + 1));

constexpr std::string_view kAccentSigns = "`'^~=(.:*\"<,;-/";
constexpr std::array<char32_t, kAccentSigns.size()> kAccents = {
    0x300, 0x301, 0x302, 0x303, 0x304, 0x306, 0x307, 0x308, 0x30A, 0x30B, 0x30C, 0x327, 0x328, 0x335, 0x338};

constexpr bool IsAsciiLetter(char32_t c) {
  return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}
constexpr bool IsAccent(char32_t c) {
  return c >= 0x300 && c <= 0x36F;
}

// Where a folded character stands in the alphabet; never 0, which is the end of a text.
constexpr std::uint32_t Weight(char32_t c) {
  constexpr std::uint32_t kDigits = 0x10000, kLetters = 0x20000, kOthers = 0x30000;
  if (c >= '0' && c <= '9') return kDigits + c;
  if (IsAsciiLetter(c)) return kLetters + (c | 0x20);
  const bool sign = c < kFirstLatin || c == U'×' || c == U'÷' || (c >= 0x2000 && c < 0x2C00);
  return sign ? c + 1 : kOthers + c;
}

constexpr auto kAsciiWeights = [] {
  std::array<std::uint32_t, 0x80> weights{};
  for (char32_t c = 0; c < weights.size(); ++c) weights[c] = Weight(c);
  return weights;
}();

FoldedCharacter FoldLatin(char32_t c) {
  const std::size_t at = std::size_t{2} * (c - kFirstLatin);
  const char letter = kLatin[at], second = kLatin[at + 1];
  if (letter == ' ') return {c};
  if (second == ' ') return {static_cast<char32_t>(letter)};
  const std::size_t accent = kAccentSigns.find(second);
  const char32_t code = accent == std::string_view::npos ? static_cast<char32_t>(second) : kAccents[accent];
  return {static_cast<char32_t>(letter), code};
}

// The folded characters of a text, one after the other.
class FoldedText {
 public:
  FoldedText(std::string_view text, FoldCharacter fold) : text_(text), fold_(fold) {}

  // The accent that comes next; 0 if it is none.
  char32_t TakeAccent() {
    Fill();
    return IsAccent(folded_[next_]) ? folded_[next_++] : 0;
  }
  // The weight of the letter or sign that comes next; 0 at the end.
  std::uint32_t TakeWeight() {
    Fill();
    const char32_t c = folded_[next_];
    if (done_) return 0;
    ++next_;
    return c < kAsciiWeights.size() ? kAsciiWeights[c] : Weight(c);
  }

 private:
  void Fill() {
    if (next_ < count_ || done_) return;
    next_ = 0;
    done_ = text_.empty();
    folded_ = done_ ? FoldedCharacter{} : Fold(TakeCharacter(text_));
    // The first place is taken even by U+0000.
    count_ = 1;
    while (count_ < folded_.size() && folded_[count_] != 0) ++count_;
  }
  FoldedCharacter Fold(char32_t c) const {
    if (c < kFirstLatin) return {c};
    if (c <= kLastLatin) return FoldLatin(c);
    return fold_ ? fold_(c) : FoldedCharacter{c};
  }

  std::string_view text_;
  FoldCharacter fold_;
  FoldedCharacter folded_{};
  std::size_t next_ = 0;
  std::size_t count_ = 0;
  bool done_ = false;
};

template <typename T>
int Order(T a, T b) {
  return a < b ? -1 : a > b ? 1 : 0;
}

int CompareAccents(FoldedText& a, FoldedText& b) {
  int order = 0;
  for (;;) {
    const char32_t x = a.TakeAccent(), y = b.TakeAccent();
    if (x == 0 && y == 0) return order;
    if (order == 0) order = Order(x, y);
  }
}

// Letters decide; where all are the same, the first difference of accents.
int CompareFolded(FoldedText a, FoldedText b) {
  int accents = 0;
  for (;;) {
    const int order = CompareAccents(a, b);
    if (accents == 0) accents = order;
    const std::uint32_t x = a.TakeWeight(), y = b.TakeWeight();
    if (x != y) return Order(x, y);
    if (x == 0) return accents;
  }
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

bool IsContinuation(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

char32_t LowerLatin(char32_t c) {
  if (c >= 0xC0 && c <= 0xDE && c != U'×') return c + 0x20;
  if (c < 0x100 || c > kLastLatin) return c;
  if (c == 0x130 || c == 0x131 || c == 0x138 || c == 0x149 || c == 0x17F) return c;
  if (c == 0x178) return 0xFF;
  const bool upper_is_odd = (c >= 0x139 && c <= 0x148) || c >= 0x179;
  return (c % 2 == 1) == upper_is_odd ? c + 1 : c;
}

// The letter of two bytes, U+00C0 to U+017F, that begins at a place; 0 if none does.
char32_t LatinAt(std::string_view text, std::size_t at) {
  const auto lead = at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
  if (lead < 0xC3 || lead > 0xC5 || !IsContinuation(text, at + 1)) return 0;
  return ((lead & 0x1FU) << 6) | (static_cast<unsigned char>(text[at + 1]) & 0x3FU);
}

// At a difference: whether it is but the case of a Latin letter, of which `at` is then the last byte.
bool SkipCase(std::string_view a, std::string_view b, std::size_t& at) {
  const std::size_t first = at > 0 && IsContinuation(a, at) ? at - 1 : at;
  const char32_t x = LatinAt(a, first), y = LatinAt(b, first);
  if (x == 0 || y == 0 || LowerLatin(x) != LowerLatin(y)) return false;
  at = first + 1;
  return true;
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  constexpr char32_t kStrayByte = 0xDC00;  // a code no valid text holds
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t size = lead < 0x80   ? 1
                           : lead < 0xC2 ? 0
                           : lead < 0xE0 ? 2
                           : lead < 0xF0 ? 3
                           : lead < 0xF5 ? 4
                                         : 0;
  char32_t code = size <= 1 ? lead : lead & (0xFFU >> (size + 1));
  bool whole = size > 0;
  for (std::size_t i = 1; whole && i < size; ++i) {
    whole = IsContinuation(text, i);
    code = (code << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  text.remove_prefix(whole ? size : 1);
  return whole ? code : kStrayByte + lead;
}

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    const auto lead = static_cast<unsigned char>(folded[i]);
    if (lead < 0x80) {
      if (IsAsciiLetter(lead)) folded[i] = static_cast<char>(lead | 0x20);
    } else if (const char32_t letter = LatinAt(folded, i); letter != 0) {
      const char32_t lower = LowerLatin(letter);
      folded[i] = static_cast<char>(0xC0 | (lower >> 6));
      folded[++i] = static_cast<char>(0x80 | (lower & 0x3F));
    }
  }
  return folded;
}

int CompareText(std::string_view a, std::string_view b, FoldCharacter fold) {
  a = WithoutTrailingBlanks(a);
  b = WithoutTrailingBlanks(b);
  const std::size_t common = std::min(a.size(), b.size());
  std::size_t i = 0;
  for (; i < common; ++i) {
    const auto x = static_cast<unsigned char>(a[i]), y = static_cast<unsigned char>(b[i]);
    if (x == y) continue;
    if ((x | y) >= kAsciiWeights.size()) {
      if (!SkipCase(a, b, i)) break;
      continue;
    }
    if (kAsciiWeights[x] != kAsciiWeights[y]) return Order(kAsciiWeights[x], kAsciiWeights[y]);
  }
  if (i == a.size() && i == b.size()) return 0;
  // Equal so far, byte by byte but for the case: a character that was begun is looked at whole.
  while (i > 0 && (IsContinuation(a, i) || IsContinuation(b, i))) --i;
  return CompareFolded({a.substr(i), fold}, {b.substr(i), fold});
}

}  // namespace tarvoni
