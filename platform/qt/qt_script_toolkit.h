#pragma once

#include "platform/headless/script_player.h"
#include "platform/qt/qt_toolkit.h"

namespace tarvoni::qt {

// Screens as real windows, driven by a script that also answers whatever else would open.
class QtScriptToolkit : public QtToolkit {
 public:
  // Before the first Screen opens; the player outlives them.
  void SetPlayer(ScriptPlayer* player) { player_ = player; }

 protected:
  void Attend(FormWindow& window) override;
  int DoMessageBox(const std::string& prompt, int style, const std::string& title) override;
  std::string DoInputBox(const std::string& prompt, const std::string& title,
                         const std::string& initial) override;
  PickResult DoPickList(const PickRequest& request) override;
  PickResult DoPickPerson(const PickRequest& request) override;
  std::optional<DateTime> DoPickDate(const std::string& caption,
                                     const std::optional<DateTime>& start) override;
  std::optional<YearMonth> DoPickMonth(const std::string& caption, const YearMonth& start) override;
  std::vector<std::int32_t> DoPickLocations(const LocationRequest& request) override;
  std::optional<std::string> DoEditText(const TextRequest& request) override;
  void DoPreviewPrint(const PrintDocument& document) override;

 private:
  ScriptPlayer& Player() const;
  void StepLater(FormWindow& window);

  ScriptPlayer* player_ = nullptr;
};

}  // namespace tarvoni::qt
