#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/controls/control.h"
#include "src/context/controls/controls.h"
#include "src/context/controls/data_control.h"
#include "src/context/controls/grid.h"
#include "src/context/controls/layout.h"
#include "src/context/controls/lists.h"

namespace tarvoni {

// What a toolkit hears of the Screen it shows, to mirror it.
class FormObserver {
 public:
  virtual ~FormObserver() = default;
  virtual void ControlChanged(Control& control, Aspect aspect) = 0;
  virtual void FormCaptionChanged() = 0;
  // The Screen was unloaded; its modal loop ends when the current handler has returned.
  virtual void FormUnloaded() = 0;
};

// Who carries focus moves and posted keys out while the Screen is shown (UserActions).
class FormHost {
 public:
  virtual ~FormHost() = default;
  virtual void MoveFocus(Control& target) = 0;
  virtual void PostKey(int key) = 0;
  // A control's own flag changed.
  virtual void EnabledChanged(Control& control) = 0;
};

// The controls of one Screen. A Screen derives from it and holds its controls as members:
//   TextBox txtMenge{*this, "txtMenge"};
class Form {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption);

  // What the Screen stands on, as a title tells it: "12020240017, Huber Josef". "" for nothing.
  const std::string& Subject() const { return subject_; }
  void SetSubject(std::string_view subject);

  const std::vector<Control*>& Controls() const { return controls_; }
  // Without regard to case; null if there is none.
  Control* Find(std::string_view name, int index = Control::kNoIndex) const;
  // The control by its full name, "txtKostenstelle(0)".
  Control* FindByFullName(std::string_view full_name) const;
  Control* ActiveControl() const { return active_; }
  // The next control in tab order that can take the focus, round the end; null if there is none.
  Control* NextInTabOrder(const Control* from, bool backwards = false) const;

  // Frames, rows and buttons as the layout file describes them; tab order follows it.
  const layout::Node& Layout() const { return layout_; }

  // Makes the Screen ready to be filled; done by the first use. The layout is set up once.
  void Load();
  bool IsLoaded() const { return loaded_; }
  bool IsShown() const { return host_ != nullptr; }
  // Asks Form_Unload; without a veto the Screen is unloaded and ShowModal returns. False on a veto.
  bool Unload();

  // A Tab key behind the current event: the focus goes to the next control once the handler has returned.
  void PostTab();

  // The database whose writes one handler commits together; null for a Screen without one.
  virtual Connection* HandlerConnection() const { return nullptr; }

  // The year of a date typed without one where none stood before: the current one, unless the Screen knows better.
  virtual int DateYear() const;

  Event<> Form_Activate;
  Event<bool&> Form_Unload;  // true refuses

  // For toolkits.
  void SetObserver(FormObserver* observer) { observer_ = observer; }
  FormObserver* Observer() const { return observer_; }
  void SetHost(FormHost* host) { host_ = host; }
  void SetActiveControl(Control* control);

 protected:
  // The layout file's one function.
  virtual layout::Node BuildLayout() { return {}; }
  virtual void Form_Load() {}

 private:
  friend class Control;
  void Register(Control& control) { controls_.push_back(&control); }
  void Unregister(Control& control);
  void RequestFocus(Control& control);

  std::string name_;
  std::string caption_;
  std::string subject_;
  std::vector<Control*> controls_;
  layout::Node layout_;
  Control* active_ = nullptr;
  FormObserver* observer_ = nullptr;
  FormHost* host_ = nullptr;
  bool loaded_ = false;
  bool unloading_ = false;
};

}  // namespace tarvoni
