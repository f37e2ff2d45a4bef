#include "suite/journal_paper.h"

#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "src/context/values/call_error.h"
#include "src/context/values/date_text.h"
#include "suite/month_summary.h"
#include "suite/paper_sums.h"
#include "suite/paper_texts.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

using Table = PrintDocument::Table;
using Row = PrintDocument::Row;
using RowKind = PrintDocument::RowKind;

constexpr const char* kAmount = "0.00";

PrintDocument::Column Amount(const char* caption) {
  return {caption, Alignment::kRight, kAmount};
}

std::string MonthText(std::int32_t year, std::int32_t month) {
  return month == 0 ? "" : MonthName(month, CurrentLocale()) + " " + std::to_string(year);
}

// The full name is NULL as soon as a part of it is missing; then the short one stands for it.
std::string WorkerOf(const FieldList& row) {
  const bool named = !IsNull(row["ARBEITER"].Value());
  return NumberAndName(row, "ARBEITERNUMMER", named ? "ARBEITER" : "ARBEITERKURZBEZEICHNUNG");
}

// What the paper is made of.
struct Month {
  std::vector<MonthLine> hours;
  std::vector<MonthLine> own = {};
  bool with_percentage = false;
};

Table LinesTable(Recordset rows, Month& month) {
  Table table{.heading = "Zeilen des Journals",
              .columns = {{"Tag"},
                          {"Lohnart"},
                          {"Bezeichnung"},
                          Amount("Menge"),
                          {"Einheit"},
                          Amount("Satz"),
                          Amount("Prozent"),
                          Amount("Betrag"),
                          {"Auszahlung"},
                          {"Kostenstelle"},
                          {"Produktauftrag"},
                          {"Leistungsart"},
                          {"Verfahren"},
                          {"Objekt"}}};
  constexpr std::size_t kBetrag = 7;
  PaperSums sums;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList field = rows.Fields();
    if (IsNull(field["ID"].Value())) continue;
    const MonthLine& line = month.own.emplace_back(LineOf(field, field["SATZ"].Value()));
    month.with_percentage = month.with_percentage || !IsNull(field["PROZENTSATZ"].Value());
    sums.Add(kBetrag, line.amount);
    table.rows.push_back({{line.day, line.wage_type, line.wage_type_name, line.quantity, line.unit, line.rate,
                           field["PROZENTSATZ"].Value(), line.amount,
                           ShortMonth(field, "MONTHAUSZAHLUNGSMONAT", "YEARAUSZAHLUNGSMONAT"),
                           NumberAndName(field, "KOSTENSTELLENUMBER", "KOSTENSTELLENAME"), line.product_order,
                           NumberAndName(field, "LEISTUNGSARTNUMBER", "LEISTUNGSARTNAME"),
                           field["VERFAHRENNUMBER"].Value(), field["OBJEKTNUMBER"].Value()}});
  }
  table.rows.push_back(sums.AsRow("Summe", RowKind::kTotal));
  return table;
}

constexpr std::size_t kSummaryAmount = 5;

void AddPart(Table& table, const char* heading, const std::vector<MonthLine>& lines, PaperSums& total) {
  if (lines.empty()) return;
  table.rows.push_back({{std::string(heading)}, RowKind::kGroup});
  PaperSums sums;
  for (const MonthLine& line : lines) {
    sums.Add(kSummaryAmount, line.amount);
    total.Add(kSummaryAmount, line.amount);
    table.rows.push_back({{line.wage_type, line.wage_type_name, line.quantity, line.unit, line.rate,
                           line.amount, line.product_order, line.wage_order, line.day, line.location}});
  }
  table.rows.push_back(sums.AsRow("Summe", RowKind::kSum));
}

Table SummaryTable(const Month& month) {
  Table table{.heading = "Monatsübersicht",
              .columns = {{"Lohnart"},
                          {"Bezeichnung"},
                          Amount("Wert"),
                          {"Einheit"},
                          Amount("Satz"),
                          Amount("Betrag"),
                          {"PA-Nr"},
                          {"ARA Nr."},
                          {"Verlohn."},
                          {"Waldort"}}};
  PaperSums total;
  AddPart(table, "Stunden auf Arbeitsaufträgen", month.hours, total);
  AddPart(table, "Zeilen des Journals", month.own, total);
  total.Add(kSummaryAmount, Null{});
  table.rows.push_back(total.AsRow("Gesamtsumme", RowKind::kTotal));
  return table;
}

// What one wage type brings: on wage orders, in the journal, and both.
struct TypeSums {
  Value number, name, unit;
  PaperSums sums;
};
enum TypeColumn : std::size_t { kQuantity = 2, kOnOrders = 4, kInJournal = 5, kInAll = 6 };

Table WageTypesTable(const Month& month) {
  Table table{.heading = "Summen nach Lohnart",
              .columns = {{"Lohnart"},
                          {"Bezeichnung"},
                          Amount("Menge"),
                          {"Einheit"},
                          Amount("auf Arbeitsaufträgen"),
                          Amount("im Journal"),
                          Amount("Betrag")}};
  std::map<Decimal, TypeSums> types;
  PaperSums total;
  const auto add = [&](const std::vector<MonthLine>& lines, TypeColumn column) {
    for (const MonthLine& line : lines) {
      TypeSums& type = types[NumberOf(line.wage_type, CurrentLocale()).value_or(Decimal())];
      std::tie(type.number, type.name, type.unit) = std::tie(line.wage_type, line.wage_type_name, line.unit);
      type.sums.Add(kQuantity, line.quantity);
      for (const std::size_t at : {std::size_t{column}, std::size_t{kInAll}}) {
        type.sums.Add(at, line.amount);
        total.Add(at, line.amount);
      }
    }
  };
  add(month.hours, kOnOrders);
  add(month.own, kInJournal);
  for (const auto& [key, type] : types) {
    Row row = type.sums.AsRow("", RowKind::kPlain);
    row.cells.at(0) = type.number;
    row.cells.at(1) = type.name;
    row.cells.at(3) = type.unit;
    table.rows.push_back(std::move(row));
  }
  total.Add(kInAll, Null{});
  table.rows.push_back(total.AsRow("Gesamtsumme", RowKind::kTotal));
  return table;
}

// Hours count though their order was cancelled; whoever checks the month must know of it.
std::string CancelledOrders(const Month& month) {
  std::set<std::string> orders;
  for (const MonthLine& line : month.hours) {
    if (line.cancelled) orders.insert(FieldText(line.wage_order, "", CurrentLocale()));
  }
  std::string told;
  for (const std::string& order : orders) told += (told.empty() ? "" : ", ") + order;
  return told;
}

std::vector<std::string> Remarks(const Month& month) {
  std::vector<std::string> remarks;
  const std::string cancelled = CancelledOrders(month);
  if (!cancelled.empty())
    remarks.push_back("Enthalten sind Stunden auf stornierten Arbeitsaufträgen: " + cancelled + ".");
  int without_amount = 0;
  for (const MonthLine& line : month.own) without_amount += IsNull(line.amount) ? 1 : 0;
  if (without_amount > 0) {
    remarks.push_back(without_amount == 1
                          ? "Eine Zeile hat keinen Satz; ihr Betrag fehlt in den Summen."
                          : std::to_string(without_amount) +
                                " Zeilen haben keinen Satz; ihre Beträge fehlen in den Summen.");
  }
  if (month.with_percentage)
    remarks.emplace_back(
        "Der Betrag ist Menge mal Satz; der Prozentsatz einer Zeile ist darin nicht enthalten.");
  remarks.emplace_back("Summen sind aus den ungerundeten Beträgen gebildet.");
  return remarks;
}

}  // namespace

PrintDocument JournalPaper(const TvnVar_Dll& context, std::int32_t header) {
  const Recordset rows = JournalLines(context, header);
  if (rows.EndOfFile()) throw CallError("Dieses Bruttolohnjournal gibt es nicht mehr.");
  const FieldList first = rows.Fields();
  const std::int32_t year = NumberIn(first["JAHR"].Value()), number = NumberIn(first["MONAT"].Value());
  PrintDocument paper{
      .issuer = NumberAndName(first, "MANDANTENNUMMER", "MANDANTENKURZBEZEICHNUNG"),
      .title = "Bruttolohnjournal",
      .facts = {{"Arbeitnehmer", WorkerOf(first)},
                {"Monat", MonthText(year, number)},
                {"Forstjahr", TextOf(first["FWJ"])},
                {"Lohnabschluss",
                 NumberIn(first["DISABLEBUTTONS"].Value()) == 1 ? "abgeschlossen" : "offen"}},
      .signatures = {"Lohnverrechnung (Datum, Unterschrift)", "Forstbetrieb (Datum, Unterschrift)"},
      .landscape = true};
  Month month{.hours = OrderHours(context, {header, NumberIn(first["ID_MANDANTEN"].Value()), year, number})};
  paper.tables.push_back(LinesTable(rows.Clone(), month));
  paper.tables.push_back(SummaryTable(month));
  paper.tables.push_back(WageTypesTable(month));
  paper.remarks = Remarks(month);
  return paper;
}

}  // namespace tarvoni::suite
