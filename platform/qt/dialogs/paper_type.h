#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>

// Type and colours of printed papers; dark enough for a printer without colours.
namespace tarvoni::qt {

inline constexpr double kTitlePoints = 15, kTextPoints = 9, kSmallestPoints = 6.5;
inline const QColor kInk(Qt::black), kAccent(0x1f, 0x4d, 0x3a), kQuietInk(0x55, 0x55, 0x55),
    kHairline(0xc8, 0xc8, 0xc8), kShade(0xea, 0xef, 0xec);

inline QFont PaperFont(QPaintDevice* device, double points, bool bold = false) {
  QFont font("DejaVu Sans");
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(points);
  font.setBold(bold);
  return {font, device};
}

inline double LineHeight(QPaintDevice* device, double points, bool bold = false) {
  constexpr double kLeading = 1.25;
  return QFontMetricsF(PaperFont(device, points, bold), device).height() * kLeading;
}

// A length on paper in the device's units.
inline double Millimetres(const QPaintDevice* device, double length) {
  return length * device->logicalDpiY() / 25.4;
}

}  // namespace tarvoni::qt
