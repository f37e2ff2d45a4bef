#pragma once

#include <cstdint>
#include <string>

#include "src/common/code_field.h"
#include "src/common/screen.h"

namespace tarvoni {

// Makes the name of an invoice: forest year, client and category. Nothing is written.
class F_NewRechnung : public Screen {
 public:
  F_NewRechnung();
  // `oldRechName` proposes its parts, by place: year 1 to 4, client 5 to 8, category 9; an "H" at 10 keeps the client.
  // Without it the client is `intPersonal`. `RechName` is "" when the dialog was cancelled.
  void Run(const TvnVar_Dll& tvnvar, std::string& RechName, std::int32_t intPersonal,
           const std::string& oldRechName);

 protected:
  layout::Node BuildLayout() override;

 private:
  void FillFromName(const std::string& name);
  void FillStandard(std::int32_t client);
  void Enter(TextBox& box, std::string_view text) const;
  void Confirm();
  CodeField::Rule ClientRule();

  Guard loading_;
  std::string name_;

  Frame frmRechnung{*this, "frmRechnung"};
  Label lblFWJ{*this, "lblFWJ"};
  TextBox txtFWJ{*this, "txtFWJ"};
  Label lblMandant{*this, "lblMandant"};
  TextBox txtMandant{*this, "txtMandant"};
  Label lblKategorie{*this, "lblKategorie"};
  ControlArray<TextBox, 2> txtKategorie{*this, "txtKategorie"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  CodeField mandant_{Context(), loading_, txtMandant, nullptr, ClientRule()};
  CodeField kategorie_{Context(), loading_, txtKategorie[0], &txtKategorie[1],
                       NamedCode(Context(), txtKategorie[0], lblKategorie, "T_KATEGORIE", "LONG",
                                 [] { return NamedValues{}; })};
};

}  // namespace tarvoni
