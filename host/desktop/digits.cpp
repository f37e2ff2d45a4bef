#include "host/desktop/digits.h"

#include <QApplication>
#include <QRegularExpressionValidator>
#include <QToolTip>

namespace tarvoni::host {
namespace {

constexpr int kShown = 1500;  // milliseconds

}  // namespace

void TakeDigits(QLineEdit& box, int most) {
  const QRegularExpression digits(QString("\\d{1,%1}").arg(most));
  box.setValidator(new QRegularExpressionValidator(digits, &box));
  QObject::connect(&box, &QLineEdit::inputRejected, &box, [&box] {
    QApplication::beep();
    QToolTip::showText(box.mapToGlobal(box.rect().bottomLeft()), "Das passt nicht in eine Zahl.", &box, {},
                       kShown);
  });
}

}  // namespace tarvoni::host
