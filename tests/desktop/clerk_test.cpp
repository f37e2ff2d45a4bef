#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <fstream>

#include "host/demo_database.h"
#include "host/desktop/main_window.h"
#include "host/open_database.h"
#include "src/context/values/clock.h"
#include "tests/desktop/desktop_testing.h"
#include "tests/support/sql.h"

namespace tarvoni::host {
namespace {

using testing::ElementsAre;

std::vector<std::string> Rows(Connection& connection, const std::string& statement) {
  std::vector<std::string> rows;
  const Recordset read = connection.Open(Sql(statement));
  for (Recordset row = read; !row.EndOfFile(); row.MoveNext()) {
    std::string text;
    for (int i = 0; i < row.Fields().Count(); ++i) {
      text += (i > 0 ? " " : "") + ToDisplayText(row.Fields()[i].Value());
    }
    rows.push_back(text);
  }
  return rows;
}

// A line of the worker on the 5th of March, as far as the hours.
void EnterHours(Typist& clerk, const std::string& worker, const std::string& hours) {
  clerk.Type("\n\n5.3.\n").Type(worker + "\n").Type("\n\n\n").Type(hours + "\n");
}

// From the list of clients to a wage order with five workers' hours, mistyped, corrected and given up in between.
TEST(Clerk, EntersAnOrderWithFiveWorkersFromTheKeyboard) {
  QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  const QString file = folder.filePath("demo.db");
  MakeDemoDatabase(file.toStdString(), {});
  const auto database = OpenDatabase(file.toStdString());
  database->Execute("DELETE FROM LOHNABSCHLUSS");
  Clock::Set({.year = 2024, .month = 3, .day = 15});
  MainWindow window;
  window.show();
  window.activateWindow();
  window.Open(file);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

  Typist clerk;
  clerk.Key(Qt::Key_Return);  // the client, and with him the orders
  clerk.Key(Qt::Key_Insert);
  clerk.Type("\nZX\n").Key(Qt::Key_Return);  // no such service: the box tells it
  clerk.Type("ZL\n1\n1100\n2\n2050\n\n").Type("Wertastung\t");
  clerk.Type("1.5x\n").Key(Qt::Key_Backspace).Type("\n").Do([] {
    EXPECT_EQ(Typist::Text("txtFlache"), "1,5000");
  });
  clerk.Key(Qt::Key_S, Qt::ControlModifier);
  clerk.Key(Qt::Key_U, Qt::AltModifier);  // "Stunden"
  const auto enter = [&clerk](const char* worker, const char* hours) { EnterHours(clerk, worker, hours); };
  clerk.Key(Qt::Key_Insert);
  enter("10001", "7.5");
  clerk.Do([] { EXPECT_EQ(Typist::Text("txtStunden"), "7,50"); });
  clerk.Key(Qt::Key_Return, Qt::ControlModifier);  // saved, and the next one
  enter("10002", "8");
  clerk.Key(Qt::Key_Return, Qt::ControlModifier);
  enter("10003", "6,25");
  clerk.Key(Qt::Key_Return, Qt::ControlModifier);
  enter("10004", "8+0");  // the 0 does not count
  clerk.Do([] { EXPECT_EQ(Typist::Text("txtStunden"), "8"); });
  clerk.Key(Qt::Key_S, Qt::ControlModifier).Key(Qt::Key_Backspace).Key(Qt::Key_Backspace).Type("0\n");
  clerk.Key(Qt::Key_S, Qt::ControlModifier);
  clerk.Key(Qt::Key_F2);  // 80 was 8
  clerk.Type("\n\n\n\n\n\n\n\n\n8\n").Do([] { EXPECT_EQ(Typist::Text("txtStunden"), "8,00"); });
  clerk.Key(Qt::Key_S, Qt::ControlModifier);
  clerk.Key(Qt::Key_Insert);
  enter("10006", "3");  // the wrong worker: given up
  clerk.Key(Qt::Key_Escape).Key(Qt::Key_Left).Key(Qt::Key_Space);
  clerk.Key(Qt::Key_Insert);
  enter("10005", "4.5");
  clerk.Key(Qt::Key_S, Qt::ControlModifier);
  clerk.Key(Qt::Key_Escape);
  clerk.Do([] { EXPECT_EQ(Typist::Text("txtGesamtKosten"), "483,58"); });
  clerk.Key(Qt::Key_Escape);
  clerk.Run();
  Clock::Reset();

  EXPECT_THAT(
      Rows(*database,
           "SELECT PERSONAL.NUMMER, ARA_STUNDEN.STUNDEN, DAY(VERLOHNUNG), MONTH(VERLOHNUNG) FROM ARA_STUNDEN "
           "INNER JOIN PERSONAL ON PERSONAL.ID_PERSONAL = ARA_STUNDEN.ID_PERSONAL "
           "WHERE ID_ARA_KOPF = (SELECT MAX(ID) FROM ARA_KOPF) ORDER BY ARA_STUNDEN.ID"),
      ElementsAre("10001 7.5 5 3", "10002 8 5 3", "10003 6.25 5 3", "10004 8 5 3", "10005 4.5 5 3"));
  // Two workers in wage group 3 (14,84), two in 2 (13,92), one in 1 (12,99): 15,5 x 14,84 + 10,75 x 13,92 + 8 x 12,99.
  EXPECT_THAT(
      Rows(*database,
           "SELECT NAME, GESAMNT, BESCHREIBUNG FROM ARA_KOPF WHERE ID = (SELECT MAX(ID) FROM ARA_KOPF)"),
      ElementsAre("110020240201 483.58 Wertastung"));
}

// From the first page, with nothing on it, to an enterprise of one's own and its first wage order.
TEST(Clerk, ComesFromTheEmptyFirstPageToAnOrderOfHisOwn) {
  QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QSettings("Tarvoni", "Lohn").clear();
  const QString file = folder.filePath("hof.db");
  const QString taken = folder.filePath("alt.db");
  std::ofstream(taken.toStdString()) << "a year's work";
  Clock::Set({.year = 2024, .month = 3, .day = 15});
  MainWindow window;
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

  Typist clerk;
  const QString details = "Eigenen Betrieb anlegen", file_choice = "Datei des Betriebs";
  clerk.Key(Qt::Key_Return).AwaitWindow(details);
  clerk.Type("Hof Hagenwald\t\t\t\t\t")
      .Type("Huber Anna\nMaier Karl\t\t\t\t")
      .Key(Qt::Key_Return)
      .AwaitWindow(file_choice);
  clerk.Key(Qt::Key_Escape).AwaitWindow(details);  // no file yet: what was typed is still there
  const auto type_file = [](const QString& name) {
    return [name] { qobject_cast<QLineEdit*>(QApplication::focusWidget())->setText(name); };
  };
  clerk.Key(Qt::Key_Return).AwaitWindow(file_choice).Do(type_file(taken));
  clerk.Key(Qt::Key_Return).AwaitWindow("Tarvoni Lohn").Key(Qt::Key_Return);  // it is told to be there
  clerk.AwaitWindow(file_choice).Do(type_file(file.chopped(3)));              // the ending is added
  clerk.Key(Qt::Key_Return).AwaitWindow("hof.db");
  clerk.Key(Qt::Key_Return).AwaitWindow("Arbeitsaufträge");  // the client, and with him the orders
  clerk.Key(Qt::Key_Insert).Type("\nZL\n\n1000\n\n\n\n").Type("Erste Arbeit\t");
  clerk.Key(Qt::Key_S, Qt::ControlModifier);
  clerk.Key(Qt::Key_U, Qt::AltModifier);  // "Stunden"
  clerk.Key(Qt::Key_Insert);
  EnterHours(clerk, "10001", "7.5");
  clerk.Key(Qt::Key_Return, Qt::ControlModifier);
  EnterHours(clerk, "10002", "8");
  clerk.Key(Qt::Key_S, Qt::ControlModifier).Key(Qt::Key_Escape).Key(Qt::Key_Escape);
  clerk.Run();
  Clock::Reset();

  // 15,5 hours at 12,99, the lowest wage group.
  EXPECT_THAT(Rows(*OpenDatabase(file.toStdString()), "SELECT NAME, GESAMNT, BESCHREIBUNG FROM ARA_KOPF"),
              ElementsAre("100020240001 201.35 Erste Arbeit"));
  EXPECT_EQ(QFileInfo(taken).size(), 13) << "what is there is never replaced";
}

}  // namespace
}  // namespace tarvoni::host
