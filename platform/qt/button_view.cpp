#include "platform/qt/button_view.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

#include "platform/qt/form_window.h"
#include "platform/qt/public/text.h"
#include "src/context/services/command_keys.h"
#include "src/context/services/mnemonics.h"

namespace tarvoni::qt {

ButtonView::ButtonView(Captioned& control, FormWindow& window, QAbstractButton* button)
    : ControlView(control, window), captioned_(control), button_(button) {
  button_->setFocusPolicy(Qt::TabFocus);
  button_->setAutoExclusive(false);
  QObject::connect(button_, &QAbstractButton::clicked, button_, [this] {
    ShowValue();  // the widget has switched by itself
    Window().Act([this](UserActions& user) { user.Click(captioned_); });
  });
}

QWidget* ButtonView::Widget() const {
  return button_;
}

void ButtonView::Show(Aspect aspect) {
  if (aspect == Aspect::kCaption) ShowCaption();
  if (aspect == Aspect::kValue) ShowValue();
  ControlView::Show(aspect);
}

void ButtonView::ShowCaption() const {
  button_->setText(ToQt(CaptionWithMnemonic(captioned_)));
  const auto* const button = dynamic_cast<const Button*>(&captioned_);
  const std::string key = button ? KeyName(button->Does()) : "";
  if (!key.empty()) button_->setToolTip(PlainCaption(captioned_.Caption()) + " (" + ToQt(key) + ")");
}

void ButtonView::ShowValue() const {
  if (const auto* option = dynamic_cast<OptionButton*>(&captioned_)) button_->setChecked(option->Value());
  const auto* const check = dynamic_cast<CheckBox*>(&captioned_);
  if (!check) return;
  auto& box = static_cast<QCheckBox&>(*button_);
  const Qt::CheckState states[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
  box.setCheckState(states[check->Value()]);
  box.setTristate(false);
}

bool ButtonView::Press(const QMouseEvent& event, bool twice) {
  // The left button clicks when it is released.
  return event.button() != Qt::LeftButton && ControlView::Press(event, twice);
}

LabelView::LabelView(Label& label, FormWindow& window, QWidget* parent)
    : ControlView(label, window), label_(label), text_(new QLabel(parent)) {
  text_->setTextFormat(Qt::PlainText);
}

QWidget* LabelView::Widget() const {
  return text_;
}

void LabelView::Show(Aspect aspect) {
  if (aspect == Aspect::kCaption) text_->setText(ToQt(label_.Caption()));
  ControlView::Show(aspect);
}

FrameView::FrameView(Frame& frame, FormWindow& window, QWidget* parent)
    : ControlView(frame, window), frame_(frame), box_(new QGroupBox(parent)) {}

QWidget* FrameView::Widget() const {
  return box_;
}

void FrameView::Show(Aspect aspect) {
  if (aspect == Aspect::kCaption) box_->setTitle(ToQt(frame_.Caption()));
  // Each control in it shows by itself that it is closed; a closed text is still there to be read.
  if (aspect != Aspect::kEnabled) ControlView::Show(aspect);
}

}  // namespace tarvoni::qt
