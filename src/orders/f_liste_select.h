#pragma once

#include <string>

#include "src/common/screen.h"
#include "src/context/controls/multi_list_box.h"

namespace tarvoni {

// Moves texts between an offer and a selection. What they mean its caller knows.
class F_ListeSelect : public Screen {
 public:
  F_ListeSelect();
  void Run(const TvnVar_Dll& tvnvar);

  // Statements that fill the two lists with the first column of their rows; an empty one leaves its list empty.
  SqlText strSQLAll;
  SqlText strSQLSel;
  // What OK leaves in the selection and in the offer: texts between single quotes, joined by commas, as they stand.
  // Both are empty when the dialog was cancelled.
  std::string SelectListe;
  std::string SelectListeDelete;

 protected:
  layout::Node BuildLayout() override;

 private:
  void ConnectList(MultiListBox& from, MultiListBox& to, Button& button);
  void FillList(MultiListBox& list, const SqlText& statement) const;
  void Move(MultiListBox& from, MultiListBox& to);
  void MoveByKey(MultiListBox& from, MultiListBox& to);
  void MarkFound();
  void ShowCounts();
  void Confirm();

  Frame Frame1{*this, "Frame1"};
  Label lblSuche{*this, "lblSuche"};
  TextBox txtSuche{*this, "txtSuche"};
  Label lblAll{*this, "lblAll"};
  MultiListBox listeAll{*this, "listeAll"};
  Button cmdAdd{*this, "cmdAdd"};
  Button cmdDel{*this, "cmdDel"};
  Label lblSel{*this, "lblSel"};
  MultiListBox listeSel{*this, "listeSel"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};
};

}  // namespace tarvoni
