#include "host/error_report.h"

#include <gtest/gtest.h>

namespace tarvoni::host {
namespace {

TEST(ErrorReport, PutsTheCaretUnderThePlace) {
  const DatabaseError error(207, "Invalid column name 'NIX'.", 2, 8, "SELECT 1\nSELECT NIX FROM X\n");
  EXPECT_EQ(DescribeError(error),
            "Fehler 207: Invalid column name 'NIX'.\n"
            "Zeile 2: SELECT NIX FROM X\n"
            "                ^\n");
  EXPECT_EQ(DescribeError(error, 10),
            "Fehler 207: Invalid column name 'NIX'.\n"
            "Zeile 12: SELECT NIX FROM X\n"
            "                 ^\n");
}

TEST(ErrorReport, CountsCharactersNotBytes) {
  // 'F' stands behind 18 characters, of which one is two columns wide.
  EXPECT_EQ(DescribeError(DatabaseError(102, "x", 1, 19, "SELECT 'äöü', '林' FRM\r\n")),
            "Fehler 102: x\n"
            "Zeile 1: SELECT 'äöü', '林' FRM\n" +
                std::string(9 + 19, ' ') + "^\n");
  EXPECT_EQ(DescribeError(DatabaseError(102, "x", 1, 3, "\t\tX")),
            "Fehler 102: x\nZeile 1:   X\n           ^\n");
}

TEST(ErrorReport, CutsALongLineAroundThePlace) {
  const std::string statement = std::string(200, 'a') + "!" + std::string(200, 'b');
  EXPECT_EQ(DescribeError(DatabaseError(102, "x", 1, 201, statement)),
            "Fehler 102: x\nZeile 1: … " + std::string(60, 'a') + "!" + std::string(39, 'b') + " …\n" +
                std::string(9 + 2 + 60, ' ') + "^\n");
}

TEST(ErrorReport, ShowsNoPlaceWhereNoneIsKnown) {
  EXPECT_EQ(DescribeError(DatabaseError(50003, "Die Datei ist gesperrt.")),
            "Fehler 50003: Die Datei ist gesperrt.\n");
  EXPECT_EQ(DescribeError(DatabaseError(102, "x", 9, 1, "SELECT 1")), "Fehler 102: x\n");
  // A place behind the end of the line stays at its end.
  EXPECT_EQ(DescribeError(DatabaseError(102, "x", 1, 99, "AB")),
            "Fehler 102: x\nZeile 1: AB\n           ^\n");
}

}  // namespace
}  // namespace tarvoni::host
