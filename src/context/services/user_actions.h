#pragma once

#include <deque>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "src/context/controls/form.h"
#include "src/context/controls/multi_list_box.h"
#include "src/context/services/toolkit.h"

namespace tarvoni {

// What a user does to a shown Screen. Both toolkits raise it here and nowhere else, so that a rule that holds
// without a window holds on the desktop.
//
// Each event is one handler: its writes are committed together, an exception in it ends it and is shown once
// as an error box, and the Screen stays as it is. Keys that a handler posted and timers run after the action.
class UserActions : private FormHost {
 public:
  UserActions(Form& form, Toolkit& toolkit);
  ~UserActions() override;

  Form& Screen() const { return form_; }

  // The Screen appears: Form_Activate, then the focus goes where the Screen put it or to the first control.
  void Open();

  // Moves the focus as the user does. False if the field being left or a handler kept or took it elsewhere.
  bool Focus(Control& target);
  void Tab(bool backwards = false);

  // One key on the active control: KeyDown, then what the key does by itself, or the command it stands for.
  // `shift`: 1 Shift, 2 Ctrl, 4 Alt.
  void Key(int key, int shift = 0);
  // One character: KeyDown, the KeyPress filter, the text, Change. False if the filter or the box refused it.
  // A box for numbers that refused a character waits: what follows would change what its number means, so until it
  // is corrected no key counts and the focus stays. Backspace takes the refused characters back one by one; arrows,
  // Delete, Escape and a click into the box all at once. Only what cancels or closes is reached meanwhile.
  bool TypeCharacter(char32_t character);
  // Characters one by one; a line break is the Enter key.
  void Type(std::string_view text);
  // Text from the clipboard passes the filter like typed text, but as one edit: all of it or nothing. A box for
  // numbers takes them also with groups of thousands. What is refused is told in a sentence.
  bool Paste(std::string_view text);
  // Replaces the whole text of an editor (a toolkit's own editing: undo, drag), past the filter.
  void ReplaceText(TextBox& box, std::string_view text);
  void ReplaceText(ComboBox& combo, std::string_view text);
  // The box that waits for a correction; null if none does.
  const TextBox* WaitingBox() const;
  // The user turned to the box by the editor's own means (the mouse, choosing all): it takes keys again.
  void StopWaiting() { refused_ = {}; }
  // Opens the lookup of the active control: Ctrl released alone, F4, or the button in the field.
  void Lookup();
  // Whether the key is one that the Screen as a whole answers: the key of a button, which is told if the button is
  // closed, F1, or Ctrl with Tab or a page key where there are tabs.
  bool IsCommand(int key, int shift) const;
  // Presses the button, or turns to the tab, with this letter. False if there is none.
  bool Mnemonic(char32_t letter);

  // The mouse. Clicking first moves the focus; if it does not arrive, the click is lost, as is one on a
  // disabled control. A label or frame takes clicks without the focus, and a button that causes no validation is
  // pressed whatever the field being left says.
  void Click(Control& control);
  void DoubleClick(Control& control);
  // The second press of a double click whose first one was a Click.
  void SecondClick(Control& control);
  void MouseDown(Control& control, int button = 1);

  void SelectItem(ItemList& list, int index);
  // Marking several items: Shift with a step or a click, Ctrl with a click, Ctrl+A.
  void MarkTo(MultiListBox& list, int index);
  void ToggleMark(MultiListBox& list, int index);
  void MarkAll(MultiListBox& list);
  void ChooseDate(DateControl& control, std::optional<DateTime> date);
  void ChooseTab(TabControl& tabs, int tab);
  // A click on a row of the grid, counted from 0: the row moves, then Click.
  void ClickRow(Grid& grid, int row);
  void MoveRow(DataGrid& grid, int row);
  // HeadClick, or sorting by the column if the Screen has no handler; again for descending.
  void ClickHead(DataGrid& grid, int column);
  void ResizeColumn(Grid& grid, int column, int twips);

  // The window's close button, or Escape where nothing is being edited. Where nothing can be cancelled it asks before
  // anything typed is lost. False on a veto.
  bool Close();
  // Raises Elapsed of each running timer once. The toolkits call it when the time has come.
  void RunTimers();
  void RunTimer(Timer& timer);

 private:
  void MoveFocus(Control& target) override { Arrive(target); }
  void PostKey(int key) override { posted_.push_back(key); }
  void EnabledChanged(Control& control) override;

  // One user action: its events, then posted keys, then the focus off a control that can no longer hold it.
  void Act(const std::function<void()>& action);
  // One event. False if it ended in an error.
  bool Handle(const std::function<void()>& handler);
  void Report(const std::exception& error);
  bool Arrive(Control& target);
  bool Leave(Control& target);
  void SettleFocus();
  // The first list that can take the focus; null if there is none.
  Control* OpenList() const;
  void ClickSelf(Control& control);

  // The user entered something: what was told before is past.
  void Entered();
  void PressButton(Button& button);
  // The open button of a command; null if there is none.
  Button* ButtonFor(Command command) const;
  // The same, or else one that is closed.
  Button* ShownButtonFor(Command command) const;
  // Whether the Screen has a button of the command, in whatever state.
  bool Offers(Command command) const;
  TabControl* OpenTabs() const;
  void DoCommand(int key, int shift);
  void StepTab(int step);
  void Cancel();
  // Asks before anything typed is lost.
  bool MayDiscard();
  bool LosesByClosing() const;
  void ShowKeys();

  void OpenLookup(Control& control);
  void PressKey(int key, int shift);
  void ActOnKey(Control& control, int key, int shift);
  bool PressCharacter(Control& control, char32_t character);
  bool PasteInto(TextBox& box, std::string_view text);
  void RefuseCharacter(Control& control, char32_t character);
  // What a key means to a box that waits. True if that is all the key does.
  bool Corrects(int key);
  // Tells it if a box waits.
  bool HoldsOff();
  bool MayGoTo(const Control& target);
  bool Insert(TextBox& box, char32_t character);
  void Erase(TextBox& box, int key);
  void Step(Control& control, int rows, int shift);
  void MarkItems(MultiListBox& list, const std::function<void()>& mark);
  struct Range {
    int start, length;
  };
  void Replace(TextBox& box, Range range, std::string_view inserted);

  Form& form_;
  Toolkit& toolkit_;
  std::deque<int> posted_;
  int handling_ = 0;  // handlers at work
  // Characters that a box refused, and how it stood then.
  struct Refused {
    TextBox* box = nullptr;
    std::string text;
    int start = 0, length = 0;  // of its selection
    std::u32string characters;
  };
  Refused refused_;
  bool acting_ = false;   // inside Act
  bool leaving_ = false;  // between Validate and GotFocus
  bool typed_ = false;    // the user entered something since the edit began or the last save
  int edits_ended_ = 0;
  std::string ended_subject_;      // what the Screen stood on then
  Control* redirected_ = nullptr;  // where a handler sent the focus meanwhile
};

}  // namespace tarvoni
