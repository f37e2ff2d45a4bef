#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The tree of forest locations. The scope is the client whose locations are offered, with those that belong
// to every client; 0 offers all.
class WaldortDialog final : public tarvoni::WaldortDialog {
 public:
  void PickMany(const TvnVar_Dll& context, const std::string& start_text, std::int32_t scope,
                std::vector<std::int32_t>& ids, std::vector<std::string>& texts) override;
  // Without a long name the full text is the path alone.
  void PickOne(const TvnVar_Dll& context, std::string& full_text, std::int32_t& id, std::string& text,
               std::int32_t& scope, bool& chosen) override;
};

}  // namespace tarvoni::suite
