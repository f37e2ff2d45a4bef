#include "src/wage/rate_expressions.h"

#include "src/context/data/statement.h"

namespace tarvoni::wage_rate {
namespace {

// How a form names the worker and tests that a date column is not after the day.
struct Form {
  std::string worker;
  std::string day;
  bool days_are_numbers = false;

  std::string NotAfterDay(const std::string& column) const {
    if (!days_are_numbers) return column + " <= " + day;
    return "YEAR(" + column + ")*10000+MONTH(" + column + ")*100+DAY(" + column + ") <= " + day;
  }
};

const Form& Stored() {
  static const Form kStored{.worker = "ARA_STUNDEN.ID_PERSONAL", .day = "ARA_STUNDEN.VERLOHNUNG"};
  return kStored;
}

// The journal keeps the pay month as a date and the day as a number.
const Form& Journal() {
  static const Form kJournal{
      .worker = "STUNDENBUCH_HEADER.ID_PERSONAL",
      .day = "YEAR(STUNDENBUCH.VERLOHNUNG)*10000+MONTH(STUNDENBUCH.VERLOHNUNG)*100+STUNDENBUCH.TAG",
      .days_are_numbers = true};
  return kJournal;
}

// The value of ONETODATE that is valid on the day: `key` is table and column, `owner` the row it belongs to.
std::string Dated(const Form& form, const char* column, const char* key, const std::string& owner) {
  return Compose(
      "SELECT TOP 1 ONETODATE.{} FROM ONETODATE WHERE ONETODATE.TABLE_COLUMN = '{}' AND ONETODATE.TABLE_ID = "
      "{} "
      "AND {} ORDER BY ONETODATE.DATUM DESC",
      Fragment(column), Fragment(key), Fragment(owner), Fragment(form.NotAfterDay("ONETODATE.DATUM")));
}

std::string OrZero(const std::string& select) {
  return "ISNULL((" + select + "),0)";
}

std::string RateTerm(const Form& form) {
  return OrZero(Dated(form, "RATE", "LOHNARTEN.SATZ", "LOHNARTEN.ID"));
}

// The amount, valid on the day, of the wage group that the worker is in on the day.
std::string GroupAmount(const Form& form) {
  return Compose(
      "SELECT TOP 1 LOHNGRUPPE.BETRAG FROM LOHNGRUPPE WHERE LOHNGRUPPE.NAME IN ({}) AND {} ORDER BY "
      "LOHNGRUPPE.DATEWHILE DESC",
      Fragment(Dated(form, "TEXT", "PERSONAL.LOHNGRUPPE", form.worker)),
      Fragment(form.NotAfterDay("LOHNGRUPPE.DATEWHILE")));
}

std::string FactorTerm(const Form& form) {
  return Compose(
      "(CASE LOHNARTEN.DLS_LG \n"
      "WHEN 1 THEN {} \n"
      "WHEN 2 THEN {} \n"
      "ELSE 1 END)",
      Fragment(OrZero(Dated(form, "RATE", "PERSONAL.DLS", form.worker))),
      Fragment(OrZero(GroupAmount(form))));
}

std::string Rate(const Form& form) {
  return RateTerm(form) + "*" + FactorTerm(form);
}

std::string WageTypeEntry(const std::string& rate, std::string_view wage_type_id) {
  return Compose(
      "SELECT EINHEIT.NAME,\n"
      "{} AS SATZ,\n"
      "ISNULL(ZAHLUNGSVERSCHIEBUNG,0) AS ZAHLUNGSVERSCHIEBUNG\n"
      " FROM LOHNARTEN LEFT JOIN EINHEIT ON EINHEIT.ID = LOHNARTEN.EINHEIT\n"
      " WHERE LOHNARTEN.ID = 0{}",
      Fragment(rate), Digits(wage_type_id));
}

// --- the tariff modes of the journal ---

std::string StageOfWageType() {
  return Dated(Journal(), "RATE", "LOHNARTEN.ENTWSTUFFE", "LOHNARTEN.ID");
}

std::string StageOfWorker() {
  return Dated(Journal(), "RATE", "PERSONAL.ENTWSTUFFE", Journal().worker);
}

// The comparison takes a missing stage for 0, the choice leaves it missing.
std::string LowerStage() {
  const std::string wage_type = StageOfWageType(), worker = StageOfWorker();
  return Compose("CASE WHEN {} <{} THEN ({}) ELSE ({}) END", Fragment(OrZero(wage_type)),
                 Fragment(OrZero(worker)), Fragment(wage_type), Fragment(worker));
}

std::string TariffRate(const std::string& stage) {
  return Compose(
      "LOHNARTEN.ZUSCHLAGSPROZENT\n"
      "*(SELECT TOP 1 TSP_ENTGELTE.BETRAG\n"
      " FROM TSP_ENTGELTE\n"
      " WHERE {}\n"
      " AND TSP_ENTGELTE.ENTWSTUFFE    IN ({})\n"
      " AND TSP_ENTGELTE.ENTGELDGRUPPE IN ({})\n"
      " ORDER BY TSP_ENTGELTE.VALIDFROM DESC)\n"
      "/(SELECT TOP 1 BB_T_MONAT.SOLL_STUNDENVORGABE\n"
      " FROM BB_T_MONAT\n"
      " WHERE CAST(NUMMER AS INT) = MONTH(STUNDENBUCH.VERLOHNUNG) AND CAST(JAHR AS INT) = "
      "YEAR(STUNDENBUCH.VERLOHNUNG))\n"
      "/100",
      Fragment(Journal().NotAfterDay("TSP_ENTGELTE.VALIDFROM")), Fragment(stage),
      Fragment(Dated(Journal(), "RATE", "PERSONAL.ENTGELDGRUPPE", Journal().worker)));
}

void Replace(std::string& text, std::string_view what, const SqlText& by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.Text().size())) {
    text.replace(at, what.size(), by.Text());
  }
}

// A typed number behind a literal 0, so that nothing typed reads as 0.
SqlText Typed0(std::string_view digits) {
  return Fragment(Compose("0{}", Digits(digits)));
}

}  // namespace

std::string StoredRate() {
  return "(CASE WHEN LOHNARTEN.SLA = 1 THEN " + Rate(Stored()) + " ELSE NULL END) AS SATZ";
}

std::string StoredValue() {
  return "ROUND(ARA_STUNDEN.STUNDEN,2)*ROUND(" + Rate(Stored()) + ",2) AS WERT";
}

std::string OfferedRate(std::string_view wage_type_id, std::string_view worker_id,
                        const std::optional<DateTime>& day, std::string_view sql_date_format) {
  const Form entered{.worker = Id(worker_id).Text(), .day = DateOrNull(day, sql_date_format).Text()};
  return WageTypeEntry(
      "(CASE WHEN (LOHNARTEN.SLA = 1 AND LOHNARTEN.CHK7 = 1) THEN " + Rate(entered) + " ELSE NULL END)",
      wage_type_id);
}

std::string JournalRate() {
  return "ROUND((CASE LOHNARTEN.BERECHNUNGSMODUS\n WHEN 3 THEN " + TariffRate(StageOfWageType()) +
         "\n WHEN 4 THEN " + TariffRate(LowerStage()) + "\n ELSE " + Rate(Journal()) + " END),2)";
}

std::string JournalAmount() {
  return "ROUND(STUNDENBUCH.STUNDEN,2)*" + JournalRate() + " AS BETRAG";
}

std::string JournalEntryRate(std::string_view wage_type_id, std::string_view worker_id, std::string_view year,
                             std::string_view month, std::string_view day) {
  std::string rate = JournalRate();
  Replace(rate, "YEAR(STUNDENBUCH.VERLOHNUNG)", Typed0(year));
  Replace(rate, "MONTH(STUNDENBUCH.VERLOHNUNG)", Typed0(month));
  Replace(rate, "STUNDENBUCH.TAG", Typed0(day));
  Replace(rate, "STUNDENBUCH_HEADER.ID_PERSONAL", Id(worker_id));
  return WageTypeEntry(rate, wage_type_id);
}

}  // namespace tarvoni::wage_rate
