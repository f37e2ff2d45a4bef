#include "src/context/rules/hour_amount.h"

#include <gtest/gtest.h>

#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/data/statement.h"
#include "src/schema/schema.h"
#include "suite/report_service.h"

namespace tarvoni {
namespace {

constexpr int kGroupPaid = 1;    // factor of the wage group, rate offered, unit "Std", paid a month later
constexpr int kWithoutRate = 2;  // SLA 0, no factor
constexpr int kPersonal = 3;     // personal factor, rate not offered (CHK7 0)
constexpr int kTariff = 4;       // mode 3: 25 % of the tariff of stage 3
constexpr int kLowerStage = 5;   // mode 4: 50 % of the tariff of the lower stage
constexpr int kStageless = 6;    // mode 4 without a stage of its own
constexpr int kWorker = 7;       // wage group LG 1, then LG 2; pay group 5, stage 5
constexpr int kOther = 8;        // nothing is known of him

class Rates : public testing::Test {
 protected:
  Rates() {
    db->Execute(SchemaSql());
    db->Execute(
        "INSERT INTO EINHEIT (NAME) VALUES ('Std')\n"
        "INSERT INTO LOHNARTEN (NUMBER, DLS_LG, SLA, CHK7, EINHEIT, ZAHLUNGSVERSCHIEBUNG, BERECHNUNGSMODUS,"
        " ZUSCHLAGSPROZENT) VALUES (1010, 2, 1, 1, 1, 1, 1, NULL), (1020, NULL, 0, 1, NULL, NULL, NULL, "
        "NULL),"
        " (1030, 1, 1, 0, NULL, NULL, NULL, NULL), (1040, 0, 1, 1, NULL, NULL, 3, 25),"
        " (1050, 0, 1, 1, NULL, NULL, 4, 50), (1060, 0, 1, 1, NULL, NULL, 4, 50)\n"
        "INSERT INTO ONETODATE (TABLE_COLUMN, TABLE_ID, DATUM, RATE) VALUES"
        " ('LOHNARTEN.SATZ', 1, '20240101', 1), ('LOHNARTEN.SATZ', 2, '20240101', 3.25),"
        " ('LOHNARTEN.SATZ', 2, '20240315', 3.5), ('LOHNARTEN.SATZ', 3, '20240101', 1.5),"
        " ('PERSONAL.DLS', 7, '20240101', 12.345), ('LOHNARTEN.ENTWSTUFFE', 4, '20240101', 3),"
        " ('LOHNARTEN.ENTWSTUFFE', 5, '20240101', 3), ('PERSONAL.ENTWSTUFFE', 7, '20240101', 5),"
        " ('PERSONAL.ENTWSTUFFE', 7, '20240320', 2), ('PERSONAL.ENTGELDGRUPPE', 7, '20240101', 5)\n"
        "INSERT INTO ONETODATE (TABLE_COLUMN, TABLE_ID, DATUM, [TEXT]) VALUES"
        " ('PERSONAL.LOHNGRUPPE', 7, '20240101', 'LG 1'), ('PERSONAL.LOHNGRUPPE', 7, '20240316', 'LG 2')\n"
        "INSERT INTO LOHNGRUPPE (NAME, BETRAG, DATEWHILE) VALUES"
        " ('LG 1', 11.2, '20240101'), ('LG 1', 11.9, '20240310'), ('LG 2', 13, '20240318')\n"
        "INSERT INTO TSP_ENTGELTE (ENTGELDGRUPPE, ENTWSTUFFE, BETRAG, VALIDFROM) VALUES"
        " (5, 3, 2400, '20240101'), (5, 3, 2480, '20240312'), (5, 2, 2240, '20240101'),"
        " (5, 5, 3200, '20240101'), (6, 3, 9999, '20240101')\n"
        "INSERT INTO BB_T_MONAT (NUMMER, JAHR, SOLL_STUNDENVORGABE) VALUES ('3', '2024', 160)");
  }

  std::string One(const SqlText& statement) {
    const Recordset row = db->Open(statement);
    std::string text;
    if (row.EndOfFile()) return text;
    for (int i = 0; i < row.Fields().Count(); ++i) {
      text += (i > 0 ? " " : "") + ToDisplayText(row.Fields()[i].Value());
    }
    return text;
  }

  // Rate and value of a stored row.
  std::string Stored(int type, const char* day, double hours, int worker = kWorker) {
    db->Execute(
        Compose("DELETE FROM ARA_STUNDEN\nINSERT INTO ARA_STUNDEN (ID_PERSONAL, ID_LOHNARTEN, VERLOHNUNG,"
                " STUNDEN) VALUES ({}, {}, '{}', {})",
                Id(worker), Id(type), Quoted(day), Number(hours)));
    return One(Compose(
        "SELECT {},{} FROM ARA_STUNDEN LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN",
        hour_amount::StoredRate(), hour_amount::StoredValue()));
  }

  // Unit, rate and shift.
  std::string Offered(int type, int day, int worker = kWorker) {
    return One(hour_amount::OfferedRate(std::to_string(type), std::to_string(worker),
                                        DateTime{.year = 2024, .month = 3, .day = day}, "yyyymmdd"));
  }

  // Rate and amount of a line of the journal; the rate of the entry must be the same.
  std::string Journal(int type, int day, double hours = 1, int worker = kWorker, const char* month = "3") {
    db->Execute(
        Compose("DELETE FROM STUNDENBUCH\nDELETE FROM STUNDENBUCH_HEADER\n"
                "INSERT INTO STUNDENBUCH_HEADER (ID_PERSONAL) VALUES ({})\n"
                "INSERT INTO STUNDENBUCH (ID_LOHNARTEN, TAG, STUNDEN, VERLOHNUNG) VALUES ({}, {}, {},"
                " '20240{}01')",
                Id(worker), Id(type), Id(day), Number(hours), Quoted(month)));
    const std::string line = One(Compose(R"(
SELECT {} AS SATZ,{} AS BETRAG
FROM STUNDENBUCH
LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = STUNDENBUCH.ID_LOHNARTEN
CROSS JOIN STUNDENBUCH_HEADER)",
                                         hour_amount::JournalRate(), hour_amount::JournalAmount()));
    const Recordset entry = db->Open(hour_amount::JournalEntryRate(
        std::to_string(type), std::to_string(worker), "2024", month, std::to_string(day)));
    EXPECT_EQ(ToDisplayText(entry.Fields()["SATZ"].Value()), line.substr(0, line.find(' ')));
    return line;
  }

  std::shared_ptr<Connection> db = sqlite::OpenDatabase(":memory:", {.create = true});
};

TEST_F(Rates, LatestRateThatIsNotAfterTheDay) {
  EXPECT_EQ(Stored(kGroupPaid, "20240309", 8), "11.2 89.6");
  EXPECT_EQ(Stored(kGroupPaid, "20240310", 8), "11.9 95.2") << "a rate of the very day applies";
  EXPECT_EQ(Stored(kGroupPaid, "20231231", 8), "0 0") << "no rate yet";
  EXPECT_EQ(Stored(kWithoutRate, "20240314", 2), "NULL 6.5") << "the value does not ask for SLA";
  EXPECT_EQ(Stored(kWithoutRate, "20240315", 2), "NULL 7");
}

TEST_F(Rates, WageGroupIsFoundInTwoDatedSteps) {
  EXPECT_EQ(Stored(kGroupPaid, "20240316", 1), "0 0") << "the new group has no amount before the 18th";
  EXPECT_EQ(Stored(kGroupPaid, "20240318", 1), "13 13");
  EXPECT_EQ(Stored(kGroupPaid, "20240318", 1, kOther), "0 0");
  EXPECT_EQ(Stored(kPersonal, "20240318", 1, kOther), "0 0") << "no personal factor counts as 0";
}

TEST_F(Rates, HoursAndRateAreRoundedBeforeTheyAreMultiplied) {
  EXPECT_EQ(Stored(kPersonal, "20240301", 3), "18.5175 55.56") << "3 x 18.52, the rate itself is not rounded";
  EXPECT_EQ(Stored(kWithoutRate, "20240301", 1.005), "NULL 3.2825") << "1.01 x 3.25";
}

TEST_F(Rates, EntryOffersARateForBothFlagsOnly) {
  EXPECT_EQ(Offered(kGroupPaid, 10), "Std 11.9 1");
  EXPECT_EQ(Offered(kWithoutRate, 10), "NULL NULL 0");
  EXPECT_EQ(Offered(kPersonal, 10), "NULL NULL 0") << "a rate in the list, none on entry";
  EXPECT_EQ(One(hour_amount::OfferedRate("", "7", DateTime{2024, 3, 1}, "yyyymmdd")), "")
      << "no wage type, no row";
  EXPECT_EQ(Offered(kGroupPaid, 10, kOther), "Std 0 1");
}

TEST_F(Rates, JournalRateIsRoundedInTheStatement) {
  EXPECT_EQ(Journal(kGroupPaid, 9, 8), "11.2 89.6");
  EXPECT_EQ(Journal(kGroupPaid, 10, 8), "11.9 95.2");
  EXPECT_EQ(Journal(kPersonal, 1, 3), "18.52 55.56");
  EXPECT_EQ(Journal(kWithoutRate, 15, 2), "3.5 7") << "neither SLA nor CHK7 matters";
}

TEST_F(Rates, TariffModes) {
  EXPECT_EQ(Journal(kTariff, 11), "3.75 3.75") << "25 x 2400 / 160 / 100";
  EXPECT_EQ(Journal(kTariff, 12), "3.88 3.88") << "25 x 2480 / 160 / 100 = 3.875";
  EXPECT_EQ(Journal(kLowerStage, 11), "7.5 7.5") << "wage type 3, worker 5: 50 x 2400 / 160 / 100";
  EXPECT_EQ(Journal(kLowerStage, 20), "7 7") << "wage type 3, worker 2: 50 x 2240 / 160 / 100";
  EXPECT_EQ(Journal(kStageless, 11), "NULL NULL") << "the missing stage is chosen, and no tariff has it";
  EXPECT_EQ(Journal(kTariff, 11, 1, kOther), "NULL NULL") << "no pay group";
  EXPECT_EQ(Journal(kTariff, 11, 1, kWorker, "4"), "NULL NULL") << "no target hours";
  db->Execute("UPDATE BB_T_MONAT SET SOLL_STUNDENVORGABE = 0");
  EXPECT_THROW(Journal(kTariff, 11), DatabaseError);
}

// The suite's report adds up what the list of hours shows.
TEST_F(Rates, ReportOfAnOrderIsTheSumOfItsRows) {
  db->Execute(
      "INSERT INTO OPTIONEN (PROPERTY_ID, TEXT_VALUE) VALUES ('ZL_AZ', '1010')\n"
      "INSERT INTO BBF_GRUPPE (NUMBER) VALUES (1)\nINSERT INTO RELTABLE (GRUPPE) VALUES (1)\n"
      "INSERT INTO ARBEITSAUFTRAG (ID_ARA_KOPF, LEISTUNG) VALUES (5, 1)\n"
      "INSERT INTO ARA_STUNDEN (ID_ARA_KOPF, ID_PERSONAL, ID_LOHNARTEN, BEARBEITUNG, VERLOHNUNG, STUNDEN) "
      "VALUES"
      " (5, 7, 1, '20240301', '20240309', 7.125), (5, 7, 2, '20240301', '20240315', 1.005),"
      " (5, 7, 3, '20240301', '20240301', 3), (5, 7, 1, '20240301', '20240318', 8)");
  TvnVar_Dll context;
  context.dbAdo = db;
  suite::ReportService reports;
  Decimal total;
  for (bool flag : {false, true}) {
    Value amount;
    reports.PrintRows(context, 5, kWorker, 2024, 3, 10, flag, amount);
    total = Add(total, std::get<Decimal>(amount)).value();
  }
  EXPECT_EQ(ToDisplayText(total), One(Compose(R"(
SELECT SUM(WERT)
FROM (SELECT {} AS WERT
      FROM ARA_STUNDEN
      LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN) ROWS)",
                                              hour_amount::StoredValue())));
}

}  // namespace
}  // namespace tarvoni
