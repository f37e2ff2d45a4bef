#include <utility>

#include "platform/tsql/emitter.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {

void Emitter::Part(const BoundExpression& value) {
  PartScope scope{SourcesInside(value), {}};
  Emitter part;
  part.part_ = &scope;
  part.standing_ = standing_;
  part.Text("SELECT ").Expression(value);
  Text("ts_part(").Number(static_cast<long long>(parts_.size()));
  parts_.push_back(part.Take());
  for (const BoundExpression* argument : scope.arguments) {
    Text(",");
    Expression(*argument);
  }
  Text(")");
}

// A part reads the columns of tables around it as arguments, and so the aggregates over them; an aggregate without a
// column is one of the statement around unless a query of the part has it.
std::optional<size_t> Emitter::ArgumentOf(const BoundExpression& value) {
  const auto own = [&](const BoundColumn& column) { return part_->sources.contains(column.source); };
  const auto any = [](const BoundColumn&) { return true; };
  const bool aggregate = value.As<BoundAggregate>() != nullptr;
  if (!aggregate && !value.As<BoundColumn>()) return std::nullopt;
  if (Mentions(value, own) || (queries_ > 0 && !Mentions(value, any))) return std::nullopt;
  auto& arguments = part_->arguments;
  for (size_t i = 0; i < arguments.size(); ++i)
    if (!aggregate && SameExpression(*arguments[i], value)) return i;
  arguments.push_back(&value);
  return arguments.size() - 1;
}

void Emitter::Outside(size_t argument, const Type& type) {
  sql_.parameters.push_back({Parameter::Source::kOuter, static_cast<int>(argument), type});
  Text("?");
}

}  // namespace tarvoni::tsql
