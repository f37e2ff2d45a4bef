#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "src/common/screen.h"

namespace tarvoni {

// The cost type of each of the seven cost groups of a machine, by which the machine book adds up.
class F_MaschineStamm : public Screen {
 public:
  F_MaschineStamm();
  void Run(const TvnVar_Dll& tvnvar);

 protected:
  layout::Node BuildLayout() override;

 private:
  // One line of the Screen; `label` names the group in the database.
  struct CostGroup {
    const char* label;
    const Label& caption;
    TextBox& code;
    Label& name;
    std::int16_t& kostenart_id;
  };

  void ConnectGroup(const CostGroup& group);
  void LoadGroup(const CostGroup& group);
  std::int32_t ReadCostType(const char* label);
  void PickCostType(TextBox& code);
  // True if the code is a cost type's or empty; otherwise the user has been told.
  bool CheckCode(const CostGroup& group);
  void SaveGroups();
  void TellSeveral();

  Frame frmKosten{*this, "frmKosten"};
  Label lblKostenart{*this, "lblKostenart"};
  Label lblSumme_Reparaturen{*this, "lblSumme_Reparaturen"};
  Label lblSumme_Verbrau{*this, "lblSumme_Verbrau"};
  Label lblAnschaff{*this, "lblAnschaff"};
  Label lblEigeneWA{*this, "lblEigeneWA"};
  Label lblAbschreibung{*this, "lblAbschreibung"};
  Label lblUnthernehmen{*this, "lblUnthernehmen"};
  Label lblVK{*this, "lblVK"};
  Label lbOI{*this, "lbOI"};
  Label lblSteuer{*this, "lblSteuer"};
  TextBox txtAnschaffN{*this, "txtAnschaffN"};
  TextBox txtEigeneWAN{*this, "txtEigeneWAN"};
  TextBox txtAbschreibN{*this, "txtAbschreibN"};
  TextBox txtUnternehmenN{*this, "txtUnternehmenN"};
  TextBox txtVKN{*this, "txtVKN"};
  TextBox txtOIN{*this, "txtOIN"};
  TextBox txtSteuerN{*this, "txtSteuerN"};
  Label lblAnschaffName{*this, "lblAnschaffName"};
  Label lblEigeneWANName{*this, "lblEigeneWANName"};
  Label lblAbschreibName{*this, "lblAbschreibName"};
  Label lblUnternehmenName{*this, "lblUnternehmenName"};
  Label lblVKName{*this, "lblVKName"};
  Label lblOIName{*this, "lblOIName"};
  Label lblSteuerName{*this, "lblSteuerName"};
  Label lblMehrere{*this, "lblMehrere"};
  Button cmdSpeichern{*this, "cmdSpeichern"};
  Button cmdSchliesen{*this, "cmdSchliesen"};

  // 16 bits hold the ids of this Screen; a larger one is an overflow.
  std::int16_t idAnschaff = 0;
  std::int16_t idEigeneWA = 0;
  std::int16_t idAbschreib = 0;
  std::int16_t idUnternehmen = 0;
  std::int16_t idVK = 0;
  std::int16_t idOI = 0;
  std::int16_t idSteuer = 0;

  // In the order of load and save.
  std::array<CostGroup, 7> groups_;
};

}  // namespace tarvoni
