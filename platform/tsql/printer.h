#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/tsql/ast.h"
#include "platform/tsql/public/lexer.h"

namespace tarvoni::tsql {

// Appends the text of one node after the other.
class Printer {
 public:
  explicit Printer(const LexedBatch& lexed) : lexed_(lexed) {}

  void Print(const Batch& batch);
  void Print(const Statement& statement);
  void Print(const Query& query);
  void Print(const Expression& expression);
  std::string Take() { return std::move(text_); }

 private:
  // How tightly an expression holds together; one that holds less tightly than its place asks for gets
  // brackets.
  enum class Tightness { kOr, kAnd, kNot, kPredicate, kSum, kSign, kProduct, kPrimary };
  static Tightness TightnessOf(const Expression& expression);
  static Tightness TightnessOf(BinaryOperator op);
  void PrintAt(const Expression& expression, Tightness least);
  void PrintValue(const Expression& expression) { PrintAt(expression, Tightness::kSum); }

  // print_expression.cpp
  void Write(const Literal& literal);
  void Write(const ColumnName& name);
  void Write(const Star& star);
  void Write(const Unary& unary);
  void Write(const Binary& binary);
  void Write(const IsNull& test);
  void Write(const Between& test);
  void Write(const InList& test);
  void Write(const InQuery& test);
  void Write(const Like& test);
  void Write(const Exists& test);
  void Write(const Case& choice);
  void Write(const Call& call);
  void Write(const Cast& cast);
  void Write(const ScalarQuery& scalar);

  // print.cpp
  void Write(const Select& select);
  void Write(const SelectItem& item);
  void Write(const TableSource& source);
  void Write(const NamedTable& table);
  void Write(const DerivedTable& table);
  void Write(const Join& join);
  void Write(const SelectStatement& statement);
  void Write(const InsertStatement& statement);
  void Write(const UpdateStatement& statement);
  void Write(const DeleteStatement& statement);
  void Write(const CreateTableStatement& statement);
  void Write(const ColumnSyntax& column);
  void Write(const KeyConstraint& key);
  void Write(const ForeignKey& key);
  void Write(const CreateIndexStatement& statement);
  void Write(const DropTableStatement& statement);
  void Write(const BlockStatement& statement);
  void Write(const IfStatement& statement);
  void Write(const SetNocount& statement);
  void Write(const SetDateFormat& statement);
  void Write(const SetIdentityInsert& statement);

  void Add(std::string_view text) { text_ += text; }
  void AddName(std::string_view name);  // in brackets where it needs them
  void AddNames(const std::vector<std::string>& names);
  void AddFunction(std::string_view name);
  void AddAlias(std::string_view alias);
  void AddClause(std::string_view word, const ExpressionPtr& condition);
  template <class Items, class PrintItem>
  void AddList(const Items& items, PrintItem&& print_item) {
    bool first = true;
    for (const auto& item : items) {
      if (!first) text_ += ", ";
      first = false;
      print_item(item);
    }
  }
  template <class Items, class PrintItem>
  void AddBracketedList(const Items& items, PrintItem&& print_item) {
    text_ += '(';
    AddList(items, print_item);
    text_ += ')';
  }

  const LexedBatch& lexed_;
  std::string text_;
};

}  // namespace tarvoni::tsql
