#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <concepts>

#include "platform/qt/button_view.h"
#include "platform/qt/control_view.h"
#include "platform/qt/date_view.h"
#include "platform/qt/form_window.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/list_view.h"
#include "platform/qt/tab_view.h"
#include "platform/qt/text_box_view.h"

namespace tarvoni::qt {
namespace {

QAbstractButton* PushButton(QWidget* parent) {
  auto* const button = new QPushButton(parent);
  button->setAutoDefault(false);  // Enter belongs to the control that has the focus
  return button;
}

using Made = std::unique_ptr<ControlView>;

// The view of a control if it is a T; the arguments follow control and window.
template <typename T, typename View>
Made MakeIf(Control& control, FormWindow& window, QWidget* parent) {
  auto* const typed = dynamic_cast<T*>(&control);
  return typed ? std::make_unique<View>(*typed, window, parent) : nullptr;
}

template <typename T>
Made MakeButton(Control& control, FormWindow& window, QWidget* parent) {
  auto* const typed = dynamic_cast<T*>(&control);
  if (!typed) return nullptr;
  QAbstractButton* button = nullptr;
  if constexpr (std::same_as<T, Button>) {
    button = PushButton(parent);
  } else if constexpr (std::same_as<T, CheckBox>) {
    button = new QCheckBox(parent);
  } else {
    button = new QRadioButton(parent);
  }
  return std::make_unique<ButtonView>(*typed, window, button);
}

Made MakeEditor(Control& control, FormWindow& window, QWidget* parent) {
  auto* const box = dynamic_cast<TextBox*>(&control);
  if (!box) return nullptr;
  if (box->MultiLine()) return std::make_unique<LinesView>(*box, window, parent);
  return std::make_unique<LineView>(*box, window, parent);
}

}  // namespace

Made MakeView(Control& control, FormWindow& window, QWidget* parent) {
  static constexpr auto kKinds = std::to_array<Made (*)(Control&, FormWindow&, QWidget*)>(
      {MakeEditor, MakeButton<Button>, MakeButton<CheckBox>, MakeButton<OptionButton>,
       MakeIf<Label, LabelView>, MakeIf<Frame, FrameView>, MakeIf<MultiListBox, MultiListBoxView>,
       MakeIf<ListBox, ListBoxView>, MakeIf<ComboBox, ComboBoxView>, MakeIf<DateControl, DateView>,
       MakeIf<TabControl, TabView>, MakeIf<Grid, GridView>});
  for (const auto make : kKinds) {
    if (Made view = make(control, window, parent)) return view;
  }
  return nullptr;
}

}  // namespace tarvoni::qt
