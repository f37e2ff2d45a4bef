#pragma once

#include <QProxyStyle>

namespace tarvoni::qt {

// Fusion, closer together, so that many fields fit a small screen, and with the focus marked wherever it is.
class HouseStyle : public QProxyStyle {
 public:
  HouseStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  void polish(QWidget* widget) override;
  // Hints in empty boxes stay readable in the dark.
  void polish(QPalette& palette) override;
  using QProxyStyle::polish;

 protected:
  // Frames and tabs show where the focus is, but Qt does not paint them anew when it comes or goes.
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void DrawOrder(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
  void DrawHead(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
};

}  // namespace tarvoni::qt
