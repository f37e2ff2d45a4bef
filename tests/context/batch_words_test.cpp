#include "src/context/data/batch_words.h"

#include <gtest/gtest.h>

namespace tarvoni {
namespace {

TEST(BatchWords, TellWhatWritesIntoTheDatabase) {
  for (const char* text :
       {"INSERT INTO A VALUES (1)", "SELECT 1 update A SET B = 1", "EXEC P", "DELETE FROM [A]",
        "INSERT ##t SELECT 1", "CREATE TABLE #t (A int) INSERT INTO #t SELECT 1 DELETE A WHERE ID = 1",
        "/* /* */ */ MERGE A", "UPDATE"})
    EXPECT_TRUE(WritesTables(text)) << text;
  for (const char* text :
       {"SELECT 'INSERT INTO A' AS [UPDATE]", "CREATE TABLE #t (A int) INSERT #t SELECT A FROM B",
        "DELETE FROM #t -- DELETE FROM A", "", "SELECT 'it''s', UPDATED, \"DELETE\" FROM A",
        "DELETE FROM [#t]", "/* /* */ UPDATE A */ SELECT 1"})
    EXPECT_FALSE(WritesTables(text)) << text;
}

TEST(BatchWords, TellWhatIsBlank) {
  for (const char* text : {"", " \n\t", "-- SELECT 1", "/* SELECT /* 1 */ */ -- x\n"})
    EXPECT_TRUE(IsBlankBatch(text)) << text;
  for (const char* text : {"-- x\nSELECT 1", ";", "'"}) EXPECT_FALSE(IsBlankBatch(text)) << text;
}

}  // namespace
}  // namespace tarvoni
