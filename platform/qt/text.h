#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarvoni::qt {

// UTF-8 in the system, QString in the widgets.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
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
