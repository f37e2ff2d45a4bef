#include "src/context/values/utf8.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_messages.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// Plans: made by their name, offered for a position, and gone again when they stayed empty.
namespace tarvoni {

namespace sql = work_order_sql;

namespace {

constexpr int kLongestName = 14;

}  // namespace

// The new plan's id; 0 if there is none. The Screen is not open yet.
std::int32_t F_Arbeitsauftrag::NewPlan(const TvnVar_Dll& tvnvar) const {
  Connection& db = DbOf(tvnvar);
  const auto text = [&](std::int32_t number) { return CurrentSuite().Messages().GetMessage(number, tvnvar); };
  const std::string answer =
      CurrentToolkit().InputBox(text(message::kNumber) + ":", "Tarvoni – neuer Plan", "001");
  if (answer.empty()) return 0;
  const std::string name(utf8::Substring(answer, 0, kLongestName));
  if (!HasRow(db, sql::PlanOfName(idPersonal, name))) {
    return tarvoni::Committed(db, [&] {
      db.Execute(sql::InsertPlan(idPersonal, name));
      return tarvoni::ReadNumber(db, sql::NewestPlan());
    });
  }
  AppMsgBox(text(message::kEntry) + " " + text(message::kPlanNumber) + " " + text(message::kAlreadyThere),
            kBoxInformation);
  return 0;
}

// The client's plans for the product, behind an empty item.
void F_Arbeitsauftrag::FillPlanList() {
  cmbPlannummer.Clear();
  cmbPlannummer.AddItem("");
  FillComboFromSql(Db(), cmbPlannummer, sql::PlansOfProduct(idPersonal, productId));
}

void F_Arbeitsauftrag::DeleteEmptyPlan() const {
  if (!HasRow(Db(), sql::PositionsOfPlan(headerId))) Execute(sql::DeletePlan(headerId));
}

}  // namespace tarvoni
