#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarvoni::qt {

// UTF-8 in the system, QString in the widgets.
inline QString ToQt(std::string_view text) {
  QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  // Qt takes such a character at the beginning for a mark of the encoding and drops it.
  if (text.starts_with("\xEF\xBB\xBF")) shown.prepend(QChar(0xFEFF));
  return shown;
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

// Positions: the system counts characters, Qt counts units of UTF-16. An editor of several lines shows a carriage
// return before a line feed as nothing; `lines` says that `text` stands in one.
int ToQtPosition(const QString& text, int characters, bool lines = false);
int FromQtPosition(const QString& text, int position, bool lines = false);

// A caption without its mnemonic sign, as assistive programs read it.
QString PlainCaption(std::string_view caption);

}  // namespace tarvoni::qt
