#include "src/context/services/print_document.h"
#include "src/context/values/clock.h"
#include "suite/report_service.h"
#include "tests/suite/suite_testing.h"

namespace tarvoni {
namespace {

// What the preview shows of reports. Order 1 of client 1 has list L1 with three logs and L2 with one.
class PaperTest : public test::SuiteTest {
 protected:
  PaperTest() {
    toolkit.preview = [this](const PrintDocument& document) { paper = document; };
    db->Execute(
        "INSERT INTO PERSONAL (NUMMER, KURZBEZEICHNUNG, MANDANTEN) VALUES (500, 'Stift Waldau', 1)\n"
        "INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('STANDARD_HS', 1), ('STANDARD_HA', 1)\n"
        "INSERT INTO ARA_KOPF (NAME, PERSONAL_ID, ABRECHNUNGSMONAT, ABRECHNUNGSJAHR) VALUES ('0001', 1, 3, 2024)\n"
        "INSERT INTO LISTENKOPF (LISTE, ID_ARA_KOPF) VALUES ('L1', 1), ('L2', 1), ('L3', 2)\n"
        "INSERT INTO HOLZART (HA, HAGR1) VALUES ('FI', 'FI')\n"
        "INSERT INTO HOLZSORTE (HS, HSGR1, RUND) VALUES ('A', 'A', 1), ('B', 'B', 1), ('C', 'C', 1)\n"
        "INSERT INTO TARIFTABELLE (HS_GRUPPE, HA_GRUPPE, DM_VON, DM_BIS, LAENGE_VON, LAENGE_BIS, AZ, MZ) VALUES"
        " ('A', 'FI', 0, 99, 0, 9, 10, 4), ('B', 'FI', 0, 30, 0, 9, 10, 4), ('B', 'FI', 30, 99, 0, 9, 20, 0)\n"
        "INSERT INTO LOGS (LISTE, BLNR, ZUGANG, HA, HS, DURCH, LAENGE, STK, KUBATUR) VALUES"
        " ('L1', 1, 'HE', 'FI', 'A', 30, 4, 1, 1.505), ('L1', 2, 'HE', 'FI', 'B', 30, 4, 2, 2),"
        " ('L1', 3, 'HE', 'FI', 'C', 30, 4, 1, 1), ('L2', 1, 'HE', 'FI', 'A', 30, 4, 1, NULL),"
        " ('L2', 2, 'XX', 'FI', 'A', 30, 4, 1, 7), ('L3', 1, 'HE', 'FI', 'A', 30, 4, 1, 9)");
  }

  // A row by its columns' captions, parted by blanks.
  std::string Cells(std::size_t table, std::size_t row, const std::vector<std::string>& captions) {
    const PrintDocument::Table& shown = paper.tables.at(table);
    std::string text;
    for (std::size_t i = 0; i < shown.columns.size(); ++i) {
      if (std::ranges::find(captions, shown.columns[i].caption) != captions.end())
        text += CellText(shown, shown.rows.at(row), i, Locale::German()) + "|";
    }
    return text;
  }

  PrintDocument paper;
  suite::ReportService reports;
};

TEST_F(PaperTest, EstMarksLogsWithoutATariffAndThoseThatStandTwice) {
  reports.PrintGrid(context, "EST", "1", "", true);
  EXPECT_EQ(paper.issuer, "500 Stift Waldau");
  const std::vector<std::string> log = {"Bloch", "Stück", "FM", "AZ", "MZ", "Lohn", "Hinweis"};
  ASSERT_EQ(paper.tables.at(0).rows.size(), 10);
  EXPECT_EQ(Cells(0, 0, {"Bloch"}), "Liste L1|");
  // 10 and 4 by 1,505 metres; the second log meets both rows of its grade at 30 cm.
  EXPECT_EQ(Cells(0, 1, log), "1|1|1,51|15,05|6,02|21,07||");
  EXPECT_EQ(Cells(0, 2, log), "2|2|2,00|20,00|8,00|28,00|Tarif mehrfach|");
  EXPECT_EQ(Cells(0, 3, log), "2|2|2,00|40,00|0,00|40,00|Tarif mehrfach|");
  EXPECT_EQ(Cells(0, 4, log), "3|1|1,00|0,00|0,00|0,00|ohne Tarif|");
  // Its pieces and metres count once, its wages as they stand.
  EXPECT_EQ(Cells(0, 5, log), "Summe|4|4,51|75,05|14,02|89,07||");
  EXPECT_EQ(Cells(0, 7, log), "1|1||0,00|0,00|0,00||") << "no volume";
  EXPECT_EQ(Cells(0, 8, log), "Summe|1|0,00|0,00|0,00|0,00||");
}

TEST_F(PaperTest, EstSumsListsAndAllAndCountsWhatIsDoubtful) {
  reports.PrintGrid(context, "EST", "1", "", true);
  const std::vector<std::string> sums = {"Liste", "Bloche", "Stück", "FM", "AZ", "MZ", "Lohn"};
  ASSERT_EQ(paper.tables.at(1).rows.size(), 3);
  EXPECT_EQ(Cells(1, 0, sums), "L1|3|4|4,51|75,05|14,02|89,07|");
  EXPECT_EQ(Cells(1, 1, sums), "L2|1|1|0,00|0,00|0,00|0,00|");
  EXPECT_EQ(Cells(1, 2, sums), "Gesamt|4|5|4,51|75,05|14,02|89,07|");
  EXPECT_THAT(paper.remarks, testing::Contains("Ein Bloch hat keine Zeile im Tarif und ist nichts wert."));
  EXPECT_THAT(paper.remarks,
              testing::Contains("Ein Bloch trifft mehrere Zeilen im Tarif; der Lohn zählt mehrfach."));
  db->Execute("DELETE FROM LISTENKOPF");
  reports.PrintGrid(context, "EST", "1", "", true);
  EXPECT_EQ(paper.tables.at(0).rows.size(), 1) << "an order without logs has its total alone";
}

TEST_F(PaperTest, WhatIsNotThereIsToldInASentence) {
  for (const char* report : {"EST", "BRUTTO"})
    EXPECT_THROW(reports.PrintGrid(context, report, "77", "", true), CallError) << report;
  EXPECT_THROW(reports.PrintGrid(context, "ANDERS", "1", "", true), CallError);
  db->Execute("DELETE FROM OPTIONEN");
  EXPECT_THROW(reports.PrintGrid(context, "EST", "1", "", true), CallError) << "no grouping";
}

}  // namespace
}  // namespace tarvoni
