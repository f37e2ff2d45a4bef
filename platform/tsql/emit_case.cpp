#include <algorithm>
#include <utility>

#include "platform/tsql/emitter.h"

namespace tarvoni::tsql {
namespace {

const BoundCase* CaseIn(const BoundExpression& value) {
  const BoundExpression* inner = &value;
  while (const auto* convert = inner->As<BoundConvert>()) inner = convert->operand.get();
  return inner->As<BoundCase>();
}

// How many CASEs stand in each other's branches.
int Height(const BoundExpression& value) {
  const BoundCase* choice = CaseIn(value);
  if (choice == nullptr) return 0;
  int height = choice->otherwise ? Height(*choice->otherwise) : 0;
  for (const BoundCase::Branch& branch : choice->branches) height = std::max(height, Height(*branch.then));
  return height + 1;
}

}  // namespace

void Emitter::Node(const BoundCase& node, const BoundExpression& self) {
  constexpr int kMostNested = 6;
  if (Height(self) > kMostNested) return FlatCase(self);
  Text("CASE");
  if (node.operand) {
    Text(" ");
    Collated(*node.operand);
  }
  for (const BoundCase::Branch& branch : node.branches) {
    Text(" WHEN ");
    Expression(*branch.when);
    Text(" THEN ");
    Expression(*branch.then);
  }
  if (node.otherwise) {
    Text(" ELSE ");
    Expression(*node.otherwise);
  }
  Text(" END");
}

// SQLite's parser has room for some twenty CASEs in each other: each innermost branch becomes one of a single CASE,
// under all the conditions on the way to it. What is left over by the branches before it needs no condition.
void Emitter::FlatCase(const BoundExpression& self) {
  const auto outer = std::exchange(path_, {});
  Text("CASE");
  Branches(self, self);
  Text(" END");
  path_ = outer;
}

void Emitter::Branches(const BoundExpression& value, const BoundExpression& whole) {
  const BoundExpression* inner = &value;
  while (const auto* convert = inner->As<BoundConvert>()) inner = convert->operand.get();
  const auto* choice = inner->As<BoundCase>();
  if (choice == nullptr) {
    for (size_t i = 0; i < path_.size(); ++i) {
      Text(i == 0 ? " WHEN " : " AND ");
      When(path_[i].first, *path_[i].second);
    }
    Text(path_.empty() ? " ELSE " : " THEN ");
    return Expression(whole);
  }
  const auto stand = [&](const BoundExpression& branch) {
    standing_.emplace_back(inner, &branch);
    Branches(branch, whole);
    standing_.pop_back();
  };
  for (const BoundCase::Branch& branch : choice->branches) {
    path_.emplace_back(choice->operand.get(), branch.when.get());
    stand(*branch.then);
    path_.pop_back();
  }
  const BoundPtr null = MakeValue(inner->at, inner->type, 0, BoundConstant{"", Literal::Kind::kNull});
  stand(choice->otherwise ? *choice->otherwise : *null);
}

void Emitter::When(const BoundExpression* operand, const BoundExpression& when) {
  if (operand == nullptr) return Expression(when);
  Text("(");
  Collated(*operand);
  Text("=");
  Expression(when);
  Text(")");
}

}  // namespace tarvoni::tsql
