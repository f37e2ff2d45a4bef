#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/context/controls/form.h"
#include "src/context/data/recordset.h"

namespace tarvoni {

struct PrintDocument;

// Styles and results of message boxes; a style is a sum of buttons, icon and default.
inline constexpr int kBoxOk = 0;
inline constexpr int kBoxOkCancel = 1;
inline constexpr int kBoxYesNoCancel = 3;
inline constexpr int kBoxYesNo = 4;
inline constexpr int kBoxStop = 16;
inline constexpr int kBoxQuestion = 32;
inline constexpr int kBoxWarning = 48;
inline constexpr int kBoxInformation = 64;
inline constexpr int kBoxSecondIsDefault = 256;
inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerCancel = 2;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;

inline constexpr int BoxButtons(int style) {
  return style & 0x0F;
}
inline constexpr int BoxIcon(int style) {
  return style & 0x70;
}

struct PickRequest {
  std::string caption;
  Recordset rows;
  int code_column = 0;     // what the user types to find a row, and what `start_text` names
  int hidden_columns = 0;  // the first so many stay hidden
  std::string start_text;
  std::string option;        // of the caller, as it stands
  std::string extra_button;  // caption of a further button; "" for none
};

struct PickResult {
  std::optional<std::size_t> row;  // of PickRequest::rows in the statement's order, from 0; nothing on cancel
  bool extra = false;              // the further button was pressed
};

struct Location {
  std::int32_t id = 0;
  std::string path;  // "Revier/ Distrikt/ Abteilung"; the tree hangs on its parts
  std::string name;
};

struct LocationRequest {
  std::string caption;
  std::vector<Location> locations;
  std::string start_text;
  bool many = false;
};

struct TextRequest {
  std::string caption;
  std::string text;
  bool read_only = false;
  int max_length = 0;
};

struct YearMonth {
  int year = 0;
  int month = 0;
  friend bool operator==(const YearMonth&, const YearMonth&) = default;
};

// Shows Screens and asks the user. Everything modal goes through here; what a running handler has written is
// committed before a window opens.
class Toolkit {
 public:
  virtual ~Toolkit() = default;

  // Returns when the Screen is unloaded. Screens nest.
  void ShowModal(Form& form);
  // The Screens that are open, the topmost last.
  const std::vector<Form*>& OpenForms() const { return open_forms_; }
  Form* TopForm() const { return open_forms_.empty() ? nullptr : open_forms_.back(); }
  // A title with what the Screen and those below it stand on.
  std::string Titled(const std::string& title, const Form& form) const;

  int MessageBox(const std::string& prompt, int style, const std::string& title);
  // How many were shown so far.
  int MessageBoxes() const { return message_boxes_; }
  // "" on cancel.
  std::string InputBox(const std::string& prompt, const std::string& title, const std::string& initial = {});
  PickResult PickList(const PickRequest& request);
  PickResult PickPerson(const PickRequest& request);
  std::optional<DateTime> PickDate(const std::string& caption, const std::optional<DateTime>& start);
  std::optional<YearMonth> PickMonth(const std::string& caption, const YearMonth& start);
  // Ids of the chosen locations; empty on cancel.
  std::vector<std::int32_t> PickLocations(const LocationRequest& request);
  // The new text; nothing on cancel.
  std::optional<std::string> EditText(const TextRequest& request);
  void PreviewPrint(const PrintDocument& document);

  // A sentence that asks for no answer, in the status line of the topmost Screen until the next one.
  void Tell(const std::string& sentence);
  // What was told last; "" after a Screen opened.
  const std::string& LastTold() const { return told_; }
  // A key or a text that a control does not take: seen and heard at the control, with the reason in the status line.
  void ShowRefusal(Control& control, const std::string& sentence);

  // Counts nested waits; the pointer changes with the first and the last.
  void BeginWait();
  void EndWait();

 protected:
  // Counts a Screen among the open ones for the length of a scope.
  class OpenForm {
   public:
    OpenForm(Toolkit& toolkit, Form& form) : forms_(toolkit.open_forms_) { forms_.push_back(&form); }
    OpenForm(const OpenForm&) = delete;
    OpenForm& operator=(const OpenForm&) = delete;
    ~OpenForm() { forms_.pop_back(); }

   private:
    std::vector<Form*>& forms_;
  };

  virtual void DoShowModal(Form& form) = 0;
  virtual int DoMessageBox(const std::string& prompt, int style, const std::string& title) = 0;
  virtual std::string DoInputBox(const std::string& prompt, const std::string& title,
                                 const std::string& initial) = 0;
  virtual PickResult DoPickList(const PickRequest& request) = 0;
  virtual PickResult DoPickPerson(const PickRequest& request) { return DoPickList(request); }
  virtual std::optional<DateTime> DoPickDate(const std::string& caption,
                                             const std::optional<DateTime>& start) = 0;
  virtual std::optional<YearMonth> DoPickMonth(const std::string& caption, const YearMonth& start) = 0;
  virtual std::vector<std::int32_t> DoPickLocations(const LocationRequest& request) = 0;
  virtual std::optional<std::string> DoEditText(const TextRequest& request) = 0;
  virtual void DoPreviewPrint(const PrintDocument& document) = 0;
  virtual void ShowWaitPointer(bool) {}
  virtual void DoTell(const std::string& /*sentence*/) {}
  virtual void DoShowRefusal(Control&) {}

 private:
  std::string told_;
  std::vector<Form*> open_forms_;
  int message_boxes_ = 0;
  int waits_ = 0;
};

// The wait pointer for the length of a scope.
class WaitPointer {
 public:
  explicit WaitPointer(Toolkit& toolkit) : toolkit_(toolkit) { toolkit_.BeginWait(); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;
  ~WaitPointer() { toolkit_.EndWait(); }

 private:
  Toolkit& toolkit_;
};

}  // namespace tarvoni
