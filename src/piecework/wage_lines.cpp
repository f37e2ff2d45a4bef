#include "src/piecework/wage_lines.h"

#include <algorithm>

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/piecework/wage_lines_sql.h"

namespace tarvoni {

WageLines::WageLines(const Names& names)
    : Screen(names.form),
      AdodcLines(*this, names.data),
      DataGridLines(*this, names.grid),
      txtMengeeinheit(*this, names.unit),
      lines_(*this, IsLoading, {.data = AdodcLines, .grid = DataGridLines, .layout_key = names.layout_key}),
      caption_(names.caption) {
  lines_.Connect([this] { ShowCurrentLine(); }, [this] { return Columns(); }, &btnBearbeiten);
  Rules(txtHolzart[0]).Code(species_);
  Rules(txtFlache).Number("-####0.00");
  Rules(txtMenge).Number("-####0.00");
  btnSpeichern.Click = [this] { entry_.Save(); };
  btnLoschen.Click = [this] { entry_.Delete(wage_lines_sql::DeleteLine); };
  CloseBy(btnClose);
}

void WageLines::Run(const TvnVar_Dll& tvnvar, std::int32_t client, std::int32_t order) {
  ID_Mandant_dll = client;
  ID_ARA_Kopf_dll = order;
  Present(tvnvar, [this] {
    CurrentLineId = 0;
    chkARAUntypisch.SetVisible(OptionNumber("ARAUNTYPISCH") != 1);
    ReloadAndReposition();
    SetCaption(Message(caption_) + " (" + Line().Text("NAME") + ")");
  });
}

CodeField::Rule WageLines::SpeciesRule() {
  return NamedCode(Context(), txtHolzart[0], lblHolzart, "HOLZART_LEISTUNGSART", "HA_LANG",
                   [this] { return NamedValues{Given(Activity().Text())}; });
}

// 0 for an order without a performance type.
SqlText WageLines::Activity() const {
  return Compose("0{}", Digits(Line().Text("LEISTUNGSART_ID")));
}

// --- the list ---

void WageLines::ReloadAndReposition() {
  lines_.Load(Lines());
  if (CurrentLineId == 0) CurrentLineId = lines_.CurrentId();
  const auto hold = IsLoading.Hold();
  if (CurrentLineId != 0) lines_.Find(CurrentLineId);
  ShowCurrentLine();
}

std::vector<ShownColumn> WageLines::Columns() const {
  std::vector<ShownColumn> columns = FurtherColumns();
  columns.insert(
      columns.end(),
      {AmountColumn("FLACHE", lblFlache.Caption(), 1100),
       QuantityColumn("MENGEKLR", "WARENEINHEITEINHEIT", lblMengeKLR.Caption(), 1300),
       {.data_field = "WARENEINHEITEINHEIT", .caption = Message(message::kUnit), .width = 900},
       {.data_field = "NUTZUNGSARTNA", .caption = natural_.lblNutzungsart.Caption(), .width = 1500},
       {.data_field = "BZTNUMBER", .caption = natural_.lblBestandeszieltyp.Caption(), .width = 1800},
       {.data_field = "ASTH", .caption = natural_.lblAstungshohe.Caption(), .width = 1400},
       {.data_field = "ZAUNBAU", .caption = natural_.chkZaunbau.Caption(), .width = 1100}});
  return columns;
}

void WageLines::ShowCurrentLine() {
  const auto hold = IsLoading.Hold();
  const CurrentRow row = Line();
  ShowOrder(row);
  chkARAUntypisch.SetChecked(row.Flag("UNTYPISCH"));
  chkWerkzeuggeld.SetChecked(row.Flag("WERKZEUGGELD"));
  row.ShowCode("ID_HOLZART", "HOLZARTHA", "HOLZARTHALANG", txtHolzart);
  row.Show("FLACHE", txtFlache, "0.00");
  row.Show("MENGEKLR", txtMenge, "0.00");
  row.Show("WARENEINHEITEINHEIT", txtMengeeinheit[0]);
  row.Show("WARENEINHEITBESCHREIBUNG", txtMengeeinheit[1]);
  ShowFurther(row);
  row.ShowCode("ID_VM", "NUTZUNGSARTNA", "NUTZUNGSARTNA_LANG", natural_.txtNutzungsart);
  row.ShowCode("ID_BZT", "BZTNUMBER", "BZTBZT_LANG", natural_.txtBestandeszieltyp);
  natural_.ShowData(row);
  CurrentLineId = row.Number("ID");
  NameSubject(CurrentLineId == 0 ? "" : LineShown());
  ShowLocations(row);
  natural_.ApplyExecutionMarkRules();
  SetViewState(true);
}

// A line has no number: it is known by its kind of timber or work and by how much there is of it.
std::string WageLines::LineShown() const {
  const TextBox& kind = txtHolzart[0].Empty() ? natural_.txtNutzungsart[0] : txtHolzart[0];
  std::string line = "Zeile" + (kind.Empty() ? "" : " " + kind.Text());
  if (!txtFlache.Empty()) line += ", " + lblFlache.Caption() + " " + txtFlache.Text();
  if (!txtMenge.Empty()) line += ", " + lblMengeKLR.Caption() + " " + txtMenge.Text();
  return line;
}

// The order is told by the Screen below, if there is one.
void WageLines::NameSubject(const std::string& line) {
  const std::string order = "Auftrag " + Line().Text("NAME");
  const bool told = std::ranges::any_of(CurrentToolkit().OpenForms(), [&](const Form* form) {
    return form != this && form->Subject().find(order) != std::string::npos;
  });
  SetSubject(told ? line : order + (line.empty() ? "" : ", " + line));
}

void WageLines::ShowLocations(const CurrentRow& row) {
  natural_.locations.Clear();
  for (Recordset rows = Open(natural_sql::Locations(row.Text("ID_KLR"))); !rows.EndOfFile();
       rows.MoveNext()) {
    natural_.locations.Add(ToLong(rows.Fields()["ID_WALDORT"].Value()),
                           ToText(rows.Fields()["WALDORT"].Value()));
  }
}

// --- a new line ---

RowEntry::Steps WageLines::EntrySteps() {
  return {.set_view = [this](bool view) { SetViewState(view); },
          .fill = [this]() -> Control& {
            PrepareNewLine();
            return FirstBox();
          },
          .first = [this]() -> Control& { return FirstBox(); },
          .save = [this] { return Save(); },
          .reload = [this] { ReloadAndReposition(); }};
}

// The first permitted mark and the order's own location are proposed; what goes with the mark stays from the line
// before.
void WageLines::PrepareNewLine() {
  NameSubject("neue Zeile");
  species_.Clear();
  txtFlache.SetText("");
  txtMenge.SetText("");
  ClearFurther();
  natural_.Propose(
      ReadText(GetNamedSql(Context(), "NUTZUNGSART_LEISTUNGSART_GRID", {Given(Activity().Text())})));
  natural_.locations.Clear();
  const CurrentRow row = Line();
  if (natural_.txtNutzungsart[0].Empty() || row.IsNull("ID_WALDORT")) return;
  natural_.locations.Add(row.Number("ID_WALDORT"), row.Text("WALDORT"));
}

// --- saving ---

std::optional<std::int32_t> WageLines::Save() {
  if (!CheckWaldortList()) return std::nullopt;
  const auto natural =
      frmNaturalvollzug.Enabled() && natural_.HasMark() ? std::optional(natural_.Values()) : std::nullopt;
  if (!CheckLine(natural.has_value())) return std::nullopt;
  TestOrder();
  WriteOrder();
  if (entry_.IsNew()) return SaveNewLine(natural);
  if (HasLine()) {
    ExecuteOnRow(UpdateLine(CurrentLineId));
    StoreNatural(CurrentLineId, Line().Number("ID_KLR"), natural);
  }
  return CurrentLineId;
}

// A changed line has to be as it was read. An order without lines has no place for a natural execution.
bool WageLines::CheckLine(bool with_natural) {
  if (entry_.IsNew()) return true;
  if (!HasLine()) {
    return !with_natural ||
           Refuse("Ein Naturalvollzug gehört zu einer Zeile. Bitte legen Sie zuerst eine neue an.",
                  natural_.txtNutzungsart[0]);
  }
  const Recordset rows = Open(natural_sql::RowsOfLine(CurrentLineId));
  if (rows.EndOfFile()) throw RowGoneError();
  NaturalEntry::RequireStill(Line().Number("ID_KLR"), rows);
  return true;
}

bool WageLines::CheckWaldortList() {
  return Require(natural_.locations.NoneBeneathAnother(Db()), natural_.lblWaldort, natural_.ListWaldort);
}

std::int32_t WageLines::SaveNewLine(const std::optional<natural_sql::Values>& natural) {
  const std::int32_t line = ReadNumber(wage_lines_sql::InsertLine(ID_ARA_Kopf_dll));
  OrUndo(
      [&] {
        ExecuteOnRow(UpdateLine(line));
        StoreNatural(line, 0, natural);
      },
      wage_lines_sql::DeleteLine(line));
  return line;
}

// `id` is that of the line's row so far, 0 for none.
void WageLines::StoreNatural(std::int32_t line, std::int32_t id,
                             const std::optional<natural_sql::Values>& values) {
  if (!values) {
    if (id != 0) Execute(natural_sql::Delete(id));
    return;
  }
  const auto write = [&](std::int32_t row) {
    ExecuteOnRow(natural_sql::Update(row, *values));
    Execute(natural_sql::StoreLocations(row, natural_.locations.Ids()));
  };
  if (id != 0) return write(id);
  const std::int32_t made = ReadNumber(natural_sql::InsertForLine(line));
  OrUndo([&] { write(made); }, natural_sql::Delete(made));
}

}  // namespace tarvoni
