#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "src/context/data/sql_text.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/values/call_error.h"

// What Screens of one area ask of another. Areas do not know each other: each question is a small contract here, and
// the entry, which knows them all, answers it.
namespace tarvoni {

// The answer to a contract on this thread.
template <typename Contract>
Contract*& AnswerTo() {
  thread_local Contract* answer = nullptr;
  return answer;
}

// Neighbour<TimeWage>().Open(…). A CallError while nobody answers.
template <typename Contract>
Contract& Neighbour() {
  if (Contract* const answer = AnswerTo<Contract>()) return *answer;
  throw CallError("Diese Verbindung zwischen den Bildschirmen ist nicht eingerichtet.");
}

// The lines of a wage order in time wage (F_Zeilohn).
class TimeWage {
 public:
  virtual ~TimeWage() = default;
  // Shows them until they are closed.
  virtual void Open(const TvnVar_Dll& context, std::int32_t client, std::int32_t order) = 0;
};

// The natural execution of a cost position (F_Naturalvollzug).
class NaturalExecution {
 public:
  virtual ~NaturalExecution() = default;
  // Shows it until it is closed; `activity` is LEISTUNGSART.ID.
  virtual void Open(const TvnVar_Dll& context, bool read_only, std::int32_t position,
                    std::int16_t activity) = 0;
  // Whether positions of the activity have one.
  virtual bool IsKnownTo(const TvnVar_Dll& context, std::int16_t activity) = 0;
};

// Work orders (F_Arbeitsauftrag).
class WorkOrders {
 public:
  virtual ~WorkOrders() = default;
  // ARBEITSAUFTRAG.ID of the row that the open Screen stands on; none without a Screen or without a row.
  virtual std::optional<std::int32_t> CurrentPosition() = 0;
};

// Makes the header of a work order (F_NewArbeitsauftrag).
class NewWorkOrder {
 public:
  virtual ~NewWorkOrder() = default;
  struct Made {
    std::int32_t header = 0;       // ARBEITSAUFTRAG_KOPF.ID; 0 if the dialog was cancelled
    std::int32_t cost_centre = 0;  // KOSTENSTELLE.ID
  };
  virtual Made Ask(const TvnVar_Dll& context, std::int32_t client) = 0;
};

// Moves texts between an offer and a selection (F_ListeSelect).
class ListSelection {
 public:
  virtual ~ListSelection() = default;
  // Items between single quotes, joined by commas, as they stand: a quote inside is not doubled. Both empty when
  // the dialog was cancelled.
  struct Chosen {
    std::string selected;
    std::string left;
  };
  // The first column of each row of `offered` and of `selected` fills the two lists.
  virtual Chosen Ask(const TvnVar_Dll& context, const SqlText& offered, const SqlText& selected) = 0;
};

// Vouchers (F_Belege_New).
class Vouchers {
 public:
  virtual ~Vouchers() = default;
  // Shows those of the work orders' current position, read-only, until they are closed.
  virtual void OpenOfCurrentPosition(const TvnVar_Dll& context, std::int32_t client) = 0;
};

}  // namespace tarvoni
