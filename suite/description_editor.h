#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The window in which a header's description is read or written. The text comes from and goes back to the
// caller: neither the header's id nor the database plays a part.
class DescriptionEditor final : public tarvoni::DescriptionEditor {
 public:
  // `table` is ARBEITSAUFTRAG_KOPF or ARBEITSAUFTRAG_KOPF_PLANN, else a CallError; `text` stays on cancel.
  void EditText(const TvnVar_Dll& context, std::int32_t id, bool read_only, const std::string& table,
                std::string& text) override;
};

}  // namespace tarvoni::suite
