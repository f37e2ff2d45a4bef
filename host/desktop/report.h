#pragma once

#include <QString>
#include <QWidget>
#include <exception>

namespace tarvoni::host {

// Tells the user of an error; `source` says where it came from, "" if that is plain.
void ShowError(QWidget* parent, const QString& text, const QString& source = {});
void ShowError(QWidget* parent, const std::exception& error);

// Runs code that may throw inside an event of Qt. False if it threw, which the user has been told then.
template <typename Code>
bool Reported(QWidget* parent, const Code& code) {
  try {
    code();
    return true;
  } catch (const std::exception& error) {
    ShowError(parent, error);
    return false;
  }
}

}  // namespace tarvoni::host
