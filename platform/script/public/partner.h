#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/context/services/toolkit.h"

namespace tarvoni {

// Who plays the user where nobody sits: drives each Screen, step by step, and answers whatever opens.
class Partner {
 public:
  virtual ~Partner() = default;
  // Does one thing with the Screen on top; false once it is unloaded.
  virtual bool Step(Form& form) = 0;
  virtual int MessageBox(const std::string& prompt, int style, const std::string& title) = 0;
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& initial) = 0;
  virtual PickResult PickList(const PickRequest& request) = 0;
  virtual std::optional<DateTime> PickDate(const std::string& caption,
                                           const std::optional<DateTime>& start) = 0;
  virtual std::optional<YearMonth> PickMonth(const std::string& caption, const YearMonth& start) = 0;
  virtual std::vector<std::int32_t> PickLocations(const LocationRequest& request) = 0;
  virtual std::optional<std::string> EditText(const TextRequest& request) = 0;
  virtual void PreviewPrint(const PrintDocument& document) = 0;
};

}  // namespace tarvoni
