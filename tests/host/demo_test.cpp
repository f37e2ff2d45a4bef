#include "host/demo/demo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "host/open_database.h"
#include "src/schema/schema.h"
#include "tests/host/demo_database.h"
#include "tests/support/sql.h"

namespace tarvoni::host {
namespace {

std::int64_t Number(const std::string& statement) {
  const Recordset rows = Demo().Open(Sql(statement));
  return std::get<std::int64_t>(rows.Fields()[0].Value());
}

TEST(Demo, IsTheSameEachTime) {
  const auto again = OpenDatabase(":memory:", OpenMode::kCreate);
  demo::BuildDemo(*again);
  for (const std::string& table : SchemaTables()) {
    const std::string statement = "SELECT * FROM " + table;
    Recordset first = Demo().Open(Sql(statement));
    Recordset second = again->Open(Sql(statement));
    ASSERT_EQ(first.RecordCount(), second.RecordCount()) << table;
    if (first.RecordCount() > 0) {
      EXPECT_TRUE(first.GetRows() == second.GetRows()) << table;
    }
  }
}

// Only what the users themselves leave behind is empty.
TEST(Demo, FillsEveryTable) {
  for (const std::string& table : SchemaTables()) {
    if (table == "GITTERLAYOUT") continue;
    EXPECT_GT(Number("SELECT COUNT(*) FROM " + table), 0) << table;
  }
}

TEST(Demo, HasAnEnterpriseOfTheStatedSize) {
  EXPECT_EQ(Number("SELECT COUNT(*) FROM PERSONAL WHERE MANDANTEN = 1"), 3);
  EXPECT_EQ(Number("SELECT COUNT(*) FROM ARA_KOPF WHERE PERSONAL_ID = 1 AND NAME_FWJ = '2024'"), 200);
  EXPECT_EQ(Number("SELECT COUNT(*) FROM TARIFTABELLE"), 200);
  EXPECT_NEAR(static_cast<double>(Number("SELECT COUNT(*) FROM PERSONAL WHERE ANGEMELDET = 1")), 40, 3);
}

TEST(Demo, TotalOfAnOrderIsWhatItsHoursAreWorth) {
  const std::string rate =
      "ISNULL((SELECT TOP 1 ONETODATE.RATE FROM ONETODATE WHERE ONETODATE.TABLE_COLUMN = 'LOHNARTEN.SATZ' "
      "AND ONETODATE.TABLE_ID = LOHNARTEN.ID AND ONETODATE.DATUM <= ARA_STUNDEN.VERLOHNUNG "
      "ORDER BY ONETODATE.DATUM DESC),0)";
  const std::string factor =
      "(CASE LOHNARTEN.DLS_LG WHEN 1 THEN ISNULL((SELECT TOP 1 ONETODATE.RATE FROM ONETODATE "
      "WHERE ONETODATE.TABLE_COLUMN = 'PERSONAL.DLS' AND ONETODATE.TABLE_ID = ARA_STUNDEN.ID_PERSONAL "
      "AND ONETODATE.DATUM <= ARA_STUNDEN.VERLOHNUNG ORDER BY ONETODATE.DATUM DESC),0) "
      "WHEN 2 THEN ISNULL((SELECT TOP 1 LOHNGRUPPE.BETRAG FROM LOHNGRUPPE WHERE LOHNGRUPPE.NAME IN "
      "(SELECT TOP 1 ONETODATE.TEXT FROM ONETODATE WHERE ONETODATE.TABLE_COLUMN = 'PERSONAL.LOHNGRUPPE' "
      "AND ONETODATE.TABLE_ID = ARA_STUNDEN.ID_PERSONAL AND ONETODATE.DATUM <= ARA_STUNDEN.VERLOHNUNG "
      "ORDER BY ONETODATE.DATUM DESC) AND LOHNGRUPPE.DATEWHILE <= ARA_STUNDEN.VERLOHNUNG "
      "ORDER BY LOHNGRUPPE.DATEWHILE DESC),0) ELSE 1 END)";
  const std::string sums =
      "SELECT W.ID_ARA_KOPF, ROUND(SUM(W.WERT),2) AS WERT FROM (SELECT ARA_STUNDEN.ID_ARA_KOPF, "
      "ROUND(ARA_STUNDEN.STUNDEN,2)*ROUND(" +
      rate + "*" + factor +
      ",2) AS WERT FROM ARA_STUNDEN "
      "INNER JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN) W GROUP BY W.ID_ARA_KOPF";
  const Recordset wrong = Demo().Open(Sql("SELECT K.ID, K.GESAMNT, S.WERT FROM ARA_KOPF K INNER JOIN (" +
                                          sums + ") S ON S.ID_ARA_KOPF = K.ID WHERE K.GESAMNT <> S.WERT"));
  EXPECT_EQ(wrong.RecordCount(), 0U);
  EXPECT_EQ(Number("SELECT COUNT(*) FROM ARA_KOPF WHERE ISNULL(GESAMNT,0) = 0"), 0);
}

TEST(Demo, RatesChangeBetweenTheHours) {
  EXPECT_GT(
      Number("SELECT COUNT(*) FROM ARA_STUNDEN WHERE VERLOHNUNG < '20240301' AND VERLOHNUNG >= '20240101'"),
      0);
  EXPECT_GT(Number("SELECT COUNT(*) FROM ARA_STUNDEN WHERE VERLOHNUNG >= '20240301'"), 0);
  EXPECT_GT(
      Number(
          "SELECT COUNT(*) FROM ONETODATE WHERE TABLE_COLUMN = 'PERSONAL.LOHNGRUPPE' AND DATUM > '20240101'"),
      0);
  EXPECT_EQ(Number("SELECT MAX(JAHR*100+MONAT) FROM LOHNABSCHLUSS WHERE ASCHLUSS_L = 1"), 202402);
}

// The volume of a log follows from its size; poles and stacks have many pieces.
TEST(Demo, VolumeFollowsFromDiameterAndLength) {
  Recordset logs = Demo().Open("SELECT DURCH, LAENGE, STK, KUBATUR FROM LOGS");
  ASSERT_GT(logs.RecordCount(), 1000U);
  for (; !logs.EndOfFile(); logs.MoveNext()) {
    const double diameter = static_cast<double>(std::get<std::int64_t>(logs.Fields()["DURCH"].Value())) / 100;
    const double length = std::get<Decimal>(logs.Fields()["LAENGE"].Value()).ToDouble();
    const auto pieces = static_cast<double>(std::get<std::int64_t>(logs.Fields()["STK"].Value()));
    const double volume = std::get<Decimal>(logs.Fields()["KUBATUR"].Value()).ToDouble();
    ASSERT_NEAR(volume, pieces * M_PI / 4 * diameter * diameter * length, 0.00501);
  }
}

TEST(Demo, NobodyWorksOnTwoOrdersOnOneDay) {
  EXPECT_EQ(Demo()
                .Open("SELECT ID_PERSONAL, VERLOHNUNG FROM ARA_STUNDEN GROUP BY ID_PERSONAL, VERLOHNUNG "
                      "HAVING COUNT(DISTINCT ID_ARA_KOPF) > 1")
                .RecordCount(),
            0U);
}

TEST(Demo, NamesAreComposedOfTheirParts) {
  EXPECT_EQ(Demo()
                .Open("SELECT K.NAME FROM ARA_KOPF K INNER JOIN ARBEITSAUFTRAG A ON A.ID_ARA_KOPF = K.ID "
                      "INNER JOIN KOSTENSTELLE S ON S.ID = A.KOSTENSTELLE_ID WHERE K.NAME <> "
                      "CAST(S.NUMBER AS VARCHAR(10)) + K.NAME_FWJ + RIGHT('0000' + CAST(K.NAME_NUMMER AS "
                      "VARCHAR(10)),4)")
                .RecordCount(),
            0U);
  EXPECT_EQ(Demo()
                .Open("SELECT K.NAME FROM ARBEITSAUFTRAG_KOPF K INNER JOIN PERSONAL P ON P.ID_PERSONAL = "
                      "K.PERSONAL_ID "
                      "WHERE K.NAME <> CAST(P.NUMMER AS VARCHAR(10)) + K.NAME_FWJ + K.NAME_REVIER + "
                      "RIGHT('0000' + CAST(K.NAME_NUMMER AS VARCHAR(10)),4)")
                .RecordCount(),
            0U);
}

TEST(Demo, MostLogsOfEstOrdersFindOneRowOfTheTariff) {
  Recordset matches = Demo().Open(
      "SELECT COUNT(DISTINCT LOGS.ID_LOG) AS LOGS, COUNT(TARIFTABELLE.ID) AS ROWS_FOUND, "
      "COUNT(DISTINCT CASE WHEN TARIFTABELLE.ID IS NULL THEN NULL ELSE LOGS.ID_LOG END) AS PRICED FROM LOGS "
      "INNER JOIN HOLZSORTE ON LOGS.HS = HOLZSORTE.HS INNER JOIN HOLZART ON LOGS.HA = HOLZART.HA "
      "LEFT JOIN TARIFTABELLE ON TARIFTABELLE.HS_GRUPPE = HOLZSORTE.HSGR1 "
      "AND ((HOLZSORTE.RUND = 1 OR HOLZSORTE.SCHICHT = 1) AND (LOGS.DURCH BETWEEN DM_VON AND DM_BIS) "
      "AND (LOGS.LAENGE BETWEEN LAENGE_VON AND LAENGE_BIS) OR (HOLZSORTE.STANG = 1 AND ISNULL(LOGS.STKL,'') "
      "= "
      "ISNULL(TARIFTABELLE.STANGEN_STKL,''))) AND TARIFTABELLE.HA_GRUPPE = HOLZART.HAGR1 "
      "AND ISNULL(RINDENZUST,'') = ISNULL(LOGS.MEFVERF,'') AND ISNULL(RUECKEZUST,'') = ISNULL(LOGS.RUCKE,'') "
      "AND ISNULL(EST_MERKMAL,'') = ISNULL(LOGS.EST,'')");
  const auto cell = [&matches](const char* name) {
    return std::get<std::int64_t>(matches.Fields()[name].Value());
  };
  EXPECT_EQ(cell("ROWS_FOUND"), cell("PRICED"));  // never two for one log
  EXPECT_GT(cell("PRICED"), cell("LOGS") * 9 / 10);
  EXPECT_LT(cell("PRICED"), cell("LOGS"));
}

TEST(Demo, ProgressRunsFromNothingToAll) {
  const auto connection = OpenDatabase(":memory:", OpenMode::kCreate);
  std::vector<double> seen;
  demo::BuildDemo(*connection, {.scale = 1, .progress = [&seen](double done) { seen.push_back(done); }});
  ASSERT_GT(seen.size(), 5U);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
  EXPECT_EQ(seen.back(), 1);
}

}  // namespace
}  // namespace tarvoni::host
