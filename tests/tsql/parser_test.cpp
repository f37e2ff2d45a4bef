#include "platform/tsql/public/parser.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/tsql/print.h"

namespace tarvoni::tsql {
namespace {

std::string Printed(const std::string& text) {
  const LexedBatch lexed = Lex(text);
  return Print(Parse(lexed), lexed);
}

std::string Repeat(std::string_view part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

// The condition of WHERE, printed.
std::string Condition(const std::string& text) {
  return Printed("DELETE FROM T WHERE " + text).substr(20);
}

struct Failure {
  int number = 0;
  std::string place;
  std::string message;
};

// Number 0 when there is no error.
Failure FailureOf(const std::string& text) {
  try {
    Parse(Lex(text));
    return {};
  } catch (const Error& error) {
    return {error.Number(), std::to_string(error.At().line) + ':' + std::to_string(error.At().column),
            error.what()};
  }
}

TEST(Parser, BindsOperatorsAsAServerDoes) {
  const std::pair<std::string, std::string> kTable[] = {
      {"a+b*c-d/e%f=0", "a + b * c - d / e % f = 0"},
      {"(a+b)*c=a-(b-c)", "(a + b) * c = a - (b - c)"},
      {"a-b-c=(a-b)-c", "a - b - c = a - b - c"},
      {"a/(b*c)=(a/b)*c", "a / (b * c) = a / b * c"},
      // A sign takes in the products on its right.
      {"-a*b=(-a)*b", "-a * b = (-a) * b"},
      {"a/-b*c=0", "a / (-b * c) = 0"},
      {"-a+b=- -c", "-a + b = -(-c)"},
      {"NOT a=1 AND b=1 OR c=1", "NOT a = 1 AND b = 1 OR c = 1"},
      {"NOT (a=1 AND (b=1 OR c=1))", "NOT (a = 1 AND (b = 1 OR c = 1))"},
      {"a=1 OR (b=1 OR c=1) OR d=1", "a = 1 OR (b = 1 OR c = 1) OR d = 1"},
      {"NOT NOT a IS NULL", "NOT NOT a IS NULL"},
      {"a BETWEEN b+1 AND c AND d=1", "a BETWEEN b + 1 AND c AND d = 1"},
      {"a NOT BETWEEN 1 AND 2 OR b NOT IN (1,2) AND c NOT LIKE 'x'",
       "a NOT BETWEEN 1 AND 2 OR b NOT IN (1, 2) AND c NOT LIKE 'x'"},
      {"((a))=((b)) AND ((c=d))", "a = b AND c = d"},
      {"(a+1)*2+3>b", "(a + 1) * 2 + 3 > b"},
      {"(((a)+1))*2 IN (1)", "(a + 1) * 2 IN (1)"},
      {"a!=1 AND b!<2 AND c!>3", "a <> 1 AND b >= 2 AND c <= 3"},
      {"EXISTS((SELECT 1)) AND (SELECT MAX(a) FROM T)>1", "EXISTS (SELECT 1) AND (SELECT MAX(a) FROM T) > 1"},
  };
  for (const auto& [written, printed] : kTable) EXPECT_EQ(Condition(written), printed);
}

TEST(Parser, ReadsStatements) {
  const std::pair<std::string, std::string> kTable[] = {
      {"select a b,c as d,e [f g],h 'i j',k=l,T.*,* from T",
       "SELECT a AS b, c AS d, e AS [f g], h AS [i j], l AS k, T.*, * FROM T"},
      {"select case a when 1 then 'x' end M,case when a=1 then 2 else 3 end",
       "SELECT CASE a WHEN 1 THEN 'x' END AS M, CASE WHEN a = 1 THEN 2 ELSE 3 END"},
      {"select count(*),count(distinct a),sum(all b),f(),left(a,1),coalesce(a,nullif(b,c))",
       "SELECT count(*), count(DISTINCT a), sum(b), f(), LEFT(a, 1), COALESCE(a, NULLIF(b, c))"},
      {"select cast(a as char),cast(a as nvarchar),convert(dec(9,2),a),cast(a as double precision),cast(a as "
       "ntext)",
       "SELECT CAST(a AS CHAR(30)), CAST(a AS NVARCHAR(30)), CAST(a AS DECIMAL(9,2)), CAST(a AS FLOAT), "
       "CAST(a AS "
       "NVARCHAR(MAX))"},
      {"select distinct top 5 a from T", "SELECT DISTINCT TOP (5) a FROM T"},
      {"select top (1) 'x' from T order by 1 desc,b asc", "SELECT TOP (1) 'x' FROM T ORDER BY 1 DESC, b"},
      {"select 'it''s',N'ä',017,.50,5.,1e2,NULL", "SELECT 'it''s', 'ä', 017, .50, 5., 1e2, NULL"},
      {"select a from T group by a,b+1 having count(*)>1",
       "SELECT a FROM T GROUP BY a, b + 1 HAVING count(*) > 1"},
      {"(select 1 union select 2) union all (select 3) order by 1",
       "SELECT 1 UNION SELECT 2 UNION ALL SELECT 3 ORDER BY 1"},
      {"select a from T x,U as y inner join V on 1=1 cross join W,(select 1 as b)z",
       "SELECT a FROM T AS x, U AS y INNER JOIN V ON 1 = 1 CROSS JOIN W, (SELECT 1 AS b) AS z"},
      {"select a from T left outer join U on 1=1 right join V on 2=2 full outer join W on 3=3 join X on 4=4",
       "SELECT a FROM T LEFT JOIN U ON 1 = 1 RIGHT JOIN V ON 2 = 2 FULL JOIN W ON 3 = 3 INNER JOIN X ON 4 = "
       "4"},
      {"select a from T left join (U join V on 1=1) on 2=2",
       "SELECT a FROM T LEFT JOIN (U INNER JOIN V ON 1 = 1) ON 2 = 2"},
      {"select a from T left join U join V on 1=1 on 2=2",
       "SELECT a FROM T LEFT JOIN (U INNER JOIN V ON 1 = 1) ON 2 = 2"},
      {"select a from ((select 1 as b) x join U on 1=1)",
       "SELECT a FROM (SELECT 1 AS b) AS x INNER JOIN U ON 1 = 1"},
      {"insert T values (1,-2)", "INSERT INTO T VALUES (1, -2)"},
      {"insert into T (a,[b c]) values (1,2),(3,4)", "INSERT INTO T (a, [b c]) VALUES (1, 2), (3, 4)"},
      {"insert into T (a) select b from U", "INSERT INTO T (a) SELECT b FROM U"},
      {"insert into T (select b from U)", "INSERT INTO T SELECT b FROM U"},
      {"update T set a=1,T.b=(select 2) where c=3", "UPDATE T SET a = 1, b = (SELECT 2) WHERE c = 3"},
      {"delete T", "DELETE FROM T"},
      {"drop table #t", "DROP TABLE #t"},
      {"create unique nonclustered index I on T (a desc,b asc)", "CREATE UNIQUE INDEX I ON T (a DESC, b)"},
      {"create index I on T (a,isnull(b,''))", "CREATE INDEX I ON T (a, ISNULL(b,''))"},
      {"set nocount on set dateformat 'DMY' set identity_insert [T] off",
       "SET NOCOUNT ON\nSET DATEFORMAT dmy\nSET IDENTITY_INSERT T OFF"},
      {";;select 1;select 2;;", "SELECT 1\nSELECT 2"},
      {"if a=1 select 1; else if b=2 begin; select 2; delete T end else select 3",
       "IF a = 1\nSELECT 1\nELSE\nIF b = 2\nBEGIN\nSELECT 2\nDELETE FROM T\nEND\nELSE\nSELECT 3"},
      {"select [order].[a]]b],[1],[c],[Ä]", "SELECT [order].[a]]b], [1], c, Ä"},
  };
  for (const auto& [written, printed] : kTable) {
    EXPECT_EQ(Printed(written), printed);
    EXPECT_EQ(Printed(printed), printed);
  }
}

TEST(Parser, ReadsTables) {
  EXPECT_EQ(Printed("CREATE TABLE T (ID int IDENTITY(-5,2) NOT NULL CONSTRAINT PK_T PRIMARY KEY CLUSTERED, A "
                    "NVARCHAR NULL "
                    "UNIQUE, B DECIMAL(7,2) DEFAULT (0) CHECK (B>=0), C INT REFERENCES U (ID), D money "
                    "CONSTRAINT X DEFAULT 1, "
                    "CONSTRAINT UQ UNIQUE (A,B DESC), FOREIGN KEY (A,B) REFERENCES V, CHECK (A<>'x'))"),
            "CREATE TABLE T (ID INT IDENTITY(-5, 2) NOT NULL, A NVARCHAR(1) NULL, B DECIMAL(7,2) DEFAULT 0, "
            "C INT, D MONEY "
            "DEFAULT 1, CONSTRAINT PK_T PRIMARY KEY (ID), UNIQUE (A), CONSTRAINT UQ UNIQUE (A, B), FOREIGN "
            "KEY (C) REFERENCES "
            "U(ID), FOREIGN KEY (A, B) REFERENCES V, CHECK (B >= 0), CHECK (A <> 'x'))");
}

TEST(Parser, PlacesErrors) {
  struct Row {
    std::string text;
    int number;
    std::string place;
  };
  const Row kTable[] = {
      {"SELECT 1 + FROM KONTO", 156, "1:12"},
      {"SELECT FROM KONTO", 156, "1:8"},
      {"SELECT ID FROM KONTO WHERE ID =", 102, "1:31"},
      {"SELECT ID FROM", 102, "1:11"},
      {"SELECT 1\n  SELEKT * FROM KONTO", 102, "2:10"},
      {"SELEKT * FROM KONTO", 102, "1:1"},
      {"SELECT ID FROM KONTO WHERE (ID = 1", 102, "1:34"},
      {"SELECT ID FROM KONTO WHERE ID = 1)", 102, "1:34"},
      {"INSERT INTO KONTO (ID,NAME,) VALUES (3,'x')", 102, "1:28"},
      {"UPDATE KONTO SET STAND = WHERE ID = 1", 156, "1:26"},
      {"UPDATE KONTO SET STAND = ,MONAT = 1", 102, "1:26"},
      {"UPDATE KONTO SET WHERE ID = 1", 156, "1:18"},
      {"UPDATE KONTO SET STAND == 1", 102, "1:25"},
      {"SELECT ID FROM KONTO WHERE ID = 1 2", 102, "1:35"},
      {"SELECT ORDER FROM T", 156, "1:8"},
      {"SELECT a AS KEY FROM T", 156, "1:13"},
      {"SELECT a AS 1", 102, "1:13"},
      {"SELECT a FROM (SELECT 1 AS b) WHERE b=1", 156, "1:31"},
      {"SELECT a FROM T JOIN U WHERE 1=1", 156, "1:24"},
      {"SELECT a FROM T OUTER JOIN U ON 1=1", 156, "1:17"},
      {"SELECT a FROM T WHERE a = b = c", 102, "1:29"},
      {"SELECT (a = 1) FROM T", 102, "1:11"},
      {"SELECT a FROM T WHERE (a = 1) + 1 > 0", 102, "1:31"},
      {"SELECT a AND b", 156, "1:10"},
      {"SELECT SUM(*)", 102, "1:12"},
      {"SELECT CASE END", 156, "1:13"},
      {"SELECT a FROM T ORDER a", 102, "1:23"},
      {"INSERT INTO T (a)", 102, "1:17"},
      {"CREATE TABLE T (PRIMARY KEY (a))", 156, "1:17"},
      {"CREATE TABLE T (a DECIMAL(1.5))", 102, "1:27"},
      {"CREATE TABLE T (a INT IDENTITY(1.5,1))", 102, "1:32"},
      {"IF a=1", 102, "1:6"},
      {"IF a=1 ELSE SELECT 1", 156, "1:8"},
      {"BEGIN END", 156, "1:7"},
      {"BEGIN SELECT 1", 102, "1:14"},
      {"SET", 102, "1:1"},
      {"SET NOCOUNT 1", 102, "1:13"},
      {"SET DATEFORMAT dmx", 2741, "1:16"},
      {"UPDATE T SET U.a = 1", 4104, "1:14"},
      {"SELECT ID FROM T WHERE ID", 4145, "1:24"},
      {"SELECT ID FROM T WHERE ID OR a=1", 4145, "1:24"},
      {"SELECT ID FROM T WHERE a=1 AND ID OR b=1", 4145, "1:32"},
      {"SELECT ID FROM T WHERE NOT (ID)", 4145, "1:29"},
      {"SELECT CASE WHEN 1 THEN 2 END", 4145, "1:18"},
      {"IF (SELECT 1) SELECT 2", 4145, "1:4"},
      {"SELECT ID FROM T WHERE ä=1 AND\nÄÖ.ß ü", 4145, "2:1"},
  };
  for (const Row& row : kTable) {
    const Failure failure = FailureOf(row.text);
    EXPECT_EQ(failure.number, row.number) << row.text << ": " << failure.message;
    EXPECT_EQ(failure.place, row.place) << row.text;
  }
  EXPECT_EQ(
      FailureOf("SELECT a FROM T WHERE x y").message,
      "An expression of non-boolean type specified in a context where a condition is expected, near 'y'.");
  EXPECT_EQ(FailureOf("SELECT a b c").message, "Incorrect syntax near 'c'.");
  EXPECT_EQ(FailureOf("SELECT a from").message, "Incorrect syntax near 'FROM'.");
  EXPECT_EQ(FailureOf("SELECT a,from T").message, "Incorrect syntax near the keyword 'FROM'.");
}

TEST(Parser, NamesWhatIsNotSupported) {
  const std::tuple<std::string, std::string, std::string> kTable[] = {
      {"MERGE T USING U ON 1=1", "MERGE", "1:1"},
      {"SELECT 1 EXEC P", "EXEC", "1:10"},
      {"DECLARE x INT", "DECLARE", "1:1"},
      {"WITH X AS (SELECT 1) SELECT 2", "WITH", "1:1"},
      {"alter table T ADD a INT", "ALTER TABLE", "1:7"},
      {"CREATE VIEW V AS SELECT 1", "CREATE VIEW", "1:8"},
      {"DROP INDEX I", "DROP INDEX", "1:6"},
      {"DROP TABLE IF EXISTS T", "DROP TABLE IF EXISTS", "1:12"},
      {"BEGIN TRAN", "BEGIN TRANSACTION", "1:7"},
      {"BEGIN TRY SELECT 1 END TRY", "BEGIN TRY", "1:7"},
      {"SET XACT_ABORT ON", "SET XACT_ABORT", "1:5"},
      {"SET [NOCOUNT] ON", "SET NOCOUNT", "1:5"},
      {"SELECT [CAST](a AS INT)", "A function name in brackets", "1:8"},
      {"UPDATE T SET a=1 FROM U", "UPDATE … FROM", "1:18"},
      {"UPDATE T SET a+=1", "The assignment +=", "1:15"},
      {"DELETE FROM T FROM U", "DELETE … FROM", "1:15"},
      {"INSERT INTO T DEFAULT VALUES", "INSERT … DEFAULT VALUES", "1:15"},
      {"SELECT a INTO #t FROM T", "SELECT INTO", "1:10"},
      {"SELECT TOP 5 PERCENT a FROM T", "TOP … PERCENT", "1:14"},
      {"SELECT ROW_NUMBER() OVER (ORDER BY a)", "OVER", "1:21"},
      {"SELECT a FROM T GROUP BY ROLLUP (a)", "GROUP BY ROLLUP", "1:26"},
      {"SELECT a FROM T GROUP BY a WITH CUBE", "GROUP BY … WITH ROLLUP or CUBE", "1:28"},
      {"SELECT a FROM T ORDER BY a OFFSET 1 ROWS", "OFFSET", "1:28"},
      {"SELECT 1 EXCEPT SELECT 2", "EXCEPT", "1:10"},
      {"SELECT 1 UNION (SELECT 2 UNION ALL SELECT 3)", "UNION in brackets behind another UNION", "1:44"},
      {"SELECT a FROM T CROSS APPLY f", "CROSS APPLY", "1:23"},
      {"SELECT a FROM dbo.T", "A table name of several parts", "1:18"},
      {"SELECT a FROM T (NOLOCK)", "A table-valued function or a table hint", "1:17"},
      {"SELECT a FROM T WITH (NOLOCK)", "A table hint", "1:17"},
      {"SELECT a & 1", "The operator &", "1:10"},
      {"SELECT 1 WHERE a | 1 = 1", "The operator |", "1:18"},
      {"SELECT 1 WHERE a LIKE 'x' ESCAPE 'y'", "LIKE with ESCAPE", "1:27"},
      {"SELECT 1 WHERE a = ANY (SELECT 1)", "A comparison with ANY", "1:20"},
      {"SELECT a COLLATE X", "COLLATE", "1:10"},
      {"SELECT CONVERT(INT,a,112)", "CONVERT with a style", "1:21"},
      {"SELECT CAST(a AS XML)", "The type XML", "1:18"},
      {"CREATE TABLE T (a NVARCHAR(9000))", "The type NVARCHAR(9000)", "1:19"},
      {"CREATE TABLE T (a AS 1)", "A computed column", "1:19"},
  };
  for (const auto& [text, construct, place] : kTable) {
    const Failure failure = FailureOf(text);
    EXPECT_EQ(failure.number, kUnsupported) << text;
    EXPECT_EQ(failure.message, construct + " is not supported.") << text;
    EXPECT_EQ(failure.place, place) << text;
  }
}

TEST(Parser, LimitsNesting) {
  struct Row {
    std::string before, open, inside, close;
  };
  const Row kTable[] = {
      {"SELECT ", "(", "1", ")"},
      {"SELECT ", "- ", "1", ""},
      {"SELECT ", "f(", "1", ")"},
      {"SELECT ", "CASE WHEN 1=", "1", " THEN 1 END"},
      {"DELETE T WHERE ", "(", "1=1", ")"},
      {"DELETE T WHERE ", "NOT ", "1=1", ""},
      {"DELETE T WHERE ", "EXISTS(SELECT 1 WHERE ", "1=1", ")"},
      {"DELETE T WHERE ", "1 IN (SELECT 1 WHERE ", "1=1", ")"},
      {"SELECT * FROM ", "(SELECT * FROM ", "T", ")x"},
      {"SELECT * FROM ", "T JOIN (", "T", ") ON 1=1"},
      {"SELECT * FROM T ", "JOIN T ", "", "ON 1=1 "},
      {"", "IF 1=1 ", "SELECT 1", ""},
      {"", "BEGIN ", "SELECT 1", " END"},
      {"", "(", "SELECT 1", ")"},
  };
  for (const auto& [before, open, inside, close] : kTable) {
    const auto nested = [&](int times) {
      return before + Repeat(open, times) + inside + Repeat(close, times);
    };
    EXPECT_EQ(FailureOf(nested(kMaxNesting / 4)).message, "") << open;
    EXPECT_EQ(FailureOf(nested(kMaxNesting)).number, kTooDeep) << open;
    EXPECT_EQ(FailureOf(nested(50'000)).number, kTooDeep) << open;
  }
}

TEST(Parser, LimitsChains) {
  for (const auto& [first, link] : std::initializer_list<std::pair<std::string, std::string>>{
           {"SELECT 1", "+1"},
           {"SELECT 1", "*1"},
           {"DELETE T WHERE 1=1", " OR 1=1"},
           {"DELETE T WHERE 1=1", " AND 1=1"},
           {"SELECT 1 FROM T", ",T"},
           {"SELECT 1 FROM T", " JOIN T ON 1=1"},
       }) {
    EXPECT_EQ(FailureOf(first + Repeat(link, kMaxHeight - 10)).message, "") << link;
    EXPECT_EQ(FailureOf(first + Repeat(link, kMaxHeight)).number, kTooDeep) << link;
    EXPECT_EQ(FailureOf(first + Repeat(link, 50'000)).number, kTooDeep) << link;
  }
}

TEST(Parser, AddsUpChainsInEachOther) {
  const std::string chain = '1' + Repeat("+1", kMaxHeight * 2 / 3);
  const std::string links = Repeat("+1", kMaxHeight * 2 / 3);
  EXPECT_EQ(FailureOf("SELECT (" + chain + ')' + links).number, kTooDeep);
  EXPECT_EQ(FailureOf("SELECT f(0,CASE 1 WHEN 2 THEN (SELECT " + chain + ") END)" + links).number, kTooDeep);
  EXPECT_EQ(FailureOf("DELETE T WHERE (" + chain + ')' + links + "=1").number, kTooDeep);
  EXPECT_EQ(FailureOf("SELECT 0+(" + chain + ')' + links).number, kTooDeep);
  EXPECT_EQ(FailureOf("SELECT 0" + links + "+(" + chain + ')').message, "");
  EXPECT_EQ(FailureOf("SELECT " + chain + ',' + chain + " FROM T," + Repeat("T,", 300) + "T").message, "");
}

TEST(Parser, TakesAnyNumberOfEqualsInARow) {
  EXPECT_EQ(FailureOf("SELECT 1 WHERE 1 IN (0" + Repeat(",1", 20'000) + ')').message, "");
  EXPECT_EQ(FailureOf("SELECT 1" + Repeat(" UNION SELECT 1", 20'000)).message, "");
  EXPECT_EQ(FailureOf("SELECT CASE" + Repeat(" WHEN 1=1 THEN 2", 20'000) + " END").message, "");
  EXPECT_EQ(FailureOf(Repeat("SELECT 1 ", 20'000)).message, "");
}

TEST(Parser, KnowsWhereThingsStand) {
  const LexedBatch lexed = Lex("SELECT a +\n f(b) FROM T\nUPDATE [Ü] SET c = 1");
  const Batch batch = Parse(lexed);
  const auto place = [](Position at) { return std::pair(at.line, at.column); };
  const Select& select = std::get<SelectStatement>(batch.statements[0].node).query->selects[0];
  EXPECT_EQ(place(select.items[0].at), std::pair(1, 8));
  const Expression& sum = *select.items[0].value;
  EXPECT_EQ(place(sum.at), std::pair(1, 10));
  const Expression& call = *std::get<Binary>(sum.node).right;
  EXPECT_EQ(place(call.at), std::pair(2, 2));
  EXPECT_EQ(place(std::get<Call>(call.node).arguments[0]->at), std::pair(2, 4));
  EXPECT_EQ(place(select.from->at), std::pair(2, 12));
  EXPECT_EQ(place(batch.statements[1].at), std::pair(3, 1));
  const auto& update = std::get<UpdateStatement>(batch.statements[1].node);
  EXPECT_EQ(place(update.table_at), std::pair(3, 8));
  EXPECT_EQ(place(update.assignments[0].at), std::pair(3, 16));
}

TEST(Parser, PinsLiteralsThatShapeTheTree) {
  const Batch batch =
      Parse(Lex("SELECT 1 AS 'x',CAST(2 AS DECIMAL(9,4)),CONVERT(CHAR(5),'y') 'z' SET DATEFORMAT 'dmy'"));
  EXPECT_EQ(batch.pinned, (std::vector<int>{1, 3, 4, 5, 7, 8}));
}

struct CaseBatch {
  std::string name;
  std::string text;
  int error = 0;  // the number it is to fail with, 0 for none
};

std::vector<CaseBatch> ReadCases(const std::filesystem::path& file) {
  std::vector<CaseBatch> cases;
  bool in_batch = false;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("=== ")) {
      cases.push_back({line.substr(4), {}, 0});
      in_batch = true;
    } else if (line.starts_with("--- ")) {
      in_batch = false;
      if (line.starts_with("--- error ")) cases.back().error = std::stoi(line.substr(10));
    } else if (in_batch) {
      cases.back().text += line + '\n';
    }
  }
  return cases;
}

bool IsParserError(int number) {
  return number == kSyntax || number == kUnclosedQuote || number == kSyntaxKeyword || number == kNoCondition;
}

TEST(Parser, PrintsEveryCaseSoThatItReadsTheSame) {
  size_t refused = 0;
  size_t printed = 0;
  for (const auto& file : std::filesystem::directory_iterator(TARVONI_TSQL_CASES)) {
    for (const CaseBatch& batch : ReadCases(file.path())) {
      SCOPED_TRACE(file.path().filename().string() + ": " + batch.name);
      const Failure failure = FailureOf(batch.text);
      if (IsParserError(batch.error)) {
        EXPECT_EQ(failure.number, batch.error);
        ++refused;
        continue;
      }
      ASSERT_EQ(failure.message, "");
      const std::string once = Printed(batch.text);
      EXPECT_EQ(Printed(once), once);
      ++printed;
    }
  }
  EXPECT_GT(refused, 10u);
  EXPECT_GT(printed, 500u);
}

}  // namespace
}  // namespace tarvoni::tsql
