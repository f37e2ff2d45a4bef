#include "platform/qt/house_style.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>

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

// On a dark ground the frame of a box to tick would be as dark as the ground.
void DrawMarkFrame(QPainter& painter, const QStyleOption& option, bool round) {
  constexpr float kFrame = 0.6F;
  if (option.palette.color(QPalette::Base).lightness() > 127) return;
  QColor frame = option.palette.color(QPalette::Text);
  frame.setAlphaF(kFrame);
  const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, round);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(frame);
  round ? painter.drawEllipse(box) : painter.drawRect(box);
  painter.restore();
}

// Lists and long texts have the focus inside a frame that would not show it.
bool IsFramed(const QWidget* widget) {
  return qobject_cast<const QAbstractItemView*>(widget) || qobject_cast<const QPlainTextEdit*>(widget);
}

}  // namespace

HouseStyle::HouseStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  const bool focus = option->state.testFlag(State_HasFocus);
  if (element == PE_FrameFocusRect) return DrawFocus(*painter, *option);
  if (element == PE_IndicatorHeaderArrow) return DrawOrder(*option, *painter, widget);
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool round = element == PE_IndicatorRadioButton;
  if (round || element == PE_IndicatorCheckBox) DrawMarkFrame(*painter, *option, round);
  const bool framed = element == PE_Frame && IsFramed(widget);
  if (focus && (framed || element == PE_PanelButtonCommand)) DrawFocus(*painter, *option);
}

void HouseStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  if (element == CE_HeaderLabel) return DrawHead(*option, *painter, widget);
  QProxyStyle::drawControl(element, option, painter, widget);
  const bool focus = widget && widget->hasFocus();
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
  // A link is flat and would show none, nor would the open tab.
  const bool link =
      element == CE_PushButton && button && button->features.testFlag(QStyleOptionButton::CommandLinkButton);
  const bool tab = element == CE_TabBarTabLabel && option->state.testFlag(State_Selected);
  if (focus && (link || tab)) DrawFocus(*painter, *option);
}

// Upward where values rise, as other programs show it; the style means the way one reads.
void HouseStyle::DrawOrder(const QStyleOption& option, QPainter& painter, const QWidget* widget) const {
  auto head = *qstyleoption_cast<const QStyleOptionHeader*>(&option);
  head.version = QStyleOptionHeader::Version;
  const bool rises = head.sortIndicator == QStyleOptionHeader::SortDown;
  head.sortIndicator = rises ? QStyleOptionHeader::SortUp : QStyleOptionHeader::SortDown;
  QProxyStyle::drawPrimitive(PE_IndicatorHeaderArrow, &head, &painter, widget);
}

// A head wider than its column ends in dots.
void HouseStyle::DrawHead(const QStyleOption& option, QPainter& painter, const QWidget* widget) const {
  auto head = *qstyleoption_cast<const QStyleOptionHeader*>(&option);
  head.version = QStyleOptionHeader::Version;  // what newer versions add is not copied
  head.text = head.fontMetrics.elidedText(head.text, Qt::ElideRight, head.rect.width());
  QProxyStyle::drawControl(CE_HeaderLabel, &head, &painter, widget);
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
  if (IsFramed(widget) || qobject_cast<QTabBar*>(widget)) widget->installEventFilter(this);
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
