#include "suite/named_sql_catalog.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

#include "src/context/values/call_error.h"
#include "src/context/values/field_text.h"
#include "src/context/values/locale.h"
#include "tests/host/demo_database.h"
#include "tests/suite/demo_context.h"

namespace tarvoni::suite {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string Statement(const std::string& key, const std::string& parameter) {
  return NamedSqlCatalog().GetSql({}, key, parameter);
}

std::string Cell(const Recordset& rows, int column) {
  return FieldText(rows.Fields()[column].Value(), "", Locale::German());
}

std::vector<std::string> FirstColumn(Recordset rows) {
  std::vector<std::string> cells;
  for (; !rows.EndOfFile(); rows.MoveNext()) cells.push_back(Cell(rows, 0));
  return cells;
}

std::string Replaced(std::string text, const std::string& typed) {
  const auto place = text.find('?');
  return place == text.npos ? text : text.replace(place, 1, typed);
}

std::vector<std::string> Offered(const std::string& key, const std::string& parameter,
                                 Connection& connection = host::Demo()) {
  return FirstColumn(connection.Open(Statement(key, parameter)));
}

// The id that a check gives; "" if it finds nothing.
std::string Checked(const std::string& key, const std::string& parameter,
                    Connection& connection = host::Demo()) {
  const Recordset rows = connection.Open(Statement(key, parameter));
  return rows.EndOfFile() ? "" : Cell(rows, 0);
}

// A list as its callers use it; ? stands for the typed code. Client 1 has work type 1 of product 1 on the cost centre
// 1100, whose id is 1.
struct Use {
  std::string offer_key, offer_values;
  std::string check_key, check_values;
  std::string name_column;
  std::string table, id, code;  // where the id leads back to the code
};

void PrintTo(const Use& use, std::ostream* out) {
  *out << use.check_key << ' ' << use.check_values;
}

const std::string kOfProduct = " AND LEISTUNGSART.PRODUKT_ID = 1";
const std::string kOfOrders =
    " AND PRODUKT_ID IN (SELECT PRODUKT_ID FROM LEISTUNGSART WHERE 1=(CASE WHEN EXISTS(SELECT ID FROM "
    "RELTABLE "
    "WHERE ISNULL(DISABLE,0) = 0 AND RELTABLE_ID IN (SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = "
    "'STANDARD_LEISTUNG') AND GRUPPE IN (SELECT ID FROM BBF_GRUPPE WHERE NUMBER=2) AND KURZNAME = 'E)T') "
    "THEN EST "
    "ELSE 1 END)) AND PRODUKT_ID IN (SELECT PRODUKT_ID FROM LEISTUNGSART WHERE 1=(CASE WHEN EXISTS(SELECT "
    "LISTE "
    "FROM LISTENKOPF WHERE ID_ARA_KOPF = 0) THEN LEISTUNGSART.ALLOW_HOLZ ELSE 1 END))";

const std::vector<Use> kUses = {
    {"KOSTENSTELLE_GRID", "1", "KOSTENSTELLE_VALID", "1\t?", "NAME", "KOSTENSTELLE", "ID", "NUMBER"},
    {"PRODUKT_GRID", "1", "PRODUKT_VALID", "1\t?", "NAME", "PRODUKT", "ID", "NUMBER"},
    {"PA_GRUPPE_GRID", "1", "PA_GRUPPE_VALID", "1\t?", "BEZEICHNUNG", "PA_GRUPPE", "ID", "BEZEICHNUNG"},
    {"OBJEKT_GRID", "1\t", "OBJEKT_VALID", "1\t\t?", "LONG", "OBJEKT", "ID", "NUMBER"},
    {"OBJEKT_GRID", "1", "OBJEKT_VALID", "1\t?", "LONG", "OBJEKT", "ID", "NUMBER"},
    {"VERFAHREN_LEISTUNGSART_GRID", "1\t1", "VERFAHREN_LEISTUNGSART_VALID", "1\t1\t?", "LONG", "VERFAHREN",
     "ID", "NUMBER"},
    {"LEISTUNGSART_PRODUKT_GRID", "1\t" + kOfProduct, "LEISTUNGSART_PRODUKT_VALID",
     "1\t" + kOfProduct + "\t?", "LONG", "LEISTUNGSART", "ID", "NUMBER"},
    {"LEISTUNGSART_PRODUKT_GRID", kOfProduct, "LEISTUNGSART_PRODUKT_VALID", "?\t" + kOfProduct, "LONG",
     "LEISTUNGSART", "ID", "NUMBER"},
    {"LEISTUNGSART_PRODUKT_KOSTENSTELLE_GRID", "1\t1\t1", "LEISTUNGSART_PRODUKT_VALID",
     "1\t" + kOfProduct + "\t?", "LONG", "LEISTUNGSART", "ID", "NUMBER"},
    {"PA_KOPF_GRID", "1\t2024\t1100", "PA_KOPF_VALID", "1\t2024\t1100\t?", "NAME", "ARBEITSAUFTRAG_KOPF",
     "ID", "RIGHT(NAME,4)"},
    {"PA_KOPF_GRID", "1\t2024\t1100\t" + kOfOrders, "PA_KOPF_VALID", "1\t2024\t1100\t?\t" + kOfOrders, "NAME",
     "ARBEITSAUFTRAG_KOPF", "ID", "RIGHT(NAME,4)"},
    {"PA_KOPF_GRID", "1\t2024\t1100\t AND PRODUKT_ID IN (1)", "PA_KOPF_VALID",
     "1\t2024\t1100\t AND PRODUKT_ID IN (1)\t?", "NAME", "ARBEITSAUFTRAG_KOPF", "ID", "RIGHT(NAME,4)"},
    {"T_PA_KATEGORIE_GRID", "1", "T_PA_KATEGORIE_VALID", "1\t?", "LONG", "T_PA_KATEGORIE", "ID", "NUMMER"},
    {"T_PA_KATEGORIE_GRID", "", "T_PA_KATEGORIE_VALID", "?", "LONG", "T_PA_KATEGORIE", "ID", "NUMMER"},
    {"T_KATEGORIE_GRID", "", "T_KATEGORIE_VALID", "?", "LONG", "T_KATEGORIE", "ID", "NUMMER"},
    {"RELTABLES_GRID", "2", "RELTABLES_VALID", "2\t?", "LONG", "RELTABLE", "ID", "KURZNAME"},
    {"PERSONAL_GRID_ARBEITER", "PERSONAL.ANGEMELDET = 1", "PERSONAL_VALID_ARBEITER",
     "PERSONAL.ANGEMELDET = 1\t?", "KURZBEZEICHNUNG", "PERSONAL", "ID_PERSONAL", "NUMMER"},
    {"HOLZART_LEISTUNGSART_GRID", "1", "HOLZART_LEISTUNGSART_VALID", "?\t1", "HA_LANG", "HOLZART", "ID",
     "HA"},
    {"HOLZART_LEISTUNGSART_GRID", "", "HOLZART_LEISTUNGSART_VALID", "?\t", "HA_LANG", "HOLZART", "ID", "HA"},
    {"NUTZUNGSART_LEISTUNGSART_GRID", "013", "NUTZUNGSART_LEISTUNGSART_VALID", "?\t013", "NA_LANG",
     "NUTZUNGSART", "ID", "NA"},
    {"LEISTUNG_GRID", "", "LEISTUNG_VALID", "?", "LANGNAME", "RELTABLE", "ID", "KURZNAME"},
    {"SONDERMERKMAL_GRID", "", "SONDERMERKMAL_VALID", "?", "LONG", "SONDERMERKMAL", "ID", "NUMMER"},
    {"BZT_GRID", "", "BZT_VALID", "?", "LONG", "BZT", "ID", "NUMBER"},
    {"BUNDESLAND_GRID", "", "BUNDESLAND_VALID", "?", "LONG", "T_BUNDESLAND", "ID", "SHORT"},
    {"BAUM_HERK_GEB_GRID", "", "BAUM_HERK_GEB_VALID", "?", "LONG", "T_BAUM_HERK_GEB", "ID", "SHORT"},
    {"HERK_KATEGORIE_GRID", "", "HERK_KATEGORIE_VALID", "?", "LONG", "T_HERK_KATEGORIE", "ID", "SHORT"},
    {"MWST_GRID", "", "MWST_VALID", "?", "LONG", "MWST", "ID", "SHORT"},
    {"WARENEINHEIT_GRID", "", "WARENEINHEIT_VALID", "?", "LONG", "WARENEINHEIT", "EINHEIT_ID", "EINHEIT"},
    {"LOHNGRUND_GRID", "", "LOHNGRUND_VALID", "?", "LONG", "STAMM_TABELLEN", "ID_STRING", "SHORTNAME"},
    {"EST_GRID", "", "EST_LOGS_VALID", "?", "LONG", "STAMM_TABELLEN", "SHORTNAME", "SHORTNAME"},
    {"MEFVERF_GRID", "", "MEFVERF_LOGS_VALID", "?", "LONG", "STAMM_TABELLEN", "SHORTNAME", "SHORTNAME"},
    {"RUCKE_GRID", "", "RUCKE_LOGS_VALID", "?", "LONG", "STAMM_TABELLEN", "SHORTNAME", "SHORTNAME"},
};

class NamedStatements : public ::testing::TestWithParam<Use> {
 protected:
  std::string CheckOf(const std::string& typed) const {
    return Statement(GetParam().check_key, Replaced(GetParam().check_values, typed));
  }

  // A tab may shift what was typed to where a number of the program stands: then nothing is sent.
  bool Finds(const std::string& typed) const {
    std::string statement;
    try {
      statement = CheckOf(typed);
    } catch (const DatabaseError& error) {
      return error.Number() != 102 || typed.find('\t') == typed.npos;
    }
    return !host::Demo().Open(statement).EndOfFile();
  }
};

TEST_P(NamedStatements, OfferCodesThatTheirCheckAdmits) {
  const Use& use = GetParam();
  const std::vector<std::string> codes = Offered(use.offer_key, use.offer_values);
  ASSERT_FALSE(codes.empty());
  EXPECT_EQ(std::set<std::string>(codes.begin(), codes.end()).size(), codes.size());
  for (const std::string& code : codes) {
    const Recordset rows = host::Demo().Open(CheckOf(" " + code + " "));
    ASSERT_EQ(rows.RecordCount(), 1) << code;
    EXPECT_EQ(Cell(rows, 1), code);
    EXPECT_FALSE(IsNull(rows.Fields()[use.name_column].Value()) && use.name_column != "BESCHREIBUNG") << code;
    const std::string back =
        "SELECT " + use.code + " FROM " + use.table + " WHERE " + use.id + " = '" + Cell(rows, 0) + "'";
    EXPECT_EQ(FirstColumn(host::Demo().Open(back)).front(), code);
  }
}

// What is no code is not found, however it is written; a quote goes no further than into the statement's text.
TEST_P(NamedStatements, FindNothingForWhatIsNoCode) {
  const std::string code = Offered(GetParam().offer_key, GetParam().offer_values).front();
  for (const std::string& typed :
       {code + "x", code + "; DROP TABLE OPTIONEN", code + " OR 1=1", code + "e0", "-" + code, code + ",0",
        code + "--", code + "/*", "zz\t" + code + "x", code + "\tzz", std::string("%"), std::string(),
        std::string("999999999999999999999"), std::string(" AND 1=1"), std::string("PERSONAL.DISABLE = 0"),
        std::string("\tzz"), std::string("ü"), std::string("\xC3")}) {
    EXPECT_FALSE(Finds(typed)) << typed;
  }
  EXPECT_LT(CheckOf(std::string(1'000'000, '9')).size(), 3000u);
  EXPECT_TRUE(host::Demo().Open(CheckOf(std::string(5000, 'x'))).EndOfFile());
  for (const std::string quoted : {"'", "1' OR '1'='1", "O'Brien"}) {
    try {
      FAIL() << CheckOf(quoted);
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Number(), 105) << quoted;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Lists, NamedStatements, ::testing::ValuesIn(kUses), [](const auto& use) {
  return use.param.check_key + "_" + std::to_string(use.index);
});

TEST(NamedSqlCatalog, KnowsEveryKey) {
  const std::set<std::string> keys = {"BAUM_HERK_GEB_GRID",
                                      "BAUM_HERK_GEB_VALID",
                                      "BUNDESLAND_GRID",
                                      "BUNDESLAND_VALID",
                                      "BZT_GRID",
                                      "BZT_VALID",
                                      "EST_GRID",
                                      "EST_LOGS_VALID",
                                      "HERK_KATEGORIE_GRID",
                                      "HERK_KATEGORIE_VALID",
                                      "HOLZART_LEISTUNGSART_GRID",
                                      "HOLZART_LEISTUNGSART_VALID",
                                      "KOSTENSTELLE_GRID",
                                      "KOSTENSTELLE_VALID",
                                      "LEISTUNGSART_PRODUKT_GRID",
                                      "LEISTUNGSART_PRODUKT_VALID",
                                      "LEISTUNGSART_PRODUKT_KOSTENSTELLE_GRID",
                                      "LEISTUNG_GRID",
                                      "LEISTUNG_VALID",
                                      "LOHNGRUND_GRID",
                                      "LOHNGRUND_VALID",
                                      "MEFVERF_GRID",
                                      "MEFVERF_LOGS_VALID",
                                      "MWST_GRID",
                                      "MWST_VALID",
                                      "NUTZUNGSART_LEISTUNGSART_GRID",
                                      "NUTZUNGSART_LEISTUNGSART_VALID",
                                      "OBJEKT_GRID",
                                      "OBJEKT_VALID",
                                      "PA_GRUPPE_GRID",
                                      "PA_GRUPPE_VALID",
                                      "PA_KOPF_GRID",
                                      "PA_KOPF_VALID",
                                      "PERSONAL_GRID_ARBEITER",
                                      "PERSONAL_VALID_ARBEITER",
                                      "PRODUKT_GRID",
                                      "PRODUKT_VALID",
                                      "RELTABLES_GRID",
                                      "RELTABLES_VALID",
                                      "RUCKE_GRID",
                                      "RUCKE_LOGS_VALID",
                                      "SONDERMERKMAL_GRID",
                                      "SONDERMERKMAL_VALID",
                                      "T_KATEGORIE_GRID",
                                      "T_KATEGORIE_VALID",
                                      "T_PA_KATEGORIE_GRID",
                                      "T_PA_KATEGORIE_VALID",
                                      "VERFAHREN_LEISTUNGSART_GRID",
                                      "VERFAHREN_LEISTUNGSART_VALID",
                                      "WALDORT_VALID",
                                      "WARENEINHEIT",
                                      "WARENEINHEIT_GRID",
                                      "WARENEINHEIT_VALID"};
  for (const std::string& key : keys) EXPECT_NO_THROW(Statement(key, "1\t1\t1\t1")) << key;
  for (const std::string key : {"", "EST", "EST_VALID", "WALDORT_GRID",
                                "LEISTUNGSART_PRODUKT_KOSTENSTELLE_VALID", "KOSTENSTELLE_GRID "})
    EXPECT_THROW(Statement(key, "1"), CallError) << key;
  EXPECT_THROW(Statement("KOSTENSTELLE_VALID", "1100"), CallError);  // the client is missing
  EXPECT_THROW(Statement("PA_KOPF_GRID", "1\t2024"), CallError);
}

TEST(NamedSqlCatalog, KeepsTheCodesOfClientsApart) {
  EXPECT_EQ(Checked("KOSTENSTELLE_VALID", "1\t1100"), "1");
  EXPECT_EQ(Checked("KOSTENSTELLE_VALID", "3\t1100"), "");
  EXPECT_EQ(Checked("OBJEKT_VALID", "1\t\t10"), "101");
  EXPECT_EQ(Checked("OBJEKT_VALID", "3\t\t10"), "301");
  EXPECT_EQ(Checked("PRODUKT_VALID", "1\t10"), "1");
  EXPECT_EQ(Checked("PRODUKT_VALID", "3\t10"), "1001");
  EXPECT_EQ(Offered("VERFAHREN_LEISTUNGSART_GRID", "3\t1"), std::vector<std::string>());
  EXPECT_EQ(Offered("LEISTUNGSART_PRODUKT_GRID", "3\t" + kOfProduct), std::vector<std::string>());
  EXPECT_EQ(Offered("PA_KOPF_GRID", "2\t2024\t1100"), std::vector<std::string>());
  EXPECT_EQ(Offered("KOSTENSTELLE_GRID", "99"), std::vector<std::string>());
  EXPECT_NE(Checked("PA_GRUPPE_VALID", "1\tHolzernte"), Checked("PA_GRUPPE_VALID", "3\tholzernte"));
}

// The first column is in the order of the codes, the links between the tables narrow what is on offer.
TEST(NamedSqlCatalog, OffersWhatFits) {
  EXPECT_THAT(Offered("RUCKE_GRID", ""), ElementsAre("FS", "RG", "ST"));
  EXPECT_THAT(Offered("KOSTENSTELLE_GRID", "1"),
              ElementsAre("1010", "1020", "1100", "1110", "1120", "1130", "1140", "1150", "1160", "1170",
                          "1500", "1510", "1600", "1700", "1800"));
  EXPECT_EQ(Offered("LEISTUNGSART_PRODUKT_GRID", "1\t AND LEISTUNGSART.PRODUKT_ID = 8").size(), 2u);
  EXPECT_THAT(Offered("LEISTUNGSART_PRODUKT_KOSTENSTELLE_GRID", "1\t8\t1"), ElementsAre("8020"));
  EXPECT_THAT(Offered("LEISTUNGSART_PRODUKT_KOSTENSTELLE_GRID", "1\t1\t20"), ::testing::IsEmpty());
  EXPECT_TRUE(host::Demo().Open(Statement("NUTZUNGSART_LEISTUNGSART_GRID", "00")).EndOfFile());
  EXPECT_EQ(Offered("NUTZUNGSART_LEISTUNGSART_GRID", "013").size(), 2u);
  const Recordset of_work_type = host::Demo().Open(Statement("NUTZUNGSART_LEISTUNGSART_GRID", "013"));
  EXPECT_EQ(of_work_type.Fields()[0].Name(), "NA");
}

TEST(NamedSqlCatalog, LeavesOutWhatIsOutOfUse) {
  const host::DemoCopy copy;
  const std::set<std::string> tables = {"KOSTENSTELLE", "PRODUKT",        "OBJEKT",         "VERFAHREN",
                                        "LEISTUNGSART", "RELTABLE",       "NUTZUNGSART",    "SONDERMERKMAL",
                                        "T_KATEGORIE",  "T_PA_KATEGORIE", "STAMM_TABELLEN", "PERSONAL"};
  for (const Use& use : kUses) {
    if (!tables.contains(use.table)) continue;
    const auto codes = Offered(use.offer_key, use.offer_values, *copy);
    ASSERT_FALSE(codes.empty()) << use.offer_key;
    const std::string& code = codes.back();
    const std::string row = " WHERE " + use.code + " = '" + code + "'";
    copy->Execute("UPDATE " + use.table + " SET DISABLE = 1" + row);
    EXPECT_THAT(Offered(use.offer_key, use.offer_values, *copy), ::testing::Not(Contains(code)))
        << use.offer_key;
    EXPECT_EQ(Checked(use.check_key, Replaced(use.check_values, code), *copy), "") << use.check_key;
    copy->Execute("UPDATE " + use.table + " SET DISABLE = NULL" + row);
    EXPECT_NE(Checked(use.check_key, Replaced(use.check_values, code), *copy), "") << use.check_key;
  }
  copy->Execute("UPDATE ARBEITSAUFTRAG_KOPF SET ABGENSCHLOSEN = 1 WHERE NAME = '2010202411000002'");
  EXPECT_EQ(Checked("PA_KOPF_VALID", "1\t2024\t1100\t0002", *copy), "");
}

TEST(NamedSqlCatalog, FollowsLinksOfSpecies) {
  const host::DemoCopy copy;
  copy->Execute(
      "INSERT INTO ONETOMANY (RELATION, ID_MASTER, ID_SLAVE) VALUES ('LEISTUNGSART.HOLZART', 1, 7)");
  EXPECT_THAT(Offered("HOLZART_LEISTUNGSART_GRID", "1", *copy), ElementsAre("BU"));
  EXPECT_EQ(Checked("HOLZART_LEISTUNGSART_VALID", "FI\t1", *copy), "");
  EXPECT_GT(Offered("HOLZART_LEISTUNGSART_GRID", "2", *copy).size(), 5u);
}

TEST(NamedSqlCatalog, CompletesNumbersWithZeros) {
  const std::string order = Checked("PA_KOPF_VALID", "1\t2024\t1100\t0001");
  EXPECT_EQ(Checked("PA_KOPF_VALID", "1\t2024\t1100\t1"), order);
  EXPECT_EQ(Checked("PA_KOPF_VALID", "1\t2024\t1100\t00001"), "");
  EXPECT_EQ(Checked("RELTABLES_VALID", "2\t7"), Checked("RELTABLES_VALID", "2\t007"));
  EXPECT_EQ(Checked("KOSTENSTELLE_VALID", "1\t01100"), "1");
}

TEST(NamedSqlCatalog, FindsLocationsByTheirPath) {
  const std::string path = "Kaltenwald/ Ahornboden/ Waldteil 1/ Abt. 101/ a";
  const Recordset rows = host::Demo().Open(Statement("WALDORT_VALID", "0\t" + path));
  ASSERT_EQ(rows.RecordCount(), 1);
  EXPECT_EQ(Cell(rows, 0), "3");
  EXPECT_EQ(FieldText(rows.Fields()["WALDORT"].Value(), "", Locale::German()), path);
  EXPECT_EQ(Checked("WALDORT_VALID", "1\tkaltenwald/ahornboden /waldteil 1/abt. 101/a"), "3");
  EXPECT_EQ(Checked("WALDORT_VALID", "1\t" + path + ": Plateau ober dem Köhlerbach"), "3");
  for (const std::string& values : {"2\t" + path, "0\t" + path + "/ b", std::string("0\tx"),
                                    "0\t" + path + "\tx", std::string("0\t"), std::string("0\t:")})
    EXPECT_EQ(Checked("WALDORT_VALID", values), "") << values;
  EXPECT_THROW(Statement("WALDORT_VALID", "0\ta'b"), DatabaseError);
}

// A condition of a caller stays one condition, whatever stands in it.
TEST(NamedSqlCatalog, HoldsConditionsTogether) {
  for (const std::string condition :
       {" AND 1=1) DELETE FROM OPTIONEN WHERE (1=1", " AND 1=1 -- ", " AND 1=1 /*", " AND NAME = 'x",
        " AND (1=1", " AND [a)b] = 1", " AND \"a)b\" = 1"}) {
    try {
      FAIL() << Statement("LEISTUNGSART_PRODUKT_GRID", "1\t" + condition);
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Number(), 102) << condition;
    }
  }
  const std::string two = Statement("LEISTUNGSART_PRODUKT_GRID", "1\t AND 1=1 DELETE FROM OPTIONEN");
  EXPECT_THROW(host::Demo().Open(two), DatabaseError);
  EXPECT_THAT(Statement("LEISTUNGSART_PRODUKT_GRID", " AND EST = 1 OR 1 = 1"),
              HasSubstr(" AND (EST = 1 OR 1 = 1)"));
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
  catalog.FillCombo(host::Demo(), units.combo, Statement("WARENEINHEIT", ""));
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
