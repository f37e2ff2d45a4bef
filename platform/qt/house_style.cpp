#include "platform/qt/house_style.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QStyleOption>

namespace tarvoni::qt {
namespace {

constexpr double kFocusLine = 2;

void DrawFocus(QPainter& painter, const QStyleOption& option) {
  constexpr double kCorner = 2;
  const double inset = kFocusLine / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(option.palette.color(QPalette::Active, QPalette::Highlight), kFocusLine));
  painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), kCorner, kCorner);
  painter.restore();
}

// Lists and long texts have the focus inside a frame that would not show it.
bool ShowsFocusByFrame(const QWidget* widget) {
  return qobject_cast<const QAbstractItemView*>(widget) || qobject_cast<const QPlainTextEdit*>(widget);
}

}  // namespace

HouseStyle::HouseStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  const bool focus = option->state.testFlag(State_HasFocus);
  if (element == PE_FrameFocusRect) return DrawFocus(*painter, *option);
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool framed = element == PE_Frame && ShowsFocusByFrame(widget);
  if (focus && (framed || element == PE_PanelButtonCommand)) DrawFocus(*painter, *option);
}

// A link is flat and would show no focus.
void HouseStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  if (element != CE_PushButton || !option->state.testFlag(State_HasFocus)) return;
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (button && button->features.testFlag(QStyleOptionButton::CommandLinkButton))
    DrawFocus(*painter, *option);
}

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin:
      return 4;
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
      return 7;
    case PM_LayoutVerticalSpacing:
      return 3;
    case PM_LayoutHorizontalSpacing:
      return 6;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

void HouseStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (ShowsFocusByFrame(widget)) widget->installEventFilter(this);
}

void HouseStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  QColor hint = palette.color(QPalette::Active, QPalette::Text);
  hint.setAlphaF(0.6F);
  palette.setColor(QPalette::PlaceholderText, hint);
}

bool HouseStyle::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
    static_cast<QWidget*>(object)->update();
  return QProxyStyle::eventFilter(object, event);
}

}  // namespace tarvoni::qt
