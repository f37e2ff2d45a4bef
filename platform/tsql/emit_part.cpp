#include <utility>

#include "platform/tsql/emitter.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {

// A query that is a value of each row. One that needs nothing of the row is worked out once, which no part is.
bool Emitter::MayBePart(const BoundExpression& value) const {
  const bool is_query = value.As<BoundScalarQuery>() != nullptr || value.As<BoundExists>() != nullptr;
  return is_query && !trying_ && whole_ != &value && style_ == ColumnStyle::kQualified &&
         !IsClosed(*QueryOf(value));
}

// Such a query does not fit if a part would lie inside it: SQLite sees no columns there, and so searches no index. Then
// it is a part as a whole. Whether it fits is found by writing it.
void Emitter::WholeOrPart(const BoundExpression& value) {
  const Mark before = Here();
  trying_ = true;
  Plain(value);
  trying_ = false;
  if (!std::exchange(too_deep_, false)) return;
  BackTo(before);
  Part(value);
}

Emitter::Mark Emitter::Here() const {
  return {sql_.text.size(),   sql_.parameters.size(),
          front_.text.size(), front_.parameters.size(),
          hoisted_,           part_ != nullptr ? part_->arguments.size() : 0};
}

void Emitter::BackTo(const Mark& mark) {
  sql_.text.resize(mark.text);
  sql_.parameters.resize(mark.parameters);
  front_.text.resize(mark.front_text);
  front_.parameters.resize(mark.front_parameters);
  hoisted_ = mark.hoisted;
  if (part_ != nullptr) part_->arguments.resize(mark.arguments);
}

void Emitter::Part(const BoundExpression& value) {
  if (trying_) {
    too_deep_ = true;
    return;
  }
  PartScope scope{SourcesInside(value), {}};
  Emitter part;
  part.part_ = &scope;
  part.whole_ = &value;
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
