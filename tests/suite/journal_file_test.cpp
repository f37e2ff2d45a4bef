#include <filesystem>
#include <fstream>

#include "src/wage/f_bruttolohn.h"
#include "suite/tarvoni_suite.h"
#include "tests/suite/suite_testing.h"

namespace tarvoni {
namespace {

std::string Content(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class JournalFile : public test::SuiteTest {};

// Nothing on the Screen calls the routine.
TEST_F(JournalFile, HoldsTheStatementAndTheRowsOfTheList) {
  db->Execute(
      "INSERT INTO STUNDENBUCH_HEADER (JAHR, MONAT) VALUES (2024, 3)\n"
      "INSERT INTO STUNDENBUCH (ID_STUNDENBUCH, TAG, VERLOHNUNG, STUNDEN) VALUES (1, 5, '20240301', 7.5), (1, 6, "
      "'20240301', 8)");
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "journal_file";
  std::filesystem::create_directories(folder);
  const std::filesystem::path file = folder / "BruttoLohn.sql";
  std::ofstream(file) << "what was there";
  TarvoniSuite real;
  environment.suite = &real;
  context.strWorkDirectory = folder.string();
  toolkit.script = [](UserActions& user) {
    dynamic_cast<F_Bruttolohn&>(user.Screen()).WriteListToFile();
    user.Close();
  };
  F_Bruttolohn screen;
  screen.Run(context, 1);
  const std::string text = Content(file);
  EXPECT_THAT(text, testing::StartsWith("SELECT STUNDENBUCH.ID,"));
  EXPECT_THAT(text, testing::HasSubstr("WHERE STUNDENBUCH_HEADER.ID = 1\r\n\r\nID;JAHR;MONAT;FWJ;"));
  EXPECT_THAT(text, testing::HasSubstr(";SATZ;PROZENTSATZ;BETRAG;\r\n1;2024;3;;"))
      << "captions end with BETRAG";
  EXPECT_THAT(text, testing::HasSubstr("\r\n2;2024;3;;"));
  EXPECT_THAT(text, testing::EndsWith("\r\n"));
  EXPECT_THAT(toolkit.prompts, testing::ElementsAre(file.string())) << "the path is told";
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tarvoni
