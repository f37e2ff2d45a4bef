#include "src/context/rules/est_pricing.h"

#include <gtest/gtest.h>

#include "platform/sqlite/public/sqlite_database.h"
#include "src/schema/schema.h"

namespace tarvoni {
namespace {

// Order 1 with a list whose one log, a spruce of 2 solid and 3 stacked cubic metres, split by 30 %, costs 10 and 4 a unit.
class EstPricing : public testing::Test {
 protected:
  EstPricing() {
    db->Execute(SchemaSql());
    db->Execute(
        "INSERT INTO ARA_KOPF (NAME) VALUES ('1')\n"
        "INSERT INTO HOLZART (HA, HAGR1) VALUES ('FI', 'fi')\n"
        "INSERT INTO HOLZSORTE (HS, HSGR2, RUND) VALUES ('A', 'sag', 1)\n"
        "INSERT INTO LISTENKOPF (LISTE, ID_ARA_KOPF, ZUSCHLAG_A, A_FICHTE, M_FICHTE) VALUES ('L', 1, 10, 5, 2)\n"
        "INSERT INTO SONDERZ (LISTE, MERKM, VALUE1) VALUES ('L', 'STEIL', 3)\n"
        "INSERT INTO LOGS (LISTE, BLNR, ZUGANG, HA, HS, DURCH, LAENGE, KUBATUR, KUBRM, SPALT, EST) VALUES"
        " ('L', 1, 'HE', 'FI', 'A', 30, 4, 2, 3, 30, 'STEIL')\n"
        "INSERT INTO TARIFTABELLE (HS_GRUPPE, HA_GRUPPE, EST_MERKMAL, DM_VON, DM_BIS, LAENGE_VON, LAENGE_BIS, AZ, MZ)"
        " VALUES ('SAG', 'FI', 'steil', 30, 39, 1, 4, 10, 4)");
  }

  // AZ, MZ, FM, RM of the log in each row after a change of its tariff row.
  std::string After(const char* tariff) {
    db->Execute(SqlText::Verbatim(std::string("UPDATE TARIFTABELLE SET ") + tariff));
    std::string all;
    for (Recordset rows = db->Open(est_pricing::LogsOfOrder(1, {.grade = 2, .species = 1}));
         !rows.EndOfFile(); rows.MoveNext()) {
      if (!all.empty()) all += " | ";
      for (const char* column : {"AZ", "MZ", "FM", "RM"})
        all += ToDisplayText(rows.Fields()[column].Value()) + " ";
    }
    return all;
  }

  std::shared_ptr<Connection> db = sqlite::OpenDatabase(":memory:", {.create = true});
};

TEST_F(EstPricing, VolumeShareAndSurchargesMakeThePrice) {
  // 10 x 2 x 1.03 = 20.60 and 4 x 2 x 1.03 = 8.24: only the mark's surcharge, on all of the log.
  EXPECT_EQ(After("ZUSA = 0"), "20.6 8.24 2 3 ");
  // 70 % of 3 stacked metres, which is what the tariff pays: 10 x 2.1 x 1.18 = 24.78, 4 x 2.1 x 1.15 = 9.66.
  EXPECT_EQ(After("ZUSA = 1, ZUSB = 1, SP = 0, FM = 0"), "24.78 9.66 1.4 2.1 ");
  // The split 30 % of 2 solid metres: 10 x 0.6 x 1.18 = 7.08, 4 x 0.6 x 1.15 = 2.76.
  EXPECT_EQ(After("SP = 1, FM = NULL"), "7.08 2.76 0.6 0.9 ");
}

TEST_F(EstPricing, BoundsCountAndNothingIsChosenAmongRows) {
  EXPECT_EQ(After("DM_VON = 31"), "0 0 2 3 ");
  EXPECT_EQ(After("DM_VON = 20, DM_BIS = 30"), "20.6 8.24 2 3 ");
  EXPECT_EQ(After("RUECKEZUST = 'R'"), "0 0 2 3 ");
  db->Execute("INSERT INTO SONDERZ (LISTE, MERKM, VALUE1) VALUES ('L', 'STEIL', 0)");
  EXPECT_EQ(After("RUECKEZUST = NULL"), "20.6 8.24 2 3  | 20 8 2 3 ");
}

}  // namespace
}  // namespace tarvoni
