#pragma once

#include "src/piecework/wage_lines.h"

namespace tarvoni {

// The lines of a wage order that is paid by a quantity and a wage basis.
class F_Sonst_Stucklohn : public WageLines {
 public:
  F_Sonst_Stucklohn();

 protected:
  layout::Node BuildLayout() override;
  SqlText Lines() const override;
  std::vector<ShownColumn> FurtherColumns() const override;
  void ShowOrder(const CurrentRow& row) override;
  void ShowFurther(const CurrentRow& row) override;
  void ClearFurther() override;
  void SetViewState(bool view) override;
  TextBox& FirstBox() override { return txtLohngrundlage[0]; }
  void WriteOrder() const override;
  SqlText UpdateLine(std::int32_t line) const override;

 private:
  Label lblLohngrundlage{*this, "lblLohngrundlage"};
  ControlArray<TextBox, 2> txtLohngrundlage{*this, "txtLohngrundlage"};
  Label lblMengeLohn{*this, "lblMengeLohn"};
  TextBox txtMengeLohn{*this, "txtMengeLohn"};
  Label lblMengeeinheitLohn{*this, "lblMengeeinheitLohn"};
  ControlArray<TextBox, 2> txtMengeeinheitLohn{*this, "txtMengeeinheitLohn"};
  Label lblVorgabeMinAZ{*this, "lblVorgabeMinAZ"};
  TextBox txtVorgabeMinAZ{*this, "txtVorgabeMinAZ"};
  Label lblVorgabeMinMZ{*this, "lblVorgabeMinMZ"};
  TextBox txtVorgabeMinMZ{*this, "txtVorgabeMinMZ"};

  CodeField wage_basis_;
  CodeField wage_unit_;
};

}  // namespace tarvoni
