#pragma once

#include "src/piecework/timber_lists.h"
#include "src/piecework/wage_lines.h"

namespace tarvoni {

// The time-wage lines of a wage order. Instead of lines an order can have timber lists; the one excludes the other.
class F_Zeilohn : public WageLines {
 public:
  F_Zeilohn();

 protected:
  layout::Node BuildLayout() override;
  SqlText Lines() const override;
  void ShowOrder(const CurrentRow& row) override;
  void SetViewState(bool view) override;
  TextBox& FirstBox() override { return txtZuchslagA.Locked() ? txtHolzart[0] : txtZuchslagA; }
  void TestOrder() const override;
  void WriteOrder() const override;
  SqlText UpdateLine(std::int32_t line) const override;

 private:
  TimberOrder Order() const { return {ID_Mandant_dll, ID_ARA_Kopf_dll, Line()}; }

  Label lblZuchslagA{*this, "lblZuchslagA"};
  TextBox txtZuchslagA{*this, "txtZuchslagA"};
  Label lblPercent{*this, "lblPercent"};

  Frame frmZuordnung{*this, "frmZuordnung"};
  Label lblAll{*this, "lblAll"};
  ListBox listeAll{*this, "listeAll"};
  Button cmdAddSel{*this, "cmdAddSel"};
  Button cmdDelSel{*this, "cmdDelSel"};
  Button cmdAddAll{*this, "cmdAddAll"};
  Button cmdDelAll{*this, "cmdDelAll"};
  Label lblSel{*this, "lblSel"};
  ListBox listeSel{*this, "listeSel"};

  TimberLists timber_{listeAll, listeSel};
};

}  // namespace tarvoni
