#include "src/machines/f_maschinenbuch.h"

#include "src/common/amount.h"
#include "src/common/box_chain.h"
#include "src/common/column_writer.h"
#include "src/common/month_fields.h"
#include "src/common/number_keys.h"
#include "src/context/data/database_error.h"
#include "src/context/values/call_error.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/machines/f_maschinenbuch_sql.h"

namespace tarvoni {

namespace sql = maschinenbuch_sql;

namespace {

constexpr std::int32_t kNoObject = -1;
constexpr int kDuplicateKey = 2627;  // a server's number
constexpr int kDigitsOfYear = 4;
constexpr int kLongestNumber = 15;

// A text of blanks alone is none.
std::string TextOf(const TextBox& box) {
  return utf8::Trim(box.Text()).empty() ? std::string() : box.Text();
}

Decimal Plus(const Decimal& a, const Decimal& b) {
  return Add(a, b).value();
}

}  // namespace

F_Maschinenbuch::F_Maschinenbuch()
    : Screen("F_Maschinenbuch"),
      lines_{{{"ANS", txtAnschaff, txtAnschaffS, false},
              {"ABS", txtAbschreib, txtAbschreibS, true},
              {"EIG", txtEigeneWA, txtEigeneWAS, true},
              {"UNT", txtUnternehmen, txtUnternehmenS, true},
              {"VK", txtVK, txtVKS, true},
              {"OI", txtOI, txtOIS, true},
              {"STE", txtSteuer, txtSteuerS, false}}} {
  life_.Connect([] {}, [this] { return LifeColumns(); });
  ConnectFields();
  cmdSpeichern.Click = [this] { Save(); };
  CloseBy(cmdSchliesen);
  cmdSchliesen.SetCausesValidation(false);
}

void F_Maschinenbuch::Run(std::int32_t intNummer_dll_given, bool bolNew_given, const TvnVar_Dll& tvnvar) {
  intNummer_dll = intNummer_dll_given;
  bolNew = bolNew_given;
  Present(tvnvar, [this] {
    const auto hold = loading_.Hold();
    Empty();
    FillObjects();
    if (!bolNew) LoadMachine();
    ShowObject();
    txtNummer.SetText(std::to_string(intNummer_dll));
    SetSubject("Maschine " + txtNummer.Text() + (txtBezeichnung.Empty() ? "" : ", " + txtBezeichnung.Text()));
  });
}

// --- fields ---

void F_Maschinenbuch::ConnectFields() {
  PlainNumberKeys(txtAnschaffjahr, Entry::kWhole);
  txtAnschaffjahr.SetMaxLength(kDigitsOfYear);
  for (TextBox* box : {&txtNutzungs, &txtMaschinenstunden, &txtAnschaffS, &txtSteuerS}) {
    PlainNumberKeys(*box, Entry::kDecimal);
    box->SetMaxLength(kLongestNumber);
  }
  ConnectChain({&txtBezeichnung, &txtAnschaffjahr, &txtNutzungs, &txtFahrgestellnumer, &txtPolizeiliches,
                &txtObjektN, &txtMaschinenstunden, &txtAnschaffS, &txtSteuerS, &cmdSpeichern});
  txtObjektN.Click = [this] {
    if (!loading_) ShowObject();
  };
  txtObjektN.KeyDown = [this](int key, int) {
    if (key == kKeyDelete) txtObjektN.SetListIndex(-1);
  };
  txtNutzungs.LostFocus = [this] {
    ShowAsNumber(txtNutzungs);
    ShowDerived();
  };
  TakesYear(txtAnschaffjahr);
  txtAnschaffS.LostFocus = [this] { ShowSums(); };
  txtSteuerS.LostFocus = [this] { ShowSums(); };
}

// A call that failed may have left something.
void F_Maschinenbuch::Empty() {
  for (TextBox* box : {&txtBezeichnung, &txtAnschaffjahr, &txtNutzungs, &txtFahrgestellnumer,
                       &txtPolizeiliches, &txtMaschinenstunden, &txtAnschaffS, &txtSteuerS}) {
    box->SetText("");
  }
}

void F_Maschinenbuch::FillObjects() {
  txtObjektN.Clear();
  for (Recordset objects = Open(sql::Objects()); !objects.EndOfFile(); objects.MoveNext()) {
    const FieldList object = objects.Fields();
    txtObjektN.AddItem(ToText(object["NUMBER"].Value()), ToLong(object["ID"].Value()));
  }
}

void F_Maschinenbuch::LoadMachine() {
  const auto text = [this](const char* column) { return ReadText(sql::MasterColumn(column, intNummer_dll)); };
  txtBezeichnung.SetText(text("BEZEICHNUNG"));
  txtAnschaffjahr.SetText(text("ANSCHAFF_JAHR"));
  txtNutzungs.SetText(text("NUTZUNGSDAUER"));
  if (!txtNutzungs.Empty()) ShowAsNumber(txtNutzungs);
  txtFahrgestellnumer.SetText(text("FAHRGEST_NUM"));
  txtPolizeiliches.SetText(text("POLIZ_KENNZ"));
  const Value object = CurrentSuite().NamedFields().ReadColumn(
      Context(), sql::MasterColumn("OBJEKT_ID", intNummer_dll), "OBJEKT_ID");
  FindComboItemData(txtObjektN, ToLong(object));
}

std::int32_t F_Maschinenbuch::Object() const {
  return txtObjektN.ListIndex() < 0 ? kNoObject : txtObjektN.SelectedData();
}

// --- what was booked on the object ---

void F_Maschinenbuch::ShowObject() {
  txtObjekt.SetText(Object() == kNoObject ? "" : GetNameById("OBJEKT", Object(), Db()));
  ShowLife();
  ShowCostTypes();
  ShowSums();
}

void F_Maschinenbuch::ShowLife() {
  life_.Load(sql::LifeOf(Object()));
}

std::vector<ShownColumn> F_Maschinenbuch::LifeColumns() const {
  return {{.data_field = "NAME", .caption = "Arbeitsauftrag", .width = 2100},
          FigureColumn("ORDERS", "Pos.", 650, "0"),
          {.data_field = "DATUM", .caption = "Datum", .number_format = "dd.mm.yyyy", .width = 1200},
          {.data_field = "KOSTENSTELLE", .caption = "Kostenstelle", .width = 2100},
          {.data_field = "LEISTUNGSART", .caption = "Leistungsart", .width = 2400},
          {.data_field = "KOSTENART", .caption = "Kostenart", .width = 2400},
          AmountColumn("FLAECHE", "Fläche", 900),
          FigureColumn("MENGE", "Menge", 1000),
          FigureColumn("KOSTEN", "Kosten je Einheit", 1620),
          AmountColumn("GESAMT", "Gesamt", 1300)};
}

void F_Maschinenbuch::ShowCostTypes() {
  for (const CostLine& line : lines_) line.numbers.SetText(GetMachineCostTypeNumbers(line.label, Db()));
}

void F_Maschinenbuch::ShowSums() {
  ShowAsNumber(txtAnschaffS);
  ShowAsNumber(txtSteuerS);
  for (const CostLine& line : lines_) {
    if (!line.booked) continue;
    const Value sum = ReadValue(Db(), sql::SumOfGroup(Object(), line.label));
    ShowNumber(line.sum, NumberOf(sum, CurrentLocale()).value_or(Decimal()));
  }
  ShowDerived();
}

// Depreciation a year, what the machine is still worth, and what it costs to run.
void F_Maschinenbuch::ShowDerived() {
  const Decimal bought = NumberOrZero(txtAnschaffS);
  ShowNumber(txtAbschreibungssatz, Quotient(bought, NumberOrZero(txtNutzungs), 2).value_or(Decimal()));
  ShowNumber(txtMaschinenwert, Subtract(bought, NumberOrZero(txtAbschreibS)).value());
  Decimal running;
  for (const TextBox* sum : {&txtEigeneWAS, &txtUnternehmenS, &txtVKS, &txtOIS, &txtSteuerS}) {
    running = Plus(running, NumberOrZero(*sum));
  }
  ShowNumber(txtBetriebskosten, running);
}

// --- saving ---

void F_Maschinenbuch::Save() {
  const Decimal most_years(9'999'999, 0);  // what its column holds
  if (!Require(NumberOrZero(txtNutzungs) <= most_years, lblNutzungs, txtNutzungs)) return;
  Committed([this] {
    if (!bolNew) return WriteFields();
    MakeMachine();
    OrUndo([this] { WriteFields(); }, sql::DeleteMachine(intNummer_dll));
  });
  bolNew = false;
}

// A number that exists already ends the save.
void F_Maschinenbuch::MakeMachine() const {
  try {
    Execute(sql::InsertMachine(intNummer_dll));
  } catch (const DatabaseError& error) {
    if (error.Number() != kDuplicateKey) throw;
    throw CallError("Eine Maschine mit der Nummer " + std::to_string(intNummer_dll) +
                    " gibt es schon. Gespeichert wurde nichts.");
  }
}

void F_Maschinenbuch::WriteFields() const {
  const ColumnWriter machine(Context(), "MASCHINENBUCH", intNummer_dll, "NUMMER");
  machine.Text("BEZEICHNUNG", TextOf(txtBezeichnung));
  machine.Text("FAHRGEST_NUM", TextOf(txtFahrgestellnumer));
  machine.Text("POLIZ_KENNZ", TextOf(txtPolizeiliches));
  machine.Number("ANSCHAFF_JAHR", txtAnschaffjahr.Text());
  machine.Number("NUTZUNGSDAUER", txtNutzungs.Text());
  machine.Number("OBJEKT_ID", Object() == kNoObject ? 0 : Object());
}

}  // namespace tarvoni
