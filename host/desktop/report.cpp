#include "host/desktop/report.h"

#include <QMessageBox>
#include <QPushButton>

#include "host/methods.h"
#include "platform/qt/public/text.h"
#include "src/context/data/error_text.h"
#include "src/context/data/password.h"

namespace tarvoni::host {

using qt::ToQt;

void ShowError(QWidget* parent, const QString& text, const QString& source) {
  QMessageBox box(QMessageBox::Critical, "Tarvoni Lohn", ToQt(WithoutPassword(qt::FromQt(text))),
                  QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  if (!source.isEmpty()) box.setInformativeText(source);
  box.addButton("&Schließen", QMessageBox::RejectRole);
  box.exec();
}

void ShowError(QWidget* parent, const std::exception& error) {
  const auto* const failed = dynamic_cast<const MethodError*>(&error);
  ShowError(parent, ToQt(ErrorText(error)), failed ? "Gemeldet von " + ToQt(failed->Source()) : QString());
}

}  // namespace tarvoni::host
