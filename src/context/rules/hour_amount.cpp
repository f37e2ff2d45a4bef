#include "src/context/rules/hour_amount.h"

#include "src/context/data/statement.h"

namespace tarvoni::hour_amount {
namespace {

// How a form names the worker and the day.
struct Form {
  SqlText worker;
  SqlText day;  // a date, or year, month and day in one number
  bool day_is_number = false;

  // That a date column is not after the day.
  SqlText NotAfterDay(const SqlText& column) const {
    if (!day_is_number) return Compose("{} <= {}", column, day);
    return Compose("YEAR({})*10000+MONTH({})*100+DAY({}) <= {}", column, column, column, day);
  }
};

Form Stored() {
  return {.worker = "ARA_STUNDEN.ID_PERSONAL", .day = "ARA_STUNDEN.VERLOHNUNG"};
}

// The journal keeps the pay month as a date and the day as a number. While a row is entered, typed values stand in
// the place of its columns.
struct JournalForm {
  SqlText year = "YEAR(STUNDENBUCH.VERLOHNUNG)";
  SqlText month = "MONTH(STUNDENBUCH.VERLOHNUNG)";
  SqlText day = "STUNDENBUCH.TAG";
  SqlText worker = "STUNDENBUCH_HEADER.ID_PERSONAL";

  Form AsForm() const {
    return {.worker = worker, .day = Compose("{}*10000+{}*100+{}", year, month, day), .day_is_number = true};
  }
};

// The value of ONETODATE that is valid on the day: `key` is table and column, `owner` the row it belongs to.
SqlText Dated(const Form& form, const SqlText& column, std::string_view key, const SqlText& owner) {
  return Compose(R"(
SELECT TOP 1 ONETODATE.{}
FROM ONETODATE
WHERE ONETODATE.TABLE_COLUMN = '{}' AND ONETODATE.TABLE_ID = {} AND {}
ORDER BY ONETODATE.DATUM DESC)",
                 column, Quoted(key), owner, form.NotAfterDay("ONETODATE.DATUM"));
}

SqlText OrZero(const SqlText& select) {
  return Compose("ISNULL(({}),0)", select);
}

SqlText RateTerm(const Form& form) {
  return OrZero(Dated(form, "RATE", "LOHNARTEN.SATZ", "LOHNARTEN.ID"));
}

// The amount, valid on the day, of the wage group that the worker is in on the day.
SqlText GroupAmount(const Form& form) {
  return Compose(R"(
SELECT TOP 1 LOHNGRUPPE.BETRAG
FROM LOHNGRUPPE
WHERE LOHNGRUPPE.NAME IN ({})
  AND {}
ORDER BY LOHNGRUPPE.DATEWHILE DESC)",
                 Dated(form, "TEXT", "PERSONAL.LOHNGRUPPE", form.worker),
                 form.NotAfterDay("LOHNGRUPPE.DATEWHILE"));
}

SqlText FactorTerm(const Form& form) {
  return Compose(R"(
(CASE LOHNARTEN.DLS_LG
WHEN 1 THEN {}
WHEN 2 THEN {}
ELSE 1 END))",
                 OrZero(Dated(form, "RATE", "PERSONAL.DLS", form.worker)), OrZero(GroupAmount(form)));
}

SqlText Rate(const Form& form) {
  return Compose("{}*{}", RateTerm(form), FactorTerm(form));
}

SqlText WageTypeEntry(const SqlText& rate, std::string_view wage_type_id) {
  return Compose(R"(
SELECT EINHEIT.NAME,
  {} AS SATZ,
  ISNULL(ZAHLUNGSVERSCHIEBUNG,0) AS ZAHLUNGSVERSCHIEBUNG
FROM LOHNARTEN
LEFT JOIN EINHEIT ON EINHEIT.ID = LOHNARTEN.EINHEIT
WHERE LOHNARTEN.ID = 0{})",
                 rate, Digits(wage_type_id));
}

// --- the tariff modes of the journal ---

SqlText StageOfWageType(const Form& form) {
  return Dated(form, "RATE", "LOHNARTEN.ENTWSTUFFE", "LOHNARTEN.ID");
}

SqlText StageOfWorker(const Form& form) {
  return Dated(form, "RATE", "PERSONAL.ENTWSTUFFE", form.worker);
}

// The comparison takes a missing stage for 0, the choice leaves it missing.
SqlText LowerStage(const Form& form) {
  const SqlText wage_type = StageOfWageType(form), worker = StageOfWorker(form);
  return Compose("CASE WHEN {} <{} THEN ({}) ELSE ({}) END", OrZero(wage_type), OrZero(worker), wage_type,
                 worker);
}

SqlText TariffRate(const JournalForm& journal, const SqlText& stage) {
  const Form form = journal.AsForm();
  return Compose(R"(
LOHNARTEN.ZUSCHLAGSPROZENT
*(SELECT TOP 1 TSP_ENTGELTE.BETRAG
  FROM TSP_ENTGELTE
  WHERE {}
    AND TSP_ENTGELTE.ENTWSTUFFE    IN ({})
    AND TSP_ENTGELTE.ENTGELDGRUPPE IN ({})
  ORDER BY TSP_ENTGELTE.VALIDFROM DESC)
/(SELECT TOP 1 BB_T_MONAT.SOLL_STUNDENVORGABE
  FROM BB_T_MONAT
  WHERE CAST(NUMMER AS INT) = {} AND CAST(JAHR AS INT) = {})
/100)",
                 form.NotAfterDay("TSP_ENTGELTE.VALIDFROM"), stage,
                 Dated(form, "RATE", "PERSONAL.ENTGELDGRUPPE", form.worker), journal.month, journal.year);
}

SqlText RateOf(const JournalForm& journal) {
  const Form form = journal.AsForm();
  return Compose(R"(
ROUND((CASE LOHNARTEN.BERECHNUNGSMODUS
WHEN 3 THEN {}
WHEN 4 THEN {}
ELSE {} END),2))",
                 TariffRate(journal, StageOfWageType(form)), TariffRate(journal, LowerStage(form)),
                 Rate(form));
}

// A typed number behind a literal 0, so that nothing typed reads as 0.
SqlText OrTypedZero(std::string_view digits) {
  return Compose("0{}", Digits(digits));
}

}  // namespace

SqlText StoredRate() {
  return Compose("(CASE WHEN LOHNARTEN.SLA = 1 THEN {} ELSE NULL END)", Rate(Stored()));
}

SqlText StoredValue() {
  return Compose("ROUND(ARA_STUNDEN.STUNDEN,2)*ROUND({},2)", Rate(Stored()));
}

SqlText OfferedRate(std::string_view wage_type_id, std::string_view worker_id,
                    const std::optional<DateTime>& day, std::string_view sql_date_format) {
  const Form entered{.worker = Id(worker_id), .day = DateOrNull(day, sql_date_format)};
  return WageTypeEntry(
      Compose("(CASE WHEN (LOHNARTEN.SLA = 1 AND LOHNARTEN.CHK7 = 1) THEN {} ELSE NULL END)", Rate(entered)),
      wage_type_id);
}

SqlText JournalRate() {
  return RateOf({});
}

SqlText JournalAmount() {
  return Compose("ROUND(STUNDENBUCH.STUNDEN,2)*{}", JournalRate());
}

Value JournalAmount(const Value& hours, const Value& rate) {
  const auto* quantity = std::get_if<Decimal>(&hours);
  const auto* worth = std::get_if<Decimal>(&rate);
  const auto amount = quantity && worth ? Multiply(quantity->Rounded(2), *worth) : std::nullopt;
  return amount ? Value(*amount) : Value(Null{});
}

SqlText JournalEntryRate(std::string_view wage_type_id, std::string_view worker_id, std::string_view year,
                         std::string_view month, std::string_view day) {
  return WageTypeEntry(RateOf({.year = OrTypedZero(year),
                               .month = OrTypedZero(month),
                               .day = OrTypedZero(day),
                               .worker = Id(worker_id)}),
                       wage_type_id);
}

}  // namespace tarvoni::hour_amount
