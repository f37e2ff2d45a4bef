#pragma once

#include <memory>
#include <string>
#include <vector>

#include "src/context/controls/form.h"
#include "src/context/controls/multi_list_box.h"
#include "src/context/services/environment.h"
#include "tests/support/events.h"
#include "tests/support/fake_connection.h"

namespace tarvoni::test {

// A Screen with a control of every kind that writes down its events.
struct ProbeForm : Form {
  ProbeForm() : Form("F_Probe") {}

  layout::Node BuildLayout() override {
    using namespace layout;
    SetCaption("Arbeitsaufträge");
    return Stack(
        Table(DataGrid1),
        Side(Group(
                 frmKopf, "Auftrag",
                 Row(lblKostenstelle, "&Kostenstelle", Box(txtKostenstelle[0], 8), Shown(txtKostenstelle[1])),
                 Row(lblLohnart, "Leistungsart und Produkt", Box(txtLohnart, 5), Box(lblLohnartName)),
                 Row("Menge", Box(txtMenge, 10), Text("fm"), Box(cboEinheit, 8)),
                 Row("Bezeichnung", Box(txtName)), Row("Datum", Box(dtpDatum)),
                 Group(frmText, "Begründung", Lines(txtText, 3))),
             Stack(Group(frmArt, "Art", Option(optZeit, "Zeitlohn"), Option(optStuck, "Stücklohn"),
                         Check(chkFertig, "abgeschlossen")),
                   Group(frmAuswahl, "Auswahl", List(lstAuswahl, 4)))),
        Tabs(tabSeiten,
             Page("Kosten", Matrix({"", "Kostenart", "Betrag", ""},
                                   Row(lblSteuer, "Steuer", Box(txtSteuer, 8), Box(txtSteuerBetrag, 10),
                                       Box(lblSteuerName)),
                                   Row(lblZins, "Verzinsung", Box(txtZins, 8), Box(txtZinsBetrag, 10),
                                       Box(lblZinsName)))),
             Page("Übersicht", Table(FlexGrid1, 3))),
        Bar(Push(btnNeu, "&Neu"), Push(btnBearbeiten, "&Bearbeiten"), Push(btnLoschen, "&Löschen"), Gap(),
            Push(btnSpeichern, "&Speichern"), Push(btnClose, "S&chließen")),
        Hidden({&Data1, &Timer1}));
  }

  void Form_Load() override {
    for (Control* control : Controls()) {
      const std::string name = control->FullName();
      const auto write = [this, name](const char* what) {
        return [this, name, what] { log.push_back(std::string(what) + " " + name); };
      };
      Replace(control->GotFocus, write("got"));
      Replace(control->LostFocus, write("lost"));
      Replace(control->Validate, [write](bool&) { write("validate")(); });
      Replace(control->Change, write("change"));
      Replace(control->Click, write("click"));
      Replace(control->DblClick, write("doubleclick"));
      Replace(control->MouseDown, [write](int) { write("mousedown")(); });
      Replace(control->KeyPress,
              [this, name](int& key) { log.push_back("press " + name + " " + std::to_string(key)); });
    }
    Replace(txtKostenstelle[0].KeyDown, [this](int key, int) {
      if (key == kKeyCtrl) log.emplace_back("lookup txtKostenstelle(0)");
    });
    Replace(Form_Unload, [this](bool& refused) {
      log.emplace_back("unload");
      refused = veto;
    });
    Replace(btnClose.Click, [this] { Unload(); });
  }

  // Fills lists and grids.
  void Fill(const std::shared_ptr<FakeConnection>& db) {
    db->Answer("LIST",
               Rows({Whole("ID"), Chars("NAME"), {.name = "WERT", .type = FieldType::kDouble, .size = 0}},
                    {std::int64_t{1}, std::string("Buche"), 1.5, std::int64_t{2}, std::string("Fichte"),
                     20.25, std::int64_t{3}, std::string("Ahorn"), Null{}}));
    Data1.SetConnectionString(db->ConnectionString());
    Data1.SetRecordSource("LIST");
    DataGrid1.Bind(Data1);
    Data1.Refresh();
    DataGrid1.Columns()["ID"].SetVisible(false);
    DataGrid1.Columns()["NAME"].SetWidth(3000);
    DataGrid1.Columns()["WERT"].SetNumberFormat("0.00");
    DataGrid1.Columns()["WERT"].SetAlignment(Alignment::kRight);
    FlexGrid1.SetCols(2);
    FlexGrid1.SetTextMatrix(0, 0, "Monat");
    FlexGrid1.SetTextMatrix(0, 1, "Stunden");
    FlexGrid1.AddItem({"Jänner", "160"});
    FlexGrid1.AddItem({"Februar", "152"});
    for (const char* unit : {"fm", "rm", "Stück"}) cboEinheit.AddItem(unit);
    for (const char* item : {"Buche", "Fichte", "Tanne"}) lstAuswahl.AddItem(item);
    log.clear();
  }

  bool veto = false;
  std::vector<std::string> log;
  DataControl Data1{*this, "Data1"};
  Timer Timer1{*this, "Timer1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  FlexGrid FlexGrid1{*this, "FlexGrid1"};
  Frame frmKopf{*this, "frmKopf"};
  Frame frmText{*this, "frmText"};
  Frame frmArt{*this, "frmArt"};
  Frame frmAuswahl{*this, "frmAuswahl"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  Label lblLohnart{*this, "lblLohnart"};
  Label lblLohnartName{*this, "lblLohnartName"};
  Label lblSteuer{*this, "lblSteuer"};
  Label lblSteuerName{*this, "lblSteuerName"};
  Label lblZins{*this, "lblZins"};
  Label lblZinsName{*this, "lblZinsName"};
  ControlArray<TextBox, 2> txtKostenstelle{*this, "txtKostenstelle"};
  TextBox txtLohnart{*this, "txtLohnart"};
  TextBox txtMenge{*this, "txtMenge"};
  TextBox txtName{*this, "txtName"};
  TextBox txtText{*this, "txtText"};
  TextBox txtSteuer{*this, "txtSteuer"};
  TextBox txtSteuerBetrag{*this, "txtSteuerBetrag"};
  TextBox txtZins{*this, "txtZins"};
  TextBox txtZinsBetrag{*this, "txtZinsBetrag"};
  ComboBox cboEinheit{*this, "cboEinheit"};
  DateControl dtpDatum{*this, "dtpDatum"};
  OptionButton optZeit{*this, "optZeit"};
  OptionButton optStuck{*this, "optStuck"};
  CheckBox chkFertig{*this, "chkFertig"};
  MultiListBox lstAuswahl{*this, "lstAuswahl"};
  TabControl tabSeiten{*this, "tabSeiten"};
  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnClose{*this, "btnClose"};
};

}  // namespace tarvoni::test
