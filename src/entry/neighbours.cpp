#include "src/entry/neighbours.h"

#include "src/common/contracts.h"
#include "src/common/query.h"
#include "src/entry/slot_call.h"
#include "src/piecework/f_naturalvollzug.h"
#include "src/piecework/f_zeilohn.h"

namespace tarvoni {
namespace {

class TimeWageAnswer final : public TimeWage {
  void Open(const TvnVar_Dll& context, std::int32_t client, std::int32_t order) override {
    CallThroughSlot<F_Zeilohn>([&](F_Zeilohn& screen) { screen.Run(context, client, order); });
  }
};

class NaturalExecutionAnswer final : public NaturalExecution {
  void Open(const TvnVar_Dll& context, bool read_only, std::int32_t position,
            std::int16_t activity) override {
    CallThroughSlot<F_Naturalvollzug>([&](F_Naturalvollzug& screen) {
      screen.Run(context, context.strConString, read_only, position, activity);
    });
  }
  bool IsKnownTo(const TvnVar_Dll& context, std::int16_t activity) override {
    return F_Naturalvollzug::EnableForm(activity, DbOf(context));
  }
};

}  // namespace

void AnswerNeighbours() {
  thread_local TimeWageAnswer time_wage;
  thread_local NaturalExecutionAnswer natural_execution;
  AnswerTo<TimeWage>() = &time_wage;
  AnswerTo<NaturalExecution>() = &natural_execution;
}

}  // namespace tarvoni
