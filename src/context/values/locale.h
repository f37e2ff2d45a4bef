#pragma once

namespace tarvoni {

enum class Language { kGerman, kEnglish };

// How field text writes numbers and names months. SQL, files and scripts never depend on it.
struct Locale {
  Language language = Language::kGerman;
  char decimal_separator = ',';

  static constexpr Locale German() { return {}; }
  static constexpr Locale English() { return {Language::kEnglish, '.'}; }
};

}  // namespace tarvoni
