#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/script/public/partner.h"
#include "src/context/values/call_error.h"

namespace tarvoni {

// A toolkit whose questions a partner answers instead of a user. `Base` is Toolkit or one that shows windows.
template <typename Base>
class AnsweredToolkit : public Base {
 public:
  // Before the first Screen opens; the partner outlives the Screens.
  void SetPartner(Partner* partner) { partner_ = partner; }

 protected:
  Partner& Other() const {
    if (!partner_) throw CallError("Niemand ist da, der antwortet.");
    return *partner_;
  }

  int DoMessageBox(const std::string& prompt, int style, const std::string& title) override {
    return Other().MessageBox(prompt, style, title);
  }
  std::string DoInputBox(const std::string& prompt, const std::string& title,
                         const std::string& initial) override {
    return Other().InputBox(prompt, title, initial);
  }
  PickResult DoPickList(const PickRequest& request) override { return Other().PickList(request); }
  PickResult DoPickPerson(const PickRequest& request) override { return Other().PickList(request); }
  std::optional<DateTime> DoPickDate(const std::string& caption,
                                     const std::optional<DateTime>& start) override {
    return Other().PickDate(caption, start);
  }
  std::optional<YearMonth> DoPickMonth(const std::string& caption, const YearMonth& start) override {
    return Other().PickMonth(caption, start);
  }
  std::vector<std::int32_t> DoPickLocations(const LocationRequest& request) override {
    return Other().PickLocations(request);
  }
  std::optional<std::string> DoEditText(const TextRequest& request) override {
    return Other().EditText(request);
  }
  void DoPreviewPrint(const PrintDocument& document) override { Other().PreviewPrint(document); }

 private:
  Partner* partner_ = nullptr;
};

}  // namespace tarvoni
