#include "suite/month_summary.h"

#include <algorithm>
#include <map>

#include "src/context/data/statement.h"
#include "src/context/rules/hour_amount.h"
#include "src/context/rules/location_path.h"
#include "src/context/rules/wage_journal.h"
#include "src/context/values/number_text.h"
#include "suite/paper_texts.h"

namespace tarvoni::suite {
namespace {

SqlText HoursOfMonth(const JournalMonth& month, std::string_view sql_date_format) {
  const DateTime first{.year = month.year, .month = month.month, .day = 1};
  const DateTime next{.year = month.year + month.month / 12, .month = month.month % 12 + 1, .day = 1};
  return Compose(R"(
SELECT LOHNARTEN.NUMBER AS LOHNARTENNUMBER,LOHNARTEN.NAME AS LOHNARTENNAME,
  ARA_STUNDEN.STUNDEN,EINHEIT.NAME AS EINHEITNAME,
  {} AS SATZ,
  {} AS WERT,
  ARBEITSAUFTRAG_KOPF.NAME AS ARBEITSAUFTRAG_KOPFNAME,ARA_KOPF.NAME AS ARA_KOPFNAME,
  ARBEITSAUFTRAG.STORNODATUM,ARA_STUNDEN.VERLOHNUNG,
  {} AS WALDORT
FROM STUNDENBUCH_HEADER
INNER JOIN ARA_STUNDEN ON ARA_STUNDEN.ID_PERSONAL = STUNDENBUCH_HEADER.ID_PERSONAL
INNER JOIN ARA_KOPF ON ARA_KOPF.ID = ARA_STUNDEN.ID_ARA_KOPF AND ARA_KOPF.PERSONAL_ID = {}
LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN
LEFT JOIN EINHEIT ON EINHEIT.ID = LOHNARTEN.EINHEIT
LEFT JOIN ARBEITSAUFTRAG ON ARBEITSAUFTRAG.ID_ARA_KOPF = ARA_KOPF.ID
LEFT JOIN ARBEITSAUFTRAG_KOPF ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID
LEFT JOIN WALDORT ON WALDORT.ID_WALDORT = ARBEITSAUFTRAG.WO_ID
WHERE STUNDENBUCH_HEADER.ID = {}
  AND ARA_STUNDEN.BEARBEITUNG >= {} AND ARA_STUNDEN.BEARBEITUNG < {}
ORDER BY ARA_STUNDEN.VERLOHNUNG,ARA_KOPF.NAME,ARA_STUNDEN.ID)",
                 hour_amount::StoredRate(), hour_amount::StoredValue(), kLocationPath, Id(month.client),
                 Id(month.header), DateOrNull(first, sql_date_format), DateOrNull(next, sql_date_format));
}

// The day of a journal line, whose month is a date and whose day is a number.
Value DayOf(const FieldList& line) {
  const DateTime day{.year = NumberIn(line["YEARVERLOHNUNG"].Value()),
                     .month = NumberIn(line["MONTHVERLOHNUNG"].Value()),
                     .day = NumberIn(line["STUNDENBUCHTAG"].Value())};
  if (IsValidDate(day.year, day.month, day.day)) return day;
  return day.month == 0 ? Value(Null{}) : Value(ShortMonth(line, "MONTHVERLOHNUNG", "YEARVERLOHNUNG"));
}

// A cell of the text; what parts cells and rows there is a blank.
std::string Cell(const Value& value, std::string_view format) {
  std::string text = FieldText(value, format, CurrentLocale());
  std::ranges::replace_if(
      text, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  return text;
}

// Lines of one key have one rate.
std::string RateKey(const FieldList& line) {
  return Cell(line["ID_LOHNARTEN"].Value(), "") + "\t" + Cell(line["VERLOHNUNG"].Value(), "") + "\t" +
         Cell(line["TAG"].Value(), "");
}

}  // namespace

std::vector<MonthLine> OrderHours(const TvnVar_Dll& context, const JournalMonth& month) {
  std::vector<MonthLine> lines;
  if (!IsValidDate(month.year, month.month, 1)) return lines;
  Recordset rows = DatabaseOf(context).Open(HoursOfMonth(month, context.strSqlDateFormat));
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList field = rows.Fields();
    lines.push_back({.wage_type = field["LOHNARTENNUMBER"].Value(),
                     .wage_type_name = field["LOHNARTENNAME"].Value(),
                     .quantity = field["STUNDEN"].Value(),
                     .unit = field["EINHEITNAME"].Value(),
                     .rate = field["SATZ"].Value(),
                     .amount = field["WERT"].Value(),
                     .product_order = field["ARBEITSAUFTRAG_KOPFNAME"].Value(),
                     .wage_order = field["ARA_KOPFNAME"].Value(),
                     .day = field["VERLOHNUNG"].Value(),
                     .location = field["WALDORT"].Value(),
                     .cancelled = !IsNull(field["STORNODATUM"].Value())});
  }
  return lines;
}

Recordset JournalLines(const TvnVar_Dll& context, std::int32_t header) {
  return DatabaseOf(context).Open(
      Compose("{}\nORDER BY STUNDENBUCH.VERLOHNUNG,STUNDENBUCH.TAG,STUNDENBUCH.ID", LinesOfJournal(header)));
}

MonthLine LineOf(const FieldList& journal_line, const Value& rate) {
  const Value& hours = journal_line["STUNDENBUCHSTUNDEN"].Value();
  return {.wage_type = journal_line["LOHNARTENNUMBER"].Value(),
          .wage_type_name = journal_line["LOHNARTENNAME"].Value(),
          .quantity = hours,
          .unit = journal_line["EINHEITNAME"].Value(),
          .rate = rate,
          .amount = hour_amount::JournalAmount(hours, rate),
          .product_order = journal_line["ARBEITSAUFTRAG_KOPFNAME"].Value(),
          .wage_order = Null{},
          .day = DayOf(journal_line),
          .location = Null{}};
}

std::vector<MonthLine> OwnLines(const TvnVar_Dll& context, const JournalMonth& month) {
  std::vector<MonthLine> lines;
  std::map<std::string, Value> rates;
  Recordset rated = DatabaseOf(context).Open(RatesOfJournal(month.header));
  for (; !rated.EndOfFile(); rated.MoveNext())
    rates[RateKey(rated.Fields())] = rated.Fields()["SATZ"].Value();
  Recordset rows = DatabaseOf(context).Open(WorkOfJournal(month.header));
  for (; !rows.EndOfFile(); rows.MoveNext())
    lines.push_back(LineOf(rows.Fields(), rates[RateKey(rows.Fields())]));
  return lines;
}

std::string SummaryText(const std::vector<MonthLine>& lines) {
  std::string text;
  for (const MonthLine& line : lines) {
    text += Cell(line.wage_type, "") + "\t" + Cell(line.quantity, "0.00") + "\t" + Cell(line.unit, "") +
            "\t" + Cell(line.rate, "0.00") + "\t" + Cell(line.amount, "0.00") + "\t" +
            Cell(line.product_order, "") + "\t" + Cell(line.wage_order, "") + "\t" + Cell(line.day, "") +
            "\t" + Cell(line.location, "") + "\r\n";
  }
  return text;
}

}  // namespace tarvoni::suite
