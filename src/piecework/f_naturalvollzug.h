#pragma once

#include <cstdint>
#include <string>

#include "src/common/screen.h"
#include "src/piecework/natural_entry.h"

namespace tarvoni {

// The natural execution of one cost position: at most one row, with its forest locations.
class F_Naturalvollzug : public Screen {
 public:
  F_Naturalvollzug();
  // `strConString_dll` has no effect: the connection is the context record's.
  void Run(const TvnVar_Dll& tvnvar, const std::string& strConString_dll, bool bolOnlyRead_dll,
           std::int32_t ID_ARBEITSAUFTRAG_DLL, std::int16_t intLeistungsart_Dll);
  // Whether positions of a performance type have a natural execution; false for an unknown one.
  static bool EnableForm(std::int16_t intLeistungsart, Connection& dbAdo);

 protected:
  layout::Node BuildLayout() override;

 private:
  void LoadNatural();
  void AddLocations(const SqlText& statement);
  void SetViewState(bool view);
  void StartEditing();
  void Save();
  std::int32_t Write() const;
  std::int32_t Insert(const natural_sql::Values& values) const;
  void WriteLocations(std::int32_t id) const;

  bool bolOnlyRead = false;
  std::int32_t ID_ARBEITSAUFTRAG = 0;
  SqlText intLeistungsart;
  std::int32_t NaturalRowId = 0;
  Guard IsLoading;

  Frame frmNaturallvollzug{*this, "frmNaturallvollzug"};
  Frame frmWaldort{*this, "frmWaldort"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnClose{*this, "btnClose"};

  NaturalEntry natural_;
};

}  // namespace tarvoni
