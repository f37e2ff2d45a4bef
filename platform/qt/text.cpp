#include "platform/qt/public/text.h"

#include <utility>

namespace tarvoni::qt {
namespace {

// Walks over whole characters while `more(characters, units)` holds; units are those the editor counts.
template <typename More>
std::pair<int, int> Walk(const QString& text, bool lines, More more) {
  int characters = 0, units = 0;
  for (int at = 0; at < text.size() && more(characters, units); ++characters) {
    const bool pair = text[at].isHighSurrogate() && at + 1 < text.size();
    const bool silent = lines && text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
    at += pair ? 2 : 1;
    if (!silent) units += pair ? 2 : 1;
  }
  return {characters, units};
}

}  // namespace

int ToQtPosition(const QString& text, int characters, bool lines) {
  return Walk(text, lines, [=](int walked, int) { return walked < characters; }).second;
}

int FromQtPosition(const QString& text, int position, bool lines) {
  return Walk(text, lines, [=](int, int units) { return units < position; }).first;
}

QString PlainCaption(std::string_view caption) {
  QString plain;
  const QString text = ToQt(caption);
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && ++i == text.size()) break;
    plain += text[i];
  }
  return plain;
}

}  // namespace tarvoni::qt
