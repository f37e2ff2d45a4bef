#pragma once

#include "platform/qt/control_view.h"
#include "src/context/controls/controls.h"

class QAbstractButton;
class QGroupBox;
class QLabel;

namespace tarvoni::qt {

// A button, check box or option button: what it looks like is the control's, a click goes to the user's actions.
class ButtonView : public ControlView {
 public:
  ButtonView(Captioned& control, FormWindow& window, QAbstractButton* button);
  QWidget* Widget() const override;
  void Show(Aspect aspect) override;
  bool Press(const QMouseEvent& event, bool twice) override;

 private:
  void ShowCaption() const;
  void ShowValue() const;

  Captioned& captioned_;
  QAbstractButton* button_;
};

class LabelView : public ControlView {
 public:
  LabelView(Label& label, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  void Show(Aspect aspect) override;

 private:
  Label& label_;
  QLabel* text_;
};

class FrameView : public ControlView {
 public:
  FrameView(Frame& frame, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  void Show(Aspect aspect) override;

 private:
  Frame& frame_;
  QGroupBox* box_;
};

}  // namespace tarvoni::qt
