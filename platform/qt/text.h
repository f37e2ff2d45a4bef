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

}  // namespace tarvoni::qt
