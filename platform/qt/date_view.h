#pragma once

#include <optional>

#include "platform/qt/control_view.h"
#include "src/context/controls/controls.h"

class QAction;
class QLineEdit;

namespace tarvoni::qt {

// A date typed as "dd.mm.yyyy" or chosen in the calendar. What was typed counts when the field is left or Enter pressed.
class DateView : public ControlView {
 public:
  DateView(DateControl& date, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  void Show(Aspect aspect) override;
  bool Key(const QKeyEvent& event) override;
  bool Press(const QMouseEvent& event, bool twice) override;
  bool Release(const QMouseEvent&) override { return true; }
  bool Other(QEvent& event) override;
  void Lookup() override { Open(); }
  bool Commit() override;

 private:
  QString Shown() const;
  // The day in the box, if the user may choose it.
  std::optional<DateTime> TypedDay() const;
  void Choose(std::optional<DateTime> day);
  void Open();

  DateControl& date_;
  QLineEdit* edit_;
  QAction* calendar_;
};

}  // namespace tarvoni::qt
