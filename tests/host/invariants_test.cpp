#include "host/invariants.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <array>

#include "tests/host/demo_database.h"
#include "tests/support/sql.h"

namespace tarvoni::host {
namespace {

TEST(Invariants, HoldInTheDemo) {
  for (const Invariant& invariant : Invariants())
    EXPECT_EQ(Demo().Open(invariant.statement).RecordCount(), 0U) << invariant.sentence;
}

// What breaks each rule, in the order of the rules.
const auto kDamages = std::to_array<SqlText>({
    "DELETE FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = 1",
    "INSERT INTO ARBEITSAUFTRAG (QUELLE) VALUES ('A')",
    "INSERT INTO ARBEITSAUFTRAG (QUELLE, ID_STUNDENBUCH) VALUES ('B', 1)",
    "INSERT INTO ARBEITSAUFTRAG (QUELLE) VALUES ('B')",
    "INSERT INTO ARBEITSAUFTRAG (QUELLE) VALUES ('L')",
    "INSERT INTO ARA_STUNDEN (ID_ARA_KOPF) VALUES (1)",
    "UPDATE ARA_STUNDEN SET VERLOHNUNG = '20991231' WHERE ID = 1",
    "INSERT INTO ARA_LOHN (MENGEKLR) VALUES (1)",
    "INSERT INTO STUNDENBUCH (TAG) VALUES (1)",
    "INSERT INTO STUNDENBUCH_HEADER (ID_PERSONAL, JAHR, MONAT) "
    "SELECT ID_PERSONAL, JAHR, MONAT FROM STUNDENBUCH_HEADER WHERE ID = 1",
    "INSERT INTO LOHNABSCHLUSS (JAHR, MONAT, ASCHLUSS_L) VALUES (2024, 1, 0)",
    "UPDATE ARA_STUNDEN SET STUNDEN = STUNDEN + 1 WHERE ID = 1",
    "UPDATE ARBEITSAUFTRAG_KOPF SET NAME_NUMMER = 2 WHERE ID = 1",
    "INSERT INTO NATURALVOLLZUG_KLR (ID_VM) VALUES (1)",
    "INSERT INTO NATURALVOLLZUG_KLR (ID_ARA_LOHN) SELECT MIN(ID_ARA_LOHN) FROM NATURALVOLLZUG_KLR",
    "INSERT INTO NATURALVOLLZUG_KLR_WALDORT (ID_NATURALVOLLZUG_KLR, ID_WALDORT) "
    "SELECT ID_NATURALVOLLZUG_KLR, ID_WALDORT FROM NATURALVOLLZUG_KLR_WALDORT WHERE ID = 1",
    "INSERT INTO ARBEITSAUFTRAG (ORDERS) VALUES (1)",
    "INSERT INTO ARBEITSAUFTRAG_PLANN (MENGE) VALUES (1)",
    "INSERT INTO LAGER_POS (MENGE) VALUES (1)",
    "INSERT INTO BELEGE (NUMMER) VALUES ('ohne Position')",
    "UPDATE BELEGE SET STORNO = 1",
    "UPDATE ARBEITSAUFTRAG SET LAGERMENGE = 99999 WHERE QUELLE = 'L'",
    "INSERT INTO LISTENKOPF (LISTE) SELECT LISTE FROM LISTENKOPF WHERE ID = 1",
    "UPDATE PERSONAL SET ID_MANDANTEN = 1001 WHERE ID_PERSONAL = 1002",
    "INSERT INTO ONETODATE (TABLE_COLUMN, TABLE_ID) VALUES ('PERSONAL.DLS', 999999)",
    "INSERT INTO ONETOMANY (RELATION, ID_MASTER, ID_SLAVE) VALUES ('LEISTUNGSART.NUTZUNGSART', 1, 9999)",
});

TEST(Invariants, EachRuleFindsItsDamage) {
  ASSERT_EQ(kDamages.size(), Rules().size());
  for (std::size_t i = 0; i < kDamages.size(); ++i) {
    const DemoCopy copy;
    copy->Execute(kDamages[i]);
    EXPECT_GT(copy->Open(Rules()[i].statement).RecordCount(), 0U) << Rules()[i].sentence;
  }
}

TEST(Invariants, EachReferenceFindsADanglingRow) {
  const DemoCopy copy;
  for (const Reference& reference : References()) {
    const auto& [table, key, column, target, target_column, zero_is_none] = reference;
    copy->Execute(Sql(fmt::format("UPDATE {0} SET {2} = 987654 WHERE {1} = (SELECT MIN({1}) FROM {0})", table,
                                  key, column)));
    const Recordset rows = copy->Open(InvariantOf(reference).statement);
    ASSERT_GE(rows.RecordCount(), 1U) << table << '.' << column;
    EXPECT_EQ(ToDisplayText(rows.Fields()[column].Value()), "987654") << table << '.' << column;
  }
}

TEST(Invariants, ZeroStandsForNothingOnlyWhereItMay) {
  const DemoCopy copy;
  copy->Execute("UPDATE ARBEITSAUFTRAG_KOPF SET FORSTAMT = 0, ID_PA_GRUPPE = 0 WHERE ID = 1");
  for (const Reference& reference : References()) {
    if (reference.table != "ARBEITSAUFTRAG_KOPF") continue;
    const auto found = copy->Open(InvariantOf(reference).statement).RecordCount();
    EXPECT_EQ(found, reference.column == "ID_PA_GRUPPE" ? 1U : 0U) << reference.column;
  }
}

}  // namespace
}  // namespace tarvoni::host
