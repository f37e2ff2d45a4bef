#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/tsql/public/compile.h"
#include "platform/tsql/public/lexer.h"
#include "platform/tsql/public/parser.h"

// Sends any text through the whole front end. A batch is refused with a located Error or becomes a plan that
// holds together; everything else is a finding.
namespace tarvoni::tsql {
namespace {

// Every type, an identity, keys of one and of two columns, names that are words of the language.
constexpr std::string_view kTables = R"(
CREATE TABLE T (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, NR INT, NAME NVARCHAR(20), SUMME MONEY, SATZ DECIMAL(9,4),
  FM FLOAT, AUS BIT, AM DATETIME, [TEXT] NVARCHAR(MAX))
CREATE TABLE U (ID INT NOT NULL, T_ID INT, STUECK TINYINT, KLEIN SMALLINT, GROSS BIGINT, KURZ CHAR(5), [ORDER] INT,
  WEIT DECIMAL(38,10), PRIMARY KEY (ID, T_ID), UNIQUE (KURZ))
CREATE TABLE PERSONAL (ID_PERSONAL INT NOT NULL PRIMARY KEY, NUMMER NVARCHAR(10), NAME NVARCHAR(40), DISABLE BIT)
CREATE TABLE ONETODATE (TABLE_COLUMN NVARCHAR(40), TABLE_ID INT, DATUM DATETIME, RATE FLOAT, [TEXT] NVARCHAR(20))
)";

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "fuzz_tsql: %s\n", what);
  std::abort();
}

class FixedCatalogue : public Catalogue {
 public:
  void Add(TableDefinition table) {
    tables_.push_back(std::make_shared<const TableDefinition>(std::move(table)));
  }

  std::shared_ptr<const TableDefinition> FindTable(std::string_view name) const override {
    const auto found = std::find_if(tables_.begin(), tables_.end(),
                                    [name](const auto& table) { return SameName(table->name, name); });
    return found == tables_.end() ? nullptr : *found;
  }

 private:
  std::vector<std::shared_ptr<const TableDefinition>> tables_;
};

void CheckSql(const Sql& sql, const LexedBatch& lexed) {
  Require(!sql.text.empty(), "a step without a statement");
  for (const Parameter& parameter : sql.parameters) {
    if (parameter.source != Parameter::Source::kLiteral) continue;
    Require(parameter.literal >= 0 && std::cmp_less(parameter.literal, lexed.literals.size()),
            "a parameter that is no literal of the batch");
  }
}

struct StepCheck {
  const LexedBatch& lexed;
  std::size_t steps;

  void operator()(const QueryStep& step) const {
    CheckSql(step.sql, lexed);
    Require(!step.columns.empty(), "a result without columns");
  }
  void operator()(const WriteStep& step) const { CheckSql(step.sql, lexed); }
  void operator()(const ConditionStep& step) const {
    CheckSql(step.sql, lexed);
    CheckTarget(step.otherwise);
  }
  void operator()(const JumpStep& step) const { CheckTarget(step.target); }
  void operator()(const RaiseStep& step) const {
    Require(step.number > 0 && !step.message.empty(), "a raised error without number or message");
  }
  void operator()(const DeferredStep& step) const {
    Require(step.statement, "a deferred step without its statement");
  }
  template <typename Other>
  void operator()(const Other&) const {}

  void CheckTarget(int target) const {
    Require(target >= 0 && std::cmp_less_equal(target, steps), "a jump out of the plan");
  }
};

void CheckPlan(const Plan& plan, const LexedBatch& lexed) {
  for (const Step& step : plan.steps) std::visit(StepCheck{lexed, plan.steps.size()}, step.action);
  for (const PinnedLiteral& pinned : plan.pinned) {
    Require(pinned.index >= 0 && std::cmp_less(pinned.index, lexed.literals.size()),
            "a pinned literal out of the batch");
  }
}

void CheckError(const Error& error, std::string_view text) {
  const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
  Require(error.Number() > 0 && *error.what() != '\0', "an error without number or message");
  Require(error.At().line >= 1 && error.At().line <= lines && error.At().column >= 1,
          "an error without a place");
}

// Runs `action`; gives whether it ended without an error.
template <typename Action>
bool Accepts(std::string_view text, Action action) {
  try {
    action();
    return true;
  } catch (const Error& error) {
    CheckError(error, text);
    return false;
  }
}

// Adds the tables that the plan creates, and compiles what waited for them.
void FollowPlan(const Plan& plan, const LexedBatch& lexed, std::string_view text,
                const CompileOptions& options, FixedCatalogue& catalogue) {
  for (const Step& step : plan.steps) {
    if (const auto* create = std::get_if<CreateTableStep>(&step.action)) {
      catalogue.Add(create->table);
    } else if (const auto* deferred = std::get_if<DeferredStep>(&step.action)) {
      Accepts(text, [&] {
        CheckPlan(CompileDeferred(lexed, plan.batch, *deferred->statement, catalogue, options), lexed);
      });
    }
  }
}

bool Compiles(std::string_view text, FixedCatalogue& catalogue) {
  const CompileOptions options{.identity_insert = "T", .temporary_suffix = "1"};
  return Accepts(text, [&] {
    const LexedBatch lexed = Lex(text);
    const LexedBatch shape = LexShape(text);
    Require(shape.shape == lexed.shape && shape.literals.size() == lexed.literals.size(),
            "two shapes of one batch");
    const auto batch = std::make_shared<const Batch>(Parse(lexed));
    const Plan plan = Compile(lexed, batch, catalogue, options);
    CheckPlan(plan, lexed);
    FollowPlan(plan, lexed, text, options, catalogue);
  });
}

const FixedCatalogue& Tables() {
  static const FixedCatalogue tables = [] {
    FixedCatalogue catalogue;
    Require(Compiles(kTables, catalogue) && catalogue.FindTable("ONETODATE"), "the tables do not compile");
    return catalogue;
  }();
  return tables;
}

}  // namespace
}  // namespace tarvoni::tsql

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  auto catalogue = tarvoni::tsql::Tables();
  tarvoni::tsql::Compiles(text, catalogue);
  return 0;
}
