#include "src/context/services/toolkit.h"

#include <algorithm>

#include "src/context/data/handler_scope.h"
#include "src/context/values/call_error.h"

namespace tarvoni {

void Toolkit::ShowModal(Form& form) {
  HandlerScope::CommitAll();
  form.Load();
  if (form.IsShown()) throw CallError("Der Bildschirm " + form.Name() + " ist bereits geöffnet.");
  const OpenForm open(*this, form);
  told_.clear();
  DoShowModal(form);
}

int Toolkit::MessageBox(const std::string& prompt, int style, const std::string& title) {
  ++message_boxes_;
  HandlerScope::CommitAll();
  return DoMessageBox(prompt, style, title);
}

std::string Toolkit::InputBox(const std::string& prompt, const std::string& title,
                              const std::string& initial) {
  HandlerScope::CommitAll();
  return DoInputBox(prompt, title, initial);
}

PickResult Toolkit::PickList(const PickRequest& request) {
  HandlerScope::CommitAll();
  return DoPickList(request);
}

PickResult Toolkit::PickPerson(const PickRequest& request) {
  HandlerScope::CommitAll();
  return DoPickPerson(request);
}

std::optional<DateTime> Toolkit::PickDate(const std::string& caption, const std::optional<DateTime>& start) {
  HandlerScope::CommitAll();
  return DoPickDate(caption, start);
}

std::optional<YearMonth> Toolkit::PickMonth(const std::string& caption, const YearMonth& start) {
  HandlerScope::CommitAll();
  return DoPickMonth(caption, start);
}

std::vector<std::int32_t> Toolkit::PickLocations(const LocationRequest& request) {
  HandlerScope::CommitAll();
  return DoPickLocations(request);
}

std::optional<std::string> Toolkit::EditText(const TextRequest& request) {
  HandlerScope::CommitAll();
  return DoEditText(request);
}

void Toolkit::PreviewPrint(const PrintDocument& document) {
  HandlerScope::CommitAll();
  DoPreviewPrint(document);
}

std::string Toolkit::Titled(const std::string& title, const Form& form) const {
  std::string titled = title;
  auto open = std::ranges::find(open_forms_.rbegin(), open_forms_.rend(), &form);
  for (; open != open_forms_.rend(); ++open) {
    if (!(*open)->Subject().empty()) titled += " – " + (*open)->Subject();
  }
  return titled;
}

void Toolkit::Tell(const std::string& sentence) {
  told_ = sentence;
  DoTell(sentence);
}

void Toolkit::ShowRefusal(Control& control, const std::string& sentence) {
  Tell(sentence);
  DoShowRefusal(control);
}

void Toolkit::BeginWait() {
  if (waits_++ == 0) ShowWaitPointer(true);
}

void Toolkit::EndWait() {
  if (--waits_ == 0) ShowWaitPointer(false);
}

}  // namespace tarvoni
