#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "src/common/screen.h"

namespace tarvoni {

// One machine: its master data, what was booked on its cost object by cost groups, and its life story.
class F_Maschinenbuch : public Screen {
 public:
  F_Maschinenbuch();
  // `intNummer_dll` is MASCHINENBUCH.NUMMER; with `bolNew` saving makes the machine.
  void Run(std::int32_t intNummer_dll, bool bolNew, const TvnVar_Dll& tvnvar);

 protected:
  layout::Node BuildLayout() override;

 private:
  // One cost line; `label` names the group in the database, `booked` tells where the sum comes from.
  struct CostLine {
    const char* label;
    TextBox& numbers;
    TextBox& sum;
    bool booked;
  };

  void ConnectFields();
  void Empty();
  void FillObjects();
  void LoadMachine();
  void ShowObject();
  void ShowLife();
  void ShowCostTypes();
  void ShowSums();
  void ShowDerived();
  std::vector<ShownColumn> LifeColumns() const;
  // OBJEKT.ID; -1 without an object.
  std::int32_t Object() const;
  void Save();
  void MakeMachine() const;
  void WriteFields() const;

  std::int32_t intNummer_dll = 0;
  bool bolNew = false;
  Guard loading_;

  DataControl Data1{*this, "Data1"};

  Frame frmKopf{*this, "frmKopf"};
  Label lblNummer{*this, "lblNummer"};
  TextBox txtNummer{*this, "txtNummer"};
  Label lblBezeichnung{*this, "lblBezeichnung"};
  TextBox txtBezeichnung{*this, "txtBezeichnung"};
  Label lblAnschaffjahr{*this, "lblAnschaffjahr"};
  TextBox txtAnschaffjahr{*this, "txtAnschaffjahr"};
  Label lblNutzungs{*this, "lblNutzungs"};
  TextBox txtNutzungs{*this, "txtNutzungs"};
  Label lblFahrgestellnumer{*this, "lblFahrgestellnumer"};
  TextBox txtFahrgestellnumer{*this, "txtFahrgestellnumer"};
  Label lblPolizeiliches{*this, "lblPolizeiliches"};
  TextBox txtPolizeiliches{*this, "txtPolizeiliches"};
  Label lblObjekt{*this, "lblObjekt"};
  ComboBox txtObjektN{*this, "txtObjektN"};
  TextBox txtObjekt{*this, "txtObjekt"};
  Label lblMaschinenstunden{*this, "lblMaschinenstunden"};
  TextBox txtMaschinenstunden{*this, "txtMaschinenstunden"};
  Label lblStundenHinweis{*this, "lblStundenHinweis"};

  TabControl SSTab1{*this, "SSTab1"};
  Frame frmKosten{*this, "frmKosten"};
  Label lblAnschaff{*this, "lblAnschaff"};
  TextBox txtAnschaff{*this, "txtAnschaff"};
  TextBox txtAnschaffS{*this, "txtAnschaffS"};
  Label lblAnschaffHinweis{*this, "lblAnschaffHinweis"};
  Label lblAbschreibung{*this, "lblAbschreibung"};
  TextBox txtAbschreib{*this, "txtAbschreib"};
  TextBox txtAbschreibS{*this, "txtAbschreibS"};
  Label lblEigeneWA{*this, "lblEigeneWA"};
  TextBox txtEigeneWA{*this, "txtEigeneWA"};
  TextBox txtEigeneWAS{*this, "txtEigeneWAS"};
  Label lblUnternehmen{*this, "lblUnternehmen"};
  TextBox txtUnternehmen{*this, "txtUnternehmen"};
  TextBox txtUnternehmenS{*this, "txtUnternehmenS"};
  Label lblVK{*this, "lblVK"};
  TextBox txtVK{*this, "txtVK"};
  TextBox txtVKS{*this, "txtVKS"};
  Label lbOI{*this, "lbOI"};
  TextBox txtOI{*this, "txtOI"};
  TextBox txtOIS{*this, "txtOIS"};
  Label lblSteuer{*this, "lblSteuer"};
  TextBox txtSteuer{*this, "txtSteuer"};
  TextBox txtSteuerS{*this, "txtSteuerS"};
  Label lblSteuerHinweis{*this, "lblSteuerHinweis"};

  Frame frmKennzahlen{*this, "frmKennzahlen"};
  Label lblAbschreibungssatz{*this, "lblAbschreibungssatz"};
  TextBox txtAbschreibungssatz{*this, "txtAbschreibungssatz"};
  Label lblMaschinenwert{*this, "lblMaschinenwert"};
  TextBox txtMaschinenwert{*this, "txtMaschinenwert"};
  Label lblBetriebskosten{*this, "lblBetriebskosten"};
  TextBox txtBetriebskosten{*this, "txtBetriebskosten"};

  DataGrid DataLebenslauf{*this, "DataLebenslauf"};
  Button cmdSpeichern{*this, "cmdSpeichern"};
  Button cmdSchliesen{*this, "cmdSchliesen"};

  // In the order of the sums.
  std::array<CostLine, 7> lines_;
  RowList life_{*this, loading_, {.data = Data1, .grid = DataLebenslauf}};
};

}  // namespace tarvoni
