#include "platform/odbc/server_batch.h"

#include <gtest/gtest.h>

namespace tarvoni::odbc {
namespace {

TEST(ServerBatch, FindsTemporaryTablesThatABatchMakes) {
  for (const char* text :
       {"CREATE TABLE #a (ID int)", "set nocount on\ncreate /* x */ table\n\t#a(ID int)",
        "CREATE -- 'quote\nTABLE [#a b] (ID int)", "SELECT 'it''s' CREATE TABLE \"#a\" (ID int)",
        "/* a /* b */ c */ CREATE TABLE #a (ID int)",
        "INSERT INTO [x]]y] VALUES (1) CREATE TABLE #ä (I int)"})
    EXPECT_TRUE(CreatesTemporaryTable(text)) << text;
}

TEST(ServerBatch, IsNotMisledByTextsCommentsAndOtherTables) {
  for (const char* text :
       {"", "CREATE TABLE a (ID int)", "SELECT 'CREATE TABLE #a'", "-- CREATE TABLE #a\nSELECT 1",
        "/* /* */ CREATE TABLE #a */ SELECT 1", "SELECT [CREATE TABLE #a] FROM b", "DROP TABLE #a",
        "SELECT ID FROM #a", "CREATE TABLE ##global (ID int)", "[CREATE] TABLE #a",
        "CREATE TABLE x (a int) SELECT '#a", "/* open CREATE TABLE #a"})
    EXPECT_FALSE(CreatesTemporaryTable(text)) << text;
}

// Left on, the next batch would not tell that its row is gone.
TEST(ServerBatch, ABatchThatSwitchesCountsOffGetsAScopeOfItsOwn) {
  EXPECT_EQ(ForServer("SET NOCOUNT ON\nUPDATE A SET N = 'x'").text,
            "EXEC sp_executesql N'SET NOCOUNT ON\nUPDATE A SET N = ''x'''");
  for (const char* text : {"SET NOCOUNT OFF UPDATE A SET N = 1", "SET nocount on",
                           "SELECT 'SET NOCOUNT ON' SELECT 1", "UPDATE A SET NOCOUNT = 1"})
    EXPECT_EQ(ForServer(text).text, text);
}

TEST(ServerBatch, OnlyABatchWithTemporaryTablesGetsAScopeOfItsOwn) {
  const ServerBatch wrapped = ForServer("CREATE TABLE #a (N nvarchar(5))\nINSERT INTO #a VALUES ('ä''b')");
  EXPECT_EQ(wrapped.text,
            "EXEC sp_executesql N'CREATE TABLE #a (N nvarchar(5))\nINSERT INTO #a VALUES (''ä''''b'')'");
  EXPECT_FALSE(wrapped.has_lead);
  EXPECT_EQ(ForServer("UPDATE A SET N = 'x'").text, "UPDATE A SET N = 'x'");
}

TEST(ServerBatch, ALeadKeepsTheRestWithinReachWhenTheFirstWriteFails) {
  const ServerBatch led = ForServer("INSERT INTO A VALUES (1)\nUPDATE B SET X = 1");
  EXPECT_EQ(led.text, "SELECT 0; INSERT INTO A VALUES (1)\nUPDATE B SET X = 1");
  EXPECT_TRUE(led.has_lead);
  for (const char* alone :
       {"INSERT INTO A SELECT 'UPDATE DELETE' -- UPDATE", "SELECT [UPDATE], [DELETE] FROM A",
        "CREATE TRIGGER T ON A AFTER INSERT, UPDATE AS DELETE FROM B"})
    EXPECT_FALSE(ForServer(alone).has_lead) << alone;
}

}  // namespace
}  // namespace tarvoni::odbc
