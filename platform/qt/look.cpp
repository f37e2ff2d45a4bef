#include "platform/qt/public/look.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include "platform/qt/house_style.h"

namespace tarvoni::qt {
namespace {

QColor Mixed(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a * share + b * (1 - share)); };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()),
          mix(first.blue(), second.blue())};
}

// A colour of the system: 0x80… names a role of the palette, else it is blue, green, red.
QColor BoxColor(const QPalette& palette, Color color, bool locked) {
  if (color == kButtonFace || (color == kWindowBackground && locked)) return palette.color(QPalette::Window);
  if ((color & 0x80000000) != 0) return palette.color(QPalette::Base);
  return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
          static_cast<int>(color >> 16 & 0xFF)};
}

}  // namespace

void UseHouseStyle(QApplication& application) {
  application.setStyle(new HouseStyle);
}

int CharactersWide(const QWidget& widget, int characters) {
  return widget.fontMetrics().horizontalAdvance('0') * characters;
}

int LinesHigh(const QWidget& widget, int lines) {
  return widget.fontMetrics().lineSpacing() * lines;
}

QPalette ReadablePalette() {
  constexpr double kFaded = 0.6;
  QPalette palette = QApplication::palette();
  for (const auto& [ink, ground] :
       {std::pair(QPalette::WindowText, QPalette::Window), std::pair(QPalette::Text, QPalette::Base),
        std::pair(QPalette::ButtonText, QPalette::Button)}) {
    const QColor text = palette.color(QPalette::Active, ink);
    palette.setColor(QPalette::Disabled, ink, Mixed(text, palette.color(QPalette::Active, ground), kFaded));
  }
  // The row that is current in a closed list.
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  palette.setColor(QPalette::Disabled, QPalette::Highlight,
                   Mixed(text, palette.color(QPalette::Active, QPalette::Window), 0.2));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText,
                   palette.color(QPalette::Disabled, QPalette::Text));
  return palette;
}

void PaintBox(QWidget& box, Color color, bool locked, bool enabled) {
  const QPalette standard = QApplication::palette();
  QPalette palette = standard;
  const QColor base = BoxColor(standard, color, locked || !enabled);
  const bool own = (color & 0x80000000) == 0;
  const QColor text = own ? (base.lightness() > 127 ? Qt::black : Qt::white) : standard.color(QPalette::Text);
  palette.setColor(QPalette::Base, base);
  // What a closed field shows is there to be read.
  const QColor faded = Mixed(text, base, 0.75);
  palette.setColor(QPalette::Text, enabled ? text : faded);
  palette.setColor(QPalette::Disabled, QPalette::Base, own ? base : standard.color(QPalette::Window));
  palette.setColor(QPalette::Disabled, QPalette::Text, faded);
  // What was marked before the focus went must not look as if it were still there.
  palette.setColor(QPalette::Inactive, QPalette::Highlight,
                   Mixed(standard.color(QPalette::Active, QPalette::Highlight), base, 0.25));
  palette.setColor(QPalette::Inactive, QPalette::HighlightedText, palette.color(QPalette::Text));
  // Of a combo box, which is drawn as a button.
  palette.setColor(QPalette::Disabled, QPalette::ButtonText,
                   Mixed(standard.color(QPalette::ButtonText), standard.color(QPalette::Button), 0.75));
  box.setPalette(palette);
}

void PaintRefused(QWidget& box, double share) {
  QPalette palette = box.palette();
  palette.setColor(QPalette::Base, Mixed(Qt::red, palette.color(QPalette::Base), share));
  box.setPalette(palette);
}

QIcon LookupIcon(const QWidget& widget) {
  constexpr int kSize = 16;
  const qreal ratio = widget.devicePixelRatioF();
  QPixmap picture(QSize(kSize, kSize) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QApplication::palette().color(QPalette::Text));
  for (const int x : {3, 8, 13}) painter.drawEllipse(QPointF(x, 10), 1.4, 1.4);
  return picture;
}

}  // namespace tarvoni::qt
