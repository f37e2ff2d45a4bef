#include "src/piecework/f_naturalvollzug.h"

#include "src/common/box_rules.h"
#include "src/common/view_switch.h"
#include "src/context/data/statement.h"
#include "src/piecework/f_naturalvollzug_sql.h"

namespace tarvoni {

namespace sql = naturalvollzug_sql;

namespace {

// ID_WALDORT, then the six levels, of which empty ones leave no gap.
std::string PathOf(const FieldList& row) {
  std::string path = ToText(row[1].Value());
  for (int level = 2; level <= 6; ++level) {
    const std::string part = ToText(row[level].Value());
    if (!part.empty()) path += "/ " + part;
  }
  return path;
}

}  // namespace

F_Naturalvollzug::F_Naturalvollzug()
    : Screen("F_Naturalvollzug"),
      natural_(*this, Context(), IsLoading,
               {.height_box = "txtAsungshohe",
                .add_button = "btnAddWaldort",
                .remove_button = "btnDeleteWaldort",
                .activity = [this] { return intLeistungsart; },
                .stand_types = sql::StandTypes}) {
  ConnectBoxes(*this, NextOpenBoxOnEnter(*this));
  btnBearbeiten.Click = [this] { StartEditing(); };
  btnSpeichern.Click = [this] { Save(); };
  btnAbbrechen.Click = [this] {
    LoadNatural();
    SetViewState(true);
  };
  btnAbbrechen.SetCausesValidation(false);
  CloseBy(btnClose);
}

void F_Naturalvollzug::Run(const TvnVar_Dll& tvnvar, const std::string& /*strConString_dll*/,
                           bool bolOnlyRead_dll, std::int32_t ID_ARBEITSAUFTRAG_DLL,
                           std::int16_t intLeistungsart_Dll) {
  bolOnlyRead = bolOnlyRead_dll;
  ID_ARBEITSAUFTRAG = ID_ARBEITSAUFTRAG_DLL;
  intLeistungsart = Id(intLeistungsart_Dll);
  Present(tvnvar, [this] {
    LoadNatural();
    SetViewState(true);
  });
}

bool F_Naturalvollzug::EnableForm(std::int16_t intLeistungsart, Connection& dbAdo) {
  return ToFlag(ReadValue(dbAdo, sql::HasNatural(intLeistungsart)));
}

void F_Naturalvollzug::LoadNatural() {
  const auto hold = IsLoading.Hold();
  const Recordset rows = Open(sql::NaturalOfPosition(ID_ARBEITSAUFTRAG, intLeistungsart));
  const CurrentRow row(rows);
  row.Show("NA", natural_.txtNutzungsart[0]);
  row.Show("NA_LANG", natural_.txtNutzungsart[1]);
  row.Show("NUMBER", natural_.txtBestandeszieltyp[0]);
  row.Show("BZT_LANG", natural_.txtBestandeszieltyp[1]);
  natural_.ShowData(row);
  NaturalRowId = row.Number("ID");
  natural_.txtNutzungsart[0].LostFocus();
  natural_.locations.Clear();
  if (NaturalRowId != 0) AddLocations(sql::LocationsOfRow(NaturalRowId));
}

void F_Naturalvollzug::AddLocations(const SqlText& statement) {
  for (Recordset rows = Open(statement); !rows.EndOfFile(); rows.MoveNext()) {
    natural_.locations.Add(ToLong(rows.Fields()[0].Value()), PathOf(rows.Fields()));
  }
}

void F_Naturalvollzug::SetViewState(bool view) {
  ViewSwitch({&btnClose}, {&btnSpeichern, &btnAbbrechen, &frmNaturallvollzug, &frmWaldort}).Set(view);
  btnBearbeiten.SetEnabled(view && !bolOnlyRead);
}

// The first permitted mark and the position's own location are proposed where there is no row yet.
void F_Naturalvollzug::StartEditing() {
  if (NaturalRowId == 0) {
    const Recordset first = Open(sql::FirstMark(intLeistungsart));
    natural_.Propose(CurrentRow(first).Text("NA"));
    AddLocations(sql::LocationOfPosition(ID_ARBEITSAUFTRAG));
  }
  SetViewState(false);
  SafeSetFocus(natural_.txtNutzungsart[0]);
}

// --- saving ---

void F_Naturalvollzug::Save() {
  if (!Require(natural_.locations.NoneBeneathAnother(Db()), natural_.lblWaldort, natural_.ListWaldort))
    return;
  NaturalEntry::RequireStill(NaturalRowId, Open(natural_sql::RowsOfPosition(ID_ARBEITSAUFTRAG)));
  NaturalRowId = Committed([this] { return Write(); });
  btnAbbrechen.Press();
}

// Gives the row's id, 0 for none. Without a mark there is no row, and what else was entered goes.
std::int32_t F_Naturalvollzug::Write() const {
  const Recordset codes = Open(sql::ResolveCodes(natural_.txtBestandeszieltyp[0].Text(),
                                                 natural_.txtNutzungsart[0].Text(), intLeistungsart));
  const std::int32_t stand_type = ToLong(codes.Fields()[0].Value()), mark = ToLong(codes.Fields()[1].Value());
  if (mark == 0) {
    if (NaturalRowId == 0) return 0;
    Execute(natural_sql::DeleteLocations(NaturalRowId));
    ExecuteOnRow(natural_sql::DeleteRow(NaturalRowId));
    return 0;
  }
  natural_sql::Values values = natural_.Values();
  values.mark = IdOrNull(mark);
  values.stand_type = IdOrNull(stand_type);
  if (NaturalRowId == 0) return Insert(values);
  ExecuteOnRow(sql::Update(NaturalRowId, ID_ARBEITSAUFTRAG, values));
  WriteLocations(NaturalRowId);
  return NaturalRowId;
}

std::int32_t F_Naturalvollzug::Insert(const natural_sql::Values& values) const {
  Execute(sql::Insert(ID_ARBEITSAUFTRAG, values));
  const std::int32_t id = ReadNumber("SELECT IDENT_CURRENT('NATURALVOLLZUG_KLR')");
  OrUndo([&] { WriteLocations(id); }, natural_sql::Delete(id));
  return id;
}

void F_Naturalvollzug::WriteLocations(std::int32_t id) const {
  const auto locations = natural_.locations.Ids();
  Execute(natural_sql::DeleteOtherLocations(id, locations));
  for (const std::int32_t location : locations) {
    if (Execute(sql::TouchLocation(id, location)) == 0) Execute(natural_sql::InsertLocation(id, location));
  }
}

}  // namespace tarvoni
