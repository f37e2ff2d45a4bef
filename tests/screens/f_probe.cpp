#include "tests/screens/f_probe.h"

#include "src/context/data/statement.h"

namespace tarvoni::test {

std::string RecentUnit::NewestUnit(Connection& connection) {
  return ReadText(connection, "SELECT TOP 1 NAME FROM EINHEIT ORDER BY ID DESC");
}

F_Probe::F_Probe() : Screen("F_Probe") {
  units_.Connect([this] { ShowUnit(); },
                 [] {
                   return std::vector<ShownColumn>{{.data_field = "NAME", .caption = "Einheit"},
                                                   AmountColumn(2, "Lohnarten", 900, "0")};
                 });
  work_types_.Connect([this] { ShowWorkType(); },
                      [] { return std::vector<ShownColumn>{{.data_field = "NUMBER", .caption = "Nummer"}}; });
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtDatum).Date(date_);
  KeepLayout(MSFlexGrid1, "F_PROBE_MSFG");
  btnFuellen.Click = [this] { FillMonths(); };
  btnFind.Click = [this] {
    if (!work_types_.Find("NUMBER", txtEinheit.Text())) txtEinheit.SetText("nicht gefunden");
  };
  btnFrage.Click = [this] { lblNeueste.SetCaption(Neighbour<UnitQuestion>().NewestUnit(Db())); };
  CloseBy(btnOk);
}

void F_Probe::Run(const TvnVar_Dll& tvnvar) {
  Present(tvnvar, [this] {
    for (const char* currency : {"EUR", "CZK"}) txtValuta.AddItem(currency);
    units_.Load(R"(
SELECT ID, NAME, (SELECT COUNT(*) FROM LOHNARTEN WHERE LOHNARTEN.EINHEIT = EINHEIT.ID)
FROM EINHEIT
ORDER BY ID)");
    work_types_.Load("SELECT ID, NUMBER, FLACHE FROM LEISTUNGSART ORDER BY ID");
    FillMonths();
    ShowUnit();
    ShowWorkType();
  });
}

layout::Node F_Probe::BuildLayout() {
  using namespace layout;
  SetCaption("Probe");
  return Stack(Side(Table(DataGrid1), Table(DataGridKLR)),
               Group(frmWerte, "Werte", Row(lblEinheit, "Einheit", Box(txtEinheit, 20), Shown(txtAnzahl, 6)),
                     Row("Basis", Option(optMenge, "pro Menge"), Option(optHa, "pro ha")),
                     Row(lblDatum, "Datum", Box(txtDatum, 12)),
                     Row("Währung", Box(txtValuta, 6), Text(lblNeueste, ""))),
               Table(MSFlexGrid1, 3),
               Bar(Push(btnFuellen, "&Füllen"), Push(btnFind, "&Suchen"), Push(btnFrage, "F&rage"), Gap(),
                   Push(btnOk, "S&chließen")),
               Hidden({&Data1, &AdodcKLR}));
}

void F_Probe::ShowUnit() {
  const CurrentRow row = units_.Row();
  row.Show("NAME", txtEinheit);
  row.Show(2, txtAnzahl);
}

void F_Probe::ShowWorkType() {
  const bool per_hectare = work_types_.Row().Flag("FLACHE");
  (per_hectare ? optHa : optMenge).SetValue(true);
  SetTextBoxLocked(per_hectare, txtValuta);
}

void F_Probe::FillMonths() {
  MSFlexGrid1.SetCols(2);
  MSFlexGrid1.SetRows(1);
  MSFlexGrid1.SetTextMatrix(0, 0, "Monat");
  MSFlexGrid1.SetTextMatrix(0, 1, "Stunden");
  for (const char* month : {"Januar", "Februar"}) MSFlexGrid1.AddItem({month, "8"});
}

}  // namespace tarvoni::test
