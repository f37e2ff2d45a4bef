#include "suite/named_sql_catalog.h"

#include <gmock/gmock.h>

#include <set>

#include "src/context/values/call_error.h"
#include "src/context/values/field_text.h"
#include "src/context/values/locale.h"
#include "tests/host/demo_database.h"
#include "tests/suite/demo_context.h"
#include "tests/support/sql.h"

namespace tarvoni::suite {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

SqlText Statement(const std::string& key, const NamedValues& values) {
  return NamedSqlCatalog().GetSql({}, key, values);
}

std::string Cell(const Recordset& rows, int column) {
  return FieldText(rows.Fields()[column].Value(), "", Locale::German());
}

std::vector<std::string> FirstColumn(Recordset rows) {
  std::vector<std::string> cells;
  for (; !rows.EndOfFile(); rows.MoveNext()) cells.push_back(Cell(rows, 0));
  return cells;
}

NamedValues With(NamedValues values, const std::string& typed) {
  values.push_back(TypedCode(typed));
  return values;
}

std::vector<std::string> Offered(const std::string& key, const NamedValues& values,
                                 Connection& connection = host::Demo()) {
  return FirstColumn(connection.Open(Statement(key, values)));
}

// The id that a check gives; "" if it finds nothing.
std::string Checked(const std::string& key, const NamedValues& values,
                    Connection& connection = host::Demo()) {
  const Recordset rows = connection.Open(Statement(key, values));
  return rows.EndOfFile() ? "" : Cell(rows, 0);
}

// A list as its callers use it. Client 1 has work type 1 of product 1 on the cost centre
// 1100, whose id is 1.
struct Use {
  std::string offer_key, check_key;
  NamedValues values;
  std::string name_column;
  std::string table, id, code;  // where the id leads back to the code
};

void PrintTo(const Use& use, std::ostream* out) {
  *out << use.check_key;
  for (const NamedValue& value : use.values) *out << ' ' << value.Text() << value.Condition().Text();
}

const SqlText kOfProduct = "LEISTUNGSART.PRODUKT_ID = 1";
const SqlText kOfOrders = R"(
PRODUKT_ID IN (SELECT PRODUKT_ID FROM LEISTUNGSART
               WHERE 1=(CASE WHEN EXISTS(SELECT ID FROM RELTABLE WHERE KURZNAME = 'E)T') THEN EST ELSE 1 END))
AND PRODUKT_ID IN (SELECT PRODUKT_ID FROM LEISTUNGSART))";

const std::vector<Use> kUses = {
    {"KOSTENSTELLE_GRID", "KOSTENSTELLE_VALID", {Given(1)}, "NAME", "KOSTENSTELLE", "ID", "NUMBER"},
    {"PRODUKT_GRID", "PRODUKT_VALID", {Given(1)}, "NAME", "PRODUKT", "ID", "NUMBER"},
    {"PA_GRUPPE_GRID", "PA_GRUPPE_VALID", {Given(1)}, "BEZEICHNUNG", "PA_GRUPPE", "ID", "BEZEICHNUNG"},
    {"OBJEKT_GRID", "OBJEKT_VALID", {Given(1), Given("")}, "LONG", "OBJEKT", "ID", "NUMBER"},
    {"OBJEKT_GRID", "OBJEKT_VALID", {Given(1)}, "LONG", "OBJEKT", "ID", "NUMBER"},
    {"VERFAHREN_LEISTUNGSART_GRID",
     "VERFAHREN_LEISTUNGSART_VALID",
     {Given(1), Given(1)},
     "LONG",
     "VERFAHREN",
     "ID",
     "NUMBER"},
    {"LEISTUNGSART_PRODUKT_GRID",
     "LEISTUNGSART_PRODUKT_VALID",
     {Given(1), Condition(kOfProduct)},
     "LONG",
     "LEISTUNGSART",
     "ID",
     "NUMBER"},
    {"LEISTUNGSART_PRODUKT_GRID",
     "LEISTUNGSART_PRODUKT_VALID",
     {Condition(kOfProduct)},
     "LONG",
     "LEISTUNGSART",
     "ID",
     "NUMBER"},
    {"PA_KOPF_GRID",
     "PA_KOPF_VALID",
     {Given(1), Given(2024), Given(1100)},
     "NAME",
     "ARBEITSAUFTRAG_KOPF",
     "ID",
     "RIGHT(NAME,4)"},
    {"PA_KOPF_GRID",
     "PA_KOPF_VALID",
     {Given(1), Given(2024), Given(1100), Condition(kOfOrders)},
     "NAME",
     "ARBEITSAUFTRAG_KOPF",
     "ID",
     "RIGHT(NAME,4)"},
    {"PA_KOPF_GRID",
     "PA_KOPF_VALID",
     {Given(1), Given(2024), Given(1100), Condition("PRODUKT_ID IN (1)")},
     "NAME",
     "ARBEITSAUFTRAG_KOPF",
     "ID",
     "RIGHT(NAME,4)"},
    {"T_PA_KATEGORIE_GRID", "T_PA_KATEGORIE_VALID", {Given(1)}, "LONG", "T_PA_KATEGORIE", "ID", "NUMMER"},
    {"T_PA_KATEGORIE_GRID", "T_PA_KATEGORIE_VALID", {}, "LONG", "T_PA_KATEGORIE", "ID", "NUMMER"},
    {"T_KATEGORIE_GRID", "T_KATEGORIE_VALID", {}, "LONG", "T_KATEGORIE", "ID", "NUMMER"},
    {"RELTABLES_GRID", "RELTABLES_VALID", {Given(2)}, "LONG", "RELTABLE", "ID", "KURZNAME"},
    {"PERSONAL_GRID_ARBEITER",
     "PERSONAL_VALID_ARBEITER",
     {Condition("PERSONAL.ANGEMELDET = 1")},
     "KURZBEZEICHNUNG",
     "PERSONAL",
     "ID_PERSONAL",
     "NUMMER"},
    {"HOLZART_LEISTUNGSART_GRID", "HOLZART_LEISTUNGSART_VALID", {Given(1)}, "HA_LANG", "HOLZART", "ID", "HA"},
    {"HOLZART_LEISTUNGSART_GRID",
     "HOLZART_LEISTUNGSART_VALID",
     {Given("")},
     "HA_LANG",
     "HOLZART",
     "ID",
     "HA"},
    {"NUTZUNGSART_LEISTUNGSART_GRID",
     "NUTZUNGSART_LEISTUNGSART_VALID",
     {Given("013")},
     "NA_LANG",
     "NUTZUNGSART",
     "ID",
     "NA"},
    {"LEISTUNG_GRID", "LEISTUNG_VALID", {}, "LANGNAME", "RELTABLE", "ID", "KURZNAME"},
    {"SONDERMERKMAL_GRID", "SONDERMERKMAL_VALID", {}, "LONG", "SONDERMERKMAL", "ID", "NUMMER"},
    {"BZT_GRID", "BZT_VALID", {}, "LONG", "BZT", "ID", "NUMBER"},
    {"BUNDESLAND_GRID", "BUNDESLAND_VALID", {}, "LONG", "T_BUNDESLAND", "ID", "SHORT"},
    {"BAUM_HERK_GEB_GRID", "BAUM_HERK_GEB_VALID", {}, "LONG", "T_BAUM_HERK_GEB", "ID", "SHORT"},
    {"HERK_KATEGORIE_GRID", "HERK_KATEGORIE_VALID", {}, "LONG", "T_HERK_KATEGORIE", "ID", "SHORT"},
    {"MWST_GRID", "MWST_VALID", {}, "LONG", "MWST", "ID", "SHORT"},
    {"WARENEINHEIT_GRID", "WARENEINHEIT_VALID", {}, "LONG", "WARENEINHEIT", "EINHEIT_ID", "EINHEIT"},
    {"LOHNGRUND_GRID", "LOHNGRUND_VALID", {}, "LONG", "STAMM_TABELLEN", "ID_STRING", "SHORTNAME"},
    {"EST_GRID", "EST_LOGS_VALID", {}, "LONG", "STAMM_TABELLEN", "SHORTNAME", "SHORTNAME"},
    {"MEFVERF_GRID", "MEFVERF_LOGS_VALID", {}, "LONG", "STAMM_TABELLEN", "SHORTNAME", "SHORTNAME"},
    {"RUCKE_GRID", "RUCKE_LOGS_VALID", {}, "LONG", "STAMM_TABELLEN", "SHORTNAME", "SHORTNAME"},
};

class NamedStatements : public ::testing::TestWithParam<Use> {
 protected:
  SqlText CheckOf(const std::string& typed) const {
    return Statement(GetParam().check_key, With(GetParam().values, typed));
  }
  bool Finds(const std::string& typed) const { return !host::Demo().Open(CheckOf(typed)).EndOfFile(); }
};

TEST_P(NamedStatements, OfferCodesThatTheirCheckAdmits) {
  const Use& use = GetParam();
  const std::vector<std::string> codes = Offered(use.offer_key, use.values);
  ASSERT_FALSE(codes.empty());
  EXPECT_EQ(std::set<std::string>(codes.begin(), codes.end()).size(), codes.size());
  for (const std::string& code : codes) {
    const Recordset rows = host::Demo().Open(CheckOf(" " + code + " "));
    ASSERT_EQ(rows.RecordCount(), 1) << code;
    EXPECT_EQ(Cell(rows, 1), code);
    EXPECT_FALSE(IsNull(rows.Fields()[use.name_column].Value()) && use.name_column != "BESCHREIBUNG") << code;
    const SqlText back =
        Sql("SELECT " + use.code + " FROM " + use.table + " WHERE " + use.id + " = '" + Cell(rows, 0) + "'");
    EXPECT_EQ(FirstColumn(host::Demo().Open(back)).front(), code);
  }
}

// What is no code is not found, however it is written; a quote goes no further than into the statement's text.
TEST_P(NamedStatements, FindNothingForWhatIsNoCode) {
  const std::string code = Offered(GetParam().offer_key, GetParam().values).front();
  for (const std::string& typed :
       {code + "x", code + "; DROP TABLE OPTIONEN", code + " OR 1=1", code + "e0", "-" + code, code + ",0",
        code + "--", code + "/*", "zz\t" + code + "x", code + "\tzz", std::string("%"), std::string(),
        std::string("999999999999999999999"), std::string(" AND 1=1"), std::string("PERSONAL.DISABLE = 0"),
        std::string("\tzz"), std::string("ü"), std::string("\xC3")}) {
    EXPECT_FALSE(Finds(typed)) << typed;
  }
  EXPECT_LT(CheckOf(std::string(1'000'000, '9')).Text().size(), 3000u);
  EXPECT_TRUE(host::Demo().Open(CheckOf(std::string(5000, 'x'))).EndOfFile());
  for (const std::string quoted : {"'", "1' OR '1'='1", "O'Brien"}) {
    try {
      FAIL() << CheckOf(quoted).Text();
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Number(), 105) << quoted;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Lists, NamedStatements, ::testing::ValuesIn(kUses), [](const auto& use) {
  return use.param.check_key + "_" + std::to_string(use.index);
});

TEST(NamedSqlCatalog, RefusesUnknownKeysAndValuesThatDoNotFit) {
  for (const std::string key : {"", "EST", "EST_VALID", "WALDORT_GRID",
                                "LEISTUNGSART_PRODUKT_KOSTENSTELLE_VALID", "KOSTENSTELLE_GRID "})
    EXPECT_THROW(Statement(key, {Given(1)}), CallError) << key;
  EXPECT_THROW(Statement("KOSTENSTELLE_VALID", {TypedCode("1100")}), CallError) << "the client is missing";
  EXPECT_THROW(Statement("PA_KOPF_GRID", {Given(1), Given("2024")}), CallError);
  EXPECT_THROW(Statement("RELTABLES_GRID", {Given(2), Given(3)}), CallError);
  EXPECT_THROW(Statement("RELTABLES_GRID", {Given(2), Condition("1 = 1")}), CallError);
}

TEST(NamedSqlCatalog, KeepsTheCodesOfClientsApart) {
  EXPECT_EQ(Checked("KOSTENSTELLE_VALID", {Given(1), TypedCode("1100")}), "1");
  EXPECT_EQ(Checked("KOSTENSTELLE_VALID", {Given(3), TypedCode("1100")}), "");
  EXPECT_EQ(Checked("OBJEKT_VALID", {Given(1), Given(""), TypedCode("10")}), "101");
  EXPECT_EQ(Checked("OBJEKT_VALID", {Given(3), Given(""), TypedCode("10")}), "301");
  EXPECT_EQ(Checked("PRODUKT_VALID", {Given(1), TypedCode("10")}), "1");
  EXPECT_EQ(Checked("PRODUKT_VALID", {Given(3), TypedCode("10")}), "1001");
  EXPECT_EQ(Offered("VERFAHREN_LEISTUNGSART_GRID", {Given(3), Given(1)}), std::vector<std::string>());
  EXPECT_EQ(Offered("LEISTUNGSART_PRODUKT_GRID", {Given(3), Condition(kOfProduct)}),
            std::vector<std::string>());
  EXPECT_EQ(Offered("PA_KOPF_GRID", {Given(2), Given(2024), Given(1100)}), std::vector<std::string>());
  EXPECT_EQ(Offered("KOSTENSTELLE_GRID", {Given(99)}), std::vector<std::string>());
  EXPECT_NE(Checked("PA_GRUPPE_VALID", {Given(1), TypedCode("Holzernte")}),
            Checked("PA_GRUPPE_VALID", {Given(3), TypedCode("holzernte")}));
}

// The first column is in the order of the codes, the links between the tables narrow what is on offer.
TEST(NamedSqlCatalog, OffersWhatFits) {
  EXPECT_THAT(Offered("RUCKE_GRID", {}), ElementsAre("FS", "RG", "ST"));
  EXPECT_THAT(Offered("KOSTENSTELLE_GRID", {Given(1)}),
              ElementsAre("1010", "1020", "1100", "1110", "1120", "1130", "1140", "1150", "1160", "1170",
                          "1500", "1510", "1600", "1700", "1800"));
  EXPECT_EQ(Offered("LEISTUNGSART_PRODUKT_GRID", {Given(1), Condition("LEISTUNGSART.PRODUKT_ID = 8")}).size(),
            2u);
  EXPECT_THAT(Offered("LEISTUNGSART_PRODUKT_KOSTENSTELLE_GRID", {Given(1), Given(8), Given(1)}),
              ElementsAre("8020"));
  EXPECT_THAT(Offered("LEISTUNGSART_PRODUKT_KOSTENSTELLE_GRID", {Given(1), Given(1), Given(20)}),
              ::testing::IsEmpty());
  EXPECT_TRUE(host::Demo().Open(Statement("NUTZUNGSART_LEISTUNGSART_GRID", {Given("00")})).EndOfFile());
  EXPECT_EQ(Offered("NUTZUNGSART_LEISTUNGSART_GRID", {Given("013")}).size(), 2u);
  const Recordset of_work_type =
      host::Demo().Open(Statement("NUTZUNGSART_LEISTUNGSART_GRID", {Given("013")}));
  EXPECT_EQ(of_work_type.Fields()[0].Name(), "NA");
}

TEST(NamedSqlCatalog, LeavesOutWhatIsOutOfUse) {
  const host::DemoCopy copy;
  const std::set<std::string> tables = {"KOSTENSTELLE", "PRODUKT",        "OBJEKT",         "VERFAHREN",
                                        "LEISTUNGSART", "RELTABLE",       "NUTZUNGSART",    "SONDERMERKMAL",
                                        "T_KATEGORIE",  "T_PA_KATEGORIE", "STAMM_TABELLEN", "PERSONAL"};
  for (const Use& use : kUses) {
    if (!tables.contains(use.table)) continue;
    const auto codes = Offered(use.offer_key, use.values, *copy);
    ASSERT_FALSE(codes.empty()) << use.offer_key;
    const std::string& code = codes.back();
    const std::string row = " WHERE " + use.code + " = '" + code + "'";
    copy->Execute(Sql("UPDATE " + use.table + " SET DISABLE = 1" + row));
    EXPECT_THAT(Offered(use.offer_key, use.values, *copy), ::testing::Not(Contains(code))) << use.offer_key;
    EXPECT_EQ(Checked(use.check_key, With(use.values, code), *copy), "") << use.check_key;
    copy->Execute(Sql("UPDATE " + use.table + " SET DISABLE = NULL" + row));
    EXPECT_NE(Checked(use.check_key, With(use.values, code), *copy), "") << use.check_key;
  }
  copy->Execute("UPDATE ARBEITSAUFTRAG_KOPF SET ABGENSCHLOSEN = 1 WHERE NAME = '2010202411000002'");
  EXPECT_EQ(Checked("PA_KOPF_VALID", {Given(1), Given(2024), Given(1100), TypedCode("0002")}, *copy), "");
}

TEST(NamedSqlCatalog, FollowsLinksOfSpecies) {
  const host::DemoCopy copy;
  copy->Execute(
      "INSERT INTO ONETOMANY (RELATION, ID_MASTER, ID_SLAVE) VALUES ('LEISTUNGSART.HOLZART', 1, 7)");
  EXPECT_THAT(Offered("HOLZART_LEISTUNGSART_GRID", {Given(1)}, *copy), ElementsAre("BU"));
  EXPECT_EQ(Checked("HOLZART_LEISTUNGSART_VALID", {TypedCode("FI"), Given(1)}, *copy), "");
  EXPECT_GT(Offered("HOLZART_LEISTUNGSART_GRID", {Given(2)}, *copy).size(), 5u);
}

TEST(NamedSqlCatalog, CompletesNumbersWithZeros) {
  const std::string order = Checked("PA_KOPF_VALID", {Given(1), Given(2024), Given(1100), TypedCode("0001")});
  EXPECT_EQ(Checked("PA_KOPF_VALID", {Given(1), Given(2024), Given(1100), TypedCode("1")}), order);
  EXPECT_EQ(Checked("PA_KOPF_VALID", {Given(1), Given(2024), Given(1100), TypedCode("00001")}), "");
  EXPECT_EQ(Checked("RELTABLES_VALID", {Given(2), TypedCode("7")}),
            Checked("RELTABLES_VALID", {Given(2), TypedCode("007")}));
  EXPECT_EQ(Checked("KOSTENSTELLE_VALID", {Given(1), TypedCode("01100")}), "1");
}

TEST(NamedSqlCatalog, FindsLocationsByTheirPath) {
  const std::string path = "Kaltenwald/ Ahornboden/ Waldteil 1/ Abt. 101/ a";
  const Recordset rows = host::Demo().Open(Statement("WALDORT_VALID", {Given(0), TypedCode(path)}));
  ASSERT_EQ(rows.RecordCount(), 1);
  EXPECT_EQ(Cell(rows, 0), "3");
  EXPECT_EQ(FieldText(rows.Fields()["WALDORT"].Value(), "", Locale::German()), path);
  EXPECT_EQ(Checked("WALDORT_VALID", {Given(1), TypedCode("kaltenwald/ahornboden /waldteil 1/abt. 101/a")}),
            "3");
  EXPECT_EQ(Checked("WALDORT_VALID", {Given(1), TypedCode(path + ": Plateau ober dem Köhlerbach")}), "3");
  EXPECT_EQ(Checked("WALDORT_VALID", {Given(2), TypedCode(path)}), "") << "of another client";
  for (const std::string& typed :
       {path + "/ b", path + "\tx", std::string("x"), std::string(), std::string(":")})
    EXPECT_EQ(Checked("WALDORT_VALID", {Given(0), TypedCode(typed)}), "") << typed;
  EXPECT_THROW(Statement("WALDORT_VALID", {Given(0), TypedCode("a'b")}), DatabaseError);
}

// A condition of a caller stays one condition, and a typed code never becomes one.
TEST(NamedSqlCatalog, HoldsConditionsTogether) {
  EXPECT_THAT(std::string(Statement("LEISTUNGSART_PRODUKT_GRID", {Condition("EST = 1 OR 1 = 1")}).Text()),
              HasSubstr(" AND (EST = 1 OR 1 = 1)"));
  EXPECT_EQ(Checked("LEISTUNGSART_PRODUKT_VALID", {Given(1), TypedCode(" AND EST = 1")}), "");
}

class Units : public Form {
 public:
  Units() : Form("F_Units") {}
  ComboBox combo{*this, "txtEinheit"};

  std::vector<std::string> Items() const {
    std::vector<std::string> items;
    for (int i = 0; i < combo.ListCount(); ++i)
      items.push_back(combo.List(i) + "=" + std::to_string(combo.ItemData(i)));
    return items;
  }
};

TEST(NamedSqlCatalog, FillsCombosByTheNamesOfTheColumns) {
  NamedSqlCatalog catalog;
  Units units;
  units.combo.AddItem("EUR", 5);
  catalog.FillCombo(host::Demo(), units.combo, Statement("WARENEINHEIT", {}));
  EXPECT_EQ(units.combo.ListCount(), 14);
  EXPECT_THAT(units.Items(), Contains("fm=1"));
  EXPECT_EQ(units.combo.List(0), "EUR");
  EXPECT_EQ(units.combo.List(1), " ");
  EXPECT_EQ(units.combo.ItemData(1), 0);

  units.combo.Clear();
  catalog.FillCombo(host::Demo(), units.combo, "SELECT ID, KURZNAME FROM RELTABLE WHERE RELTABLE_ID = 4");
  EXPECT_THAT(units.Items(), ElementsAre("FA 2010=41", "FA 2020=42", "FA 2030=43"));
  units.combo.Clear();
  catalog.FillCombo(
      host::Demo(), units.combo,
      "SELECT NUMBER, ID FROM OBJEKT WHERE ID <> 0 AND TABLE_NAME = 'OBJ 2030' AND NUMBER < 30");
  EXPECT_THAT(units.Items(), ElementsAre("10=301", "20=302"));
  units.combo.Clear();
  catalog.FillCombo(host::Demo(), units.combo, "SELECT HA FROM HOLZART WHERE ID = 1");
  EXPECT_THAT(units.Items(), ElementsAre("FI=0"));
}

}  // namespace
}  // namespace tarvoni::suite
