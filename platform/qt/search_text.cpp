#include "platform/qt/search_text.h"

#include <QString>
#include <algorithm>

#include "platform/qt/public/text.h"
#include "src/context/values/text.h"
#include "src/context/values/utf8.h"

namespace tarvoni::qt {
namespace {

constexpr char kBorder = '\x1F';  // before, between and behind the cells of a row

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](unsigned char c) { return c < 0x80; });
}

// The letters of a text in lower case, without accents.
std::string Letters(const QString& lower) {
  QString letters;
  for (const QChar c : lower.normalized(QString::NormalizationForm_D)) {
    if (!c.isMark()) letters += c;
  }
  return FromQt(letters);
}

// The forms in which a text is searched: its letters, and those with umlauts written out if that differs.
std::vector<std::string> FormsOf(std::string_view text) {
  if (IsAscii(text)) return {FoldCase(text)};
  const QString lower = ToQt(text).toCaseFolded();
  QString written = lower;
  written.replace(QChar(u'ä'), "ae").replace(QChar(u'ö'), "oe").replace(QChar(u'ü'), "ue");
  std::vector<std::string> forms = {Letters(lower)};
  if (written != lower) forms.push_back(Letters(written));
  return forms;
}

bool Contains(std::string_view row, std::string_view part) {
  return row.find(part) != std::string_view::npos;
}

Fit FitOfForm(std::string_view row, std::string_view form) {
  const std::size_t at = row.find(form);
  if (at == std::string_view::npos) return Fit::kNone;
  if (at == 1) return row[1 + form.size()] == kBorder ? Fit::kFirst : Fit::kFirstFront;
  return Contains(row, kBorder + std::string(form)) ? Fit::kFront : Fit::kInside;
}

}  // namespace

void SearchRow::Add(std::string_view cell) {
  if (text_.empty()) text_ = kBorder;
  for (const std::string& form : FormsOf(cell)) text_.append(form) += kBorder;
}

SearchQuery::SearchQuery(std::string_view typed) {
  typed = utf8::Trim(typed);
  if (typed.empty()) return;
  forms_ = FormsOf(typed);
  while (!typed.empty()) {
    const std::size_t blank = std::min(typed.find(' '), typed.size());
    words_.push_back(FormsOf(typed.substr(0, blank)));
    typed = utf8::Trim(typed.substr(blank));
  }
}

Fit SearchQuery::FitOf(const SearchRow& row) const {
  Fit best = Fit::kNone;
  for (const std::string& form : forms_) best = std::max(best, FitOfForm(row.Text(), form));
  if (best != Fit::kNone || words_.size() < 2) return best;
  const bool all = std::ranges::all_of(words_, [&](const std::vector<std::string>& forms) {
    return std::ranges::any_of(forms, [&](const std::string& form) { return Contains(row.Text(), form); });
  });
  return all ? Fit::kWords : Fit::kNone;
}

}  // namespace tarvoni::qt
