#pragma once

#include <optional>
#include <string_view>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"
#include "src/context/values/value.h"

// What an hour or unit is worth on a day: T-SQL expressions over the dated rates of ONETODATE, LOHNGRUPPE and
// TSP_ENTGELTE. Of several dates the latest that is not after the day counts. The three forms differ on purpose.
namespace tarvoni::hour_amount {

// --- Form 1: a stored row of ARA_STUNDEN, joined with LOHNARTEN ---

// The base rate times the factor, not rounded; NULL for a wage type without a rate.
SqlText StoredRate();
// Hours and rate rounded to two places each, the product as it comes; also for wage types without SLA, and
// without the percentage.
SqlText StoredValue();

// --- Form 2: the rate offered while hours are entered ---

// NAME of the unit, SATZ and ZAHLUNGSVERSCHIEBUNG of a wage type for a worker on a day. Without SLA and CHK7 the
// rate is NULL.
SqlText OfferedRate(std::string_view wage_type_id, std::string_view worker_id,
                    const std::optional<DateTime>& day, std::string_view sql_date_format);

// --- Form 3: the gross wage journal, rows of STUNDENBUCH with STUNDENBUCH_HEADER and LOHNARTEN ---

// The rate, rounded to two places: by BERECHNUNGSMODUS 3 and 4 from the tariff and the month's target hours,
// otherwise as in form 1. NULL without a tariff row or target hours.
SqlText JournalRate();
// Hours rounded to two places times the rate.
SqlText JournalAmount();
// The same of a line that has been read with its rate; NULL without one.
Value JournalAmount(const Value& hours, const Value& rate);
// As OfferedRate, with the journal's rate. Year, month and day as typed; nothing typed counts as 0.
SqlText JournalEntryRate(std::string_view wage_type_id, std::string_view worker_id, std::string_view year,
                         std::string_view month, std::string_view day);

}  // namespace tarvoni::hour_amount
