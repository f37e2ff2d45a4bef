#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "src/context/controls/event.h"

namespace tarvoni {

class Form;

using Color = std::uint32_t;
inline constexpr Color kWindowBackground = 0x80000005;  // an open box
inline constexpr Color kButtonFace = 0x8000000F;        // a locked box

// Key codes of KeyDown and the control characters of KeyPress.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyTab = 9;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyCtrl = 17;  // opens the lookup of a code field
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeySpace = 32;
inline constexpr int kKeyEnd = 35;
inline constexpr int kKeyHome = 36;
inline constexpr int kKeyUp = 38;
inline constexpr int kKeyDown = 40;
inline constexpr int kKeyDelete = 46;
inline constexpr int kKeyInsert = 45;
inline constexpr int kKeyPageUp = 33;
inline constexpr int kKeyPageDown = 34;
inline constexpr int kKeyF1 = 112;  // F2 to F12 follow
inline constexpr int kKeyF2 = 113;
inline constexpr int kKeyF4 = 115;

// What a toolkit has to show anew after a control announced a change.
enum class Aspect {
  kText,       // text, or the chosen item of a list
  kCaption,    // caption of a control or of a tab
  kEnabled,    // its own or a frame's; a timer switched on or off
  kVisible,    //
  kLocked,     // locked, colour, tab stop, length limit
  kSelection,  // SelStart, SelLength
  kItems,      // the items of a list
  kValue,      // check, option, date, current tab
  kColumns,    // the columns of a grid
  kRows,       // the rows of a grid
  kRow,        // the current row
  kFocus,      // the control became the active one
};

// One control of a Screen: plain values and events, no window. Names are those of the system; a control of an
// array bears its index as well.
class Control {
 public:
  static constexpr int kNoIndex = -1;

  Control(Form& form, std::string name, int index = kNoIndex);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  const std::string& Name() const { return name_; }
  int Index() const { return index_; }
  std::string FullName() const;  // "txtKostenstelle(0)"
  Form& OwnerForm() const { return form_; }

  // The control's own flags; IsEnabled and IsVisible count the frames and tabs around it as well.
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool IsEnabled() const;
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool IsVisible() const;

  const std::string& Tag() const { return tag_; }
  void SetTag(std::string_view tag) { tag_ = tag; }

  int TabIndex() const { return tab_index_; }
  void SetTabIndex(int tab_index) { tab_index_ = tab_index; }
  bool TabStop() const { return tab_stop_; }
  void SetTabStop(bool tab_stop);
  // False for a button that may be reached although the field being left does not pass its Validate.
  bool CausesValidation() const { return causes_validation_; }
  void SetCausesValidation(bool causes) { causes_validation_ = causes; }

  // The frame or tab page the control stands in; null directly on the Screen.
  Control* Container() const { return container_; }
  void SetContainer(Control* container) { container_ = container; }

  virtual bool TakesFocus() const { return false; }
  bool CanFocus() const { return TakesFocus() && IsEnabled() && IsVisible(); }
  // Moves the focus here with the events of leaving and arriving; before the Screen shows it chooses where
  // the focus will start. Throws CallError if the control cannot take it.
  void SetFocus();
  bool HasFocus() const;

  Event<> GotFocus;
  Event<> LostFocus;
  Event<bool&> Validate;    // true keeps the focus
  Event<int, int> KeyDown;  // key code, shift state (1 Shift, 2 Ctrl, 4 Alt)
  Event<int&> KeyPress;     // the character; 0 refuses it
  Event<> Change;           // the text or value changed, by the user or by program
  Event<> Click;
  Event<> DblClick;
  Event<int> MouseDown;  // 1 left, 2 right

 protected:
  void Announce(Aspect aspect);
  // A container's rule for the controls inside it, beyond its own flag.
  virtual bool ShowsContent() const { return true; }

 private:
  Form& form_;
  std::string name_;
  int index_;
  bool enabled_ = true;
  bool visible_ = true;
  bool tab_stop_ = true;
  bool causes_validation_ = true;
  int tab_index_ = 0;
  std::string tag_;
  Control* container_ = nullptr;
};

// The controls of one name, told apart by an index that starts at `first`.
template <typename T, int N>
class ControlArray {
 public:
  ControlArray(Form& form, const std::string& name, int first = 0) : first_(first) {
    for (int i = 0; i < N; ++i)
      items_.at(static_cast<std::size_t>(i)) = std::make_unique<T>(form, name, first + i);
  }

  T& operator[](int index) { return *items_.at(static_cast<std::size_t>(index - first_)); }
  const T& operator[](int index) const { return *items_.at(static_cast<std::size_t>(index - first_)); }
  int First() const { return first_; }
  int Last() const { return first_ + N - 1; }

  // Calls `action(control)` or `action(index, control)` for each.
  template <typename Action>
  void ForEach(Action action) {
    for (auto& item : items_) {
      if constexpr (std::invocable<Action&, int, T&>) {
        action(item->Index(), *item);
      } else {
        action(*item);
      }
    }
  }

 private:
  int first_;
  std::array<std::unique_ptr<T>, N> items_;
};

}  // namespace tarvoni
