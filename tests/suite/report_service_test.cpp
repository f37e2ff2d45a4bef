#include "suite/report_service.h"

#include "src/context/data/statement.h"
#include "tests/host/demo_database.h"
#include "tests/suite/suite_testing.h"

namespace tarvoni {
namespace {

Decimal DecimalOf(const Value& value) {
  return NumberOf(value, Locale::German()).value_or(Decimal());
}

constexpr int kOrder = 5;
constexpr int kWorker = 7;

// Order 5 of time wage, by the options with wage types 1010 and 1020. Rates and wage groups change in March.
class OrderHours : public test::SuiteTest {
 protected:
  OrderHours() {
    db->Execute(
        "INSERT INTO LOHNARTEN (NUMBER, DLS_LG, SLA) VALUES (1010, 2, 1), (1020, 0, 0), (1310, 1, 1), (1520, "
        "NULL, 1)\n"
        "INSERT INTO ONETODATE (TABLE_COLUMN, TABLE_ID, DATUM, RATE) VALUES"
        " ('LOHNARTEN.SATZ', 1, '20240101', 1), ('LOHNARTEN.SATZ', 2, '20240101', 3.25),"
        " ('LOHNARTEN.SATZ', 2, '20240315', 3.5), ('LOHNARTEN.SATZ', 3, '20240101', 1.5),"
        " ('PERSONAL.DLS', 7, '20240101', 12.345)\n"
        "INSERT INTO ONETODATE (TABLE_COLUMN, TABLE_ID, DATUM, [TEXT]) VALUES"
        " ('PERSONAL.LOHNGRUPPE', 7, '20240101', 'LG 1'), ('PERSONAL.LOHNGRUPPE', 7, '20240316', 'LG 2')\n"
        "INSERT INTO LOHNGRUPPE (NAME, BETRAG, DATEWHILE) VALUES"
        " ('LG 1', 11.2, '20240101'), ('LG 1', 11.9, '20240310'), ('LG 2', 13, '20240101')\n"
        "INSERT INTO OPTIONEN (PROPERTY_ID, TEXT_VALUE) VALUES"
        " ('ZL_AZ', '1010'), ('ZL_MZ', '1020'), ('ZL_WZ', ''), ('EST_AZ', '1310'), ('STUCK_AZ', NULL)\n"
        "INSERT INTO BBF_GRUPPE (NUMBER) VALUES (1), (2)\n"
        "INSERT INTO RELTABLE (GRUPPE) VALUES (1), (2), (NULL)\n"
        "INSERT INTO ARBEITSAUFTRAG (ID_ARA_KOPF, LEISTUNG) VALUES (5, 1), (5, 1)");
  }

  void Add(int type, const char* day, double hours, int worker = kWorker, int order = kOrder,
           const char* month = "20240301") {
    db->Execute(
        Compose("INSERT INTO ARA_STUNDEN (ID_ARA_KOPF, ID_PERSONAL, ID_LOHNARTEN, BEARBEITUNG, VERLOHNUNG,"
                " STUNDEN, PROZENTSATZ) VALUES ({}, {}, {}, '{}', '{}', {}, 50)",
                Id(std::int64_t{order}), Id(std::int64_t{worker}), IdOrNull(std::int64_t{type}),
                Quoted(month), Quoted(day), Number(hours)));
  }

  Decimal Amount(bool flag) {
    Value result;
    bool given = flag;
    reports.PrintRows(context, kOrder, kWorker, 2024, 3, 10, given, result);
    EXPECT_EQ(given, flag);
    return DecimalOf(result);
  }

  suite::ReportService reports;
};

TEST_F(OrderHours, EachRowIsWorthTheRateOfItsDay) {
  Add(1, "20240309", 8);      // 8 x 11.20 = 89.60
  Add(1, "20240310", 8);      // the raise holds from its day: 8 x 11.90 = 95.20
  Add(1, "20240316", 1.005);  // another wage group, 1.01 hours: 1.01 x 13 = 13.13
  Add(2, "20240314", 2);      // 2 x 3.25 = 6.50, without SLA too
  Add(2, "20240315", 2);      // 2 x 3.50 = 7.00
  EXPECT_EQ(Amount(false), Decimal(21143, 2));
  EXPECT_EQ(Amount(true), Decimal());
}

TEST_F(OrderHours, FlagPartsTheGroupsWageTypesFromTheOthers) {
  Add(1, "20240309", 8);   // 89.60
  Add(3, "20240305", 3);   // 1.5 x 12.345 = 18.5175, so 3 x 18.52 = 55.56
  Add(4, "20240305", 10);  // no rate
  Add(0, "20240305", 10);  // no wage type
  EXPECT_EQ(Amount(false), Decimal(8960, 2));
  EXPECT_EQ(Amount(true), Decimal(5556, 2));
  db->Execute("UPDATE ARBEITSAUFTRAG SET LEISTUNG = 2");
  EXPECT_EQ(Amount(false), Decimal(5556, 2));
  EXPECT_EQ(Amount(true), Decimal(8960, 2));
  for (const std::int64_t no_group : {3, 0}) {
    db->Execute(Compose("UPDATE ARBEITSAUFTRAG SET LEISTUNG = {}", IdOrNull(no_group)));
    EXPECT_EQ(Amount(false), Decimal());
    EXPECT_EQ(Amount(true), Decimal(14516, 2));
  }
}

TEST_F(OrderHours, OnlyThisOrderWorkerAndMonthOfWork) {
  EXPECT_EQ(Amount(false), Decimal());
  Add(2, "20240315", 1);
  Add(2, "20240315", 1, kWorker + 1);
  Add(2, "20240315", 1, kWorker, kOrder + 1);
  Add(2, "20240315", 1, kWorker, kOrder, "20240201");
  Add(2, "20240315", 1, kWorker, kOrder, "20230301");
  EXPECT_EQ(Amount(false), Decimal(350, 2));
}

TEST_F(OrderHours, OtherReportsAreRefused) {
  bool flag = false;
  Value result;
  EXPECT_THROW(reports.PrintRows(context, 1, 1, 2024, 3, 8, flag, result), CallError);
}

// The demo works the totals of its orders out by itself.
TEST_F(OrderHours, AllWorkersAndMonthsMakeTheOrdersTotal) {
  context.dbAdo = std::shared_ptr<Connection>(&host::Demo(), [](Connection*) {});
  Recordset orders = context.dbAdo->Open("SELECT TOP 60 ID, GESAMNT FROM ARA_KOPF ORDER BY NAME_NUMMER, ID");
  for (; !orders.EndOfFile(); orders.MoveNext()) {
    const auto order = std::get<std::int64_t>(orders.Fields()["ID"].Value());
    Recordset months = context.dbAdo->Open(
        Compose("SELECT ID_PERSONAL, YEAR(BEARBEITUNG) AS Y, MONTH(BEARBEITUNG) AS M FROM ARA_STUNDEN"
                " WHERE ID_ARA_KOPF = {} GROUP BY ID_PERSONAL, YEAR(BEARBEITUNG), MONTH(BEARBEITUNG)",
                Id(order)));
    Decimal total;
    for (; !months.EndOfFile(); months.MoveNext()) {
      const auto field = [&](int i) {
        return static_cast<std::int32_t>(std::get<std::int64_t>(months.Fields()[i].Value()));
      };
      for (bool flag : {false, true}) {
        Value amount;
        reports.PrintRows(context, static_cast<std::int32_t>(order), field(0), field(1), field(2), 10, flag,
                          amount);
        total = tarvoni::Add(total, DecimalOf(amount)).value();
      }
    }
    EXPECT_EQ(total.Rounded(2), DecimalOf(orders.Fields()["GESAMNT"].Value())) << "order " << order;
  }
}

}  // namespace
}  // namespace tarvoni
