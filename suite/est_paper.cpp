#include "suite/est_paper.h"

#include <map>
#include <set>
#include <utility>

#include "src/context/data/statement.h"
#include "src/context/rules/est_pricing.h"
#include "src/context/values/call_error.h"
#include "suite/paper_sums.h"
#include "suite/paper_texts.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

using Table = PrintDocument::Table;
using Row = PrintDocument::Row;
using RowKind = PrintDocument::RowKind;

SqlText HeadOfOrder(std::int32_t order) {
  return Compose(R"(
SELECT ARA_KOPF.NAME,ARA_KOPF.ABRECHNUNGSMONAT,ARA_KOPF.ABRECHNUNGSJAHR,
  PERSONAL.NUMMER AS MANDANTENNUMMER,PERSONAL.KURZBEZEICHNUNG AS MANDANTENKURZBEZEICHNUNG,
  KOSTENSTELLE.NUMBER AS KOSTENSTELLENUMBER,KOSTENSTELLE.NAME AS KOSTENSTELLENAME,
  LEISTUNGSART.NUMBER AS LEISTUNGSARTNUMBER,LEISTUNGSART.NAME AS LEISTUNGSARTNAME,
  ARBEITSAUFTRAG_KOPF.NAME AS ARBEITSAUFTRAG_KOPFNAME
FROM ARA_KOPF
LEFT JOIN PERSONAL ON PERSONAL.ID_PERSONAL = ARA_KOPF.PERSONAL_ID
LEFT JOIN ARBEITSAUFTRAG ON ARBEITSAUFTRAG.ID_ARA_KOPF = ARA_KOPF.ID
LEFT JOIN KOSTENSTELLE ON KOSTENSTELLE.ID = ARBEITSAUFTRAG.KOSTENSTELLE_ID
LEFT JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID
LEFT JOIN ARBEITSAUFTRAG_KOPF ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID
WHERE ARA_KOPF.ID = {})",
                 Id(order));
}

SqlText PricedLogs(std::int32_t order, const est_pricing::Groupings& groupings) {
  return Compose(R"(
SELECT LOGS.LISTE,LOGS.ID_LOG,LOGS.BLNR,{} AS HS,{} AS HA,LOGS.MEFVERF,LOGS.RUCKE,LOGS.EST,
  LOGS.STKL,LOGS.LAENGE,LOGS.DURCH,LOGS.STK,LOGS.SPALT,
  {} AS FM,
  {} AS RM,
  TARIFTABELLE.ID AS TARIF,AZ AS TAZ,MZ AS TMZ,
  {} AS AZ,
  {} AS MZ
{}
ORDER BY LOGS.LISTE,LOGS.BLNR,LOGS.ID_LOG,TARIFTABELLE.ID)",
                 est_pricing::GradeGroup(groupings), est_pricing::SpeciesGroup(groupings),
                 est_pricing::SolidVolume(), est_pricing::StackedVolume(), est_pricing::WorkerWage(),
                 est_pricing::MachineWage(), est_pricing::FromLogsOfOrder(order, groupings));
}

// Which of the numbered groupings the suite has set.
std::int32_t Grouping(const TvnVar_Dll& context, std::string_view option) {
  const Recordset rows = DatabaseOf(context).Open(
      Compose("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = '{}'", Quoted(option)));
  const std::int32_t grouping = rows.EndOfFile() ? 0 : NumberIn(rows.Fields()[0].Value());
  if (grouping > 0) return grouping;
  throw CallError("Die Option " + std::string(option) +
                  " nennt keine Gruppierung der Hölzer; ohne sie gibt es keinen EST-Tarif.");
}

// --- the rows ---

struct LogColumn {
  const char* field;
  const char* caption;
  const char* format = "";  // of a number
};
constexpr LogColumn kColumns[] = {{"BLNR", "Bloch", "0"},
                                  {"HS", "Sorte"},
                                  {"HA", "Holzart"},
                                  {"MEFVERF", "Rinde"},
                                  {"RUCKE", "Vorl."},
                                  {"EST", "EST"},
                                  {"STKL", "Stkl."},
                                  {"LAENGE", "Länge", "0.00"},
                                  {"DURCH", "DM", "0"},
                                  {"STK", "Stück", "0"},
                                  {"SPALT", "Spalt %", "0.00"},
                                  {"FM", "FM", "0.00"},
                                  {"RM", "RM", "0.00"},
                                  {"TAZ", "T-AZ", "0.00"},
                                  {"TMZ", "T-MZ", "0.00"},
                                  {"AZ", "AZ", "0.00"},
                                  {"MZ", "MZ", "0.00"}};
enum Place : std::size_t {
  kPieces = 9,
  kSolid = 11,
  kStacked = 12,
  kWorker = 15,
  kMachine = 16,
  kWage = 17,
  kNote = 18
};

// A row of the statement: a log with one tariff row, or without.
struct LogRow {
  std::string list;
  std::int32_t log = 0;
  std::int32_t tariff = 0;  // 0 for none
  std::vector<Value> cells = {};
};

// How often a log stands there, and by how many tariff rows.
struct Times {
  int rows = 0;
  std::set<std::int32_t> tariffs;
};

struct PricedOrder {
  std::vector<LogRow> rows;
  std::map<std::int32_t, Times> logs;
};

Value WageOf(const std::vector<Value>& cells) {
  const auto worker = NumberOf(cells[kWorker], CurrentLocale()),
             machine = NumberOf(cells[kMachine], CurrentLocale());
  const auto wage = worker && machine ? Add(*worker, *machine) : std::nullopt;
  return wage ? Value(*wage) : Value(Null{});
}

PricedOrder ReadLogs(const TvnVar_Dll& context, std::int32_t order) {
  const est_pricing::Groupings groupings{.grade = Grouping(context, "STANDARD_HS"),
                                         .species = Grouping(context, "STANDARD_HA")};
  PricedOrder priced;
  for (Recordset rows = DatabaseOf(context).Open(PricedLogs(order, groupings)); !rows.EndOfFile();
       rows.MoveNext()) {
    const FieldList field = rows.Fields();
    if (IsNull(field["ID_LOG"].Value())) continue;
    LogRow row{.list = TextOf(field["LISTE"]),
               .log = NumberIn(field["ID_LOG"].Value()),
               .tariff = NumberIn(field["TARIF"].Value())};
    for (const LogColumn& column : kColumns) row.cells.push_back(field[column.field].Value());
    row.cells.push_back(WageOf(row.cells));
    Times& times = priced.logs[row.log];
    ++times.rows;
    if (row.tariff != 0) times.tariffs.insert(row.tariff);
    priced.rows.push_back(std::move(row));
  }
  return priced;
}

std::string NoteOf(const Times& times) {
  if (times.tariffs.empty()) return "ohne Tarif";
  if (times.tariffs.size() > 1) return "Tarif mehrfach";
  return times.rows > 1 ? "Zuschlag mehrfach" : "";
}

// --- the tables ---

// Where a sum of the logs stands among the sums of the lists.
constexpr std::pair<std::size_t, std::size_t> kListPlaces[] = {{kPieces, 2}, {kSolid, 3},   {kStacked, 4},
                                                               {kWorker, 5}, {kMachine, 6}, {kWage, 7}};

// Adds a row to the sums of its list; pieces and volumes only with the first row of a log.
void AddTo(PaperSums& sums, const LogRow& row, bool first_of_log) {
  for (const std::size_t place : {kPieces, kSolid, kStacked})
    sums.Add(place, first_of_log ? row.cells[place] : Null{});
  for (const std::size_t place : {kWorker, kMachine, kWage}) sums.Add(place, row.cells[place]);
}

Table LogsTable(const PricedOrder& priced) {
  Table table{.heading = "Bloche nach Listen"};
  for (const LogColumn& column : kColumns) {
    const bool number = *column.format != 0;
    table.columns.push_back({column.caption, number ? Alignment::kRight : Alignment::kLeft, column.format});
  }
  table.columns.push_back({"Lohn", Alignment::kRight, "0.00"});
  table.columns.push_back({"Hinweis"});
  PaperSums total;
  std::set<std::int32_t> counted;
  for (auto row = priced.rows.begin(); row != priced.rows.end();) {
    const std::string list = row->list;
    table.rows.push_back({{"Liste " + list}, RowKind::kGroup});
    PaperSums sums;
    for (; row != priced.rows.end() && row->list == list; ++row) {
      const bool first = counted.insert(row->log).second;
      AddTo(sums, *row, first);
      AddTo(total, *row, first);
      Row& printed = table.rows.emplace_back(Row{row->cells});
      printed.cells.emplace_back(NoteOf(priced.logs.at(row->log)));
    }
    table.rows.push_back(sums.AsRow("Summe", RowKind::kSum));
  }
  // Without logs the sums are 0.
  for (const auto& [from, to] : kListPlaces) total.Add(from, Null{});
  table.rows.push_back(total.AsRow("Gesamt", RowKind::kTotal));
  return table;
}

Table ListsTable(const Table& logs, const PricedOrder& priced) {
  Table table{.heading = "Summen der Listen",
              .columns = {{"Liste"}, {"Bloche", Alignment::kRight, "0"}, {"Stück", Alignment::kRight, "0"}}};
  for (const char* caption : {"FM", "RM", "AZ", "MZ", "Lohn"})
    table.columns.push_back({caption, Alignment::kRight, "0.00"});
  std::map<std::string, std::set<std::int32_t>> logs_of;
  for (const LogRow& row : priced.rows) logs_of[row.list].insert(row.log);
  auto list = logs_of.begin();
  for (const Row& row : logs.rows) {
    if (row.kind != RowKind::kSum && row.kind != RowKind::kTotal) continue;
    const bool total = row.kind == RowKind::kTotal;
    Row shown{std::vector<Value>(table.columns.size()), total ? RowKind::kTotal : RowKind::kPlain};
    shown.cells[0] = total ? "Gesamt" : list->first;
    shown.cells[1] = static_cast<std::int64_t>(total ? priced.logs.size() : list->second.size());
    for (const auto& [from, to] : kListPlaces) shown.cells[to] = row.cells.at(from);
    if (!total) ++list;
    table.rows.push_back(std::move(shown));
  }
  return table;
}

// "3 Bloche haben …", "Ein Bloch hat …".
std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
  return count == 1 ? "Ein Bloch " + one : std::to_string(count) + " Bloche " + many;
}

std::vector<std::string> Remarks(const PricedOrder& priced) {
  std::map<std::string, std::size_t> notes;
  for (const auto& [log, times] : priced.logs) ++notes[NoteOf(times)];
  std::vector<std::string> remarks;
  if (const std::size_t count = notes["ohne Tarif"])
    remarks.push_back(
        Counted(count, "hat keine Zeile im Tarif und ist", "haben keine Zeile im Tarif und sind") +
        " nichts wert.");
  if (const std::size_t count = notes["Tarif mehrfach"])
    remarks.push_back(Counted(count, "trifft", "treffen") +
                      " mehrere Zeilen im Tarif; der Lohn zählt mehrfach.");
  if (const std::size_t count = notes["Zuschlag mehrfach"])
    remarks.push_back(Counted(count, "trifft", "treffen") +
                      " mehrere Sonderzuschläge; der Lohn zählt mehrfach.");
  remarks.emplace_back("Summen sind aus den ungerundeten Beträgen gebildet.");
  return remarks;
}

}  // namespace

PrintDocument EstPaper(const TvnVar_Dll& context, std::int32_t order) {
  const Recordset found = DatabaseOf(context).Open(HeadOfOrder(order));
  if (found.EndOfFile()) throw CallError("Diesen Arbeitsauftrag gibt es nicht mehr.");
  const FieldList head = found.Fields();
  const PricedOrder priced = ReadLogs(context, order);
  PrintDocument paper{
      .issuer = NumberAndName(head, "MANDANTENNUMMER", "MANDANTENKURZBEZEICHNUNG"),
      .title = "EST-Stücklohn",
      .facts = {{"Arbeitsauftrag", TextOf(head["NAME"])},
                {"Abrechnungsmonat", ShortMonth(head, "ABRECHNUNGSMONAT", "ABRECHNUNGSJAHR")},
                {"Kostenstelle", NumberAndName(head, "KOSTENSTELLENUMBER", "KOSTENSTELLENAME")},
                {"Produktauftrag", TextOf(head["ARBEITSAUFTRAG_KOPFNAME"])},
                {"Leistungsart", NumberAndName(head, "LEISTUNGSARTNUMBER", "LEISTUNGSARTNAME")}},
      .landscape = true};
  paper.tables.push_back(LogsTable(priced));
  paper.tables.push_back(ListsTable(paper.tables.front(), priced));
  paper.remarks = Remarks(priced);
  return paper;
}

}  // namespace tarvoni::suite
