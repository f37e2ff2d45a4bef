#include "suite/value_helper.h"

#include "src/context/data/database_error.h"
#include "src/context/data/statement.h"
#include "suite/convert_helper.h"
#include "tests/suite/suite_testing.h"

namespace tarvoni {
namespace {

struct Boxes : Form {
  Boxes() : Form("Boxes") {}
  TextBox box{*this, "box"};
};

// Puts a text with its selection into the box: "1[23]4", or the caret alone, "12|34".
void Fill(TextBox& box, std::string marked) {
  const auto start = marked.find_first_of("[|");
  auto end = marked.find_first_of("]|", start) - 1;
  if (marked[start] == '|') end = start;
  std::erase_if(marked, [](char c) { return c == '[' || c == ']' || c == '|'; });
  box.SetText(marked);
  box.Select(static_cast<int>(start), static_cast<int>(end - start));
}

class KeyFilters : public test::SuiteTest {
 protected:
  // The keys of `keys` that the format lets through.
  std::string Admitted(const std::string& marked, const std::string& format, const std::string& keys) {
    return Filtered(marked, keys, [&](int& key) { values.FilterKeyFormat(key, form.box, format); });
  }

  std::string AdmittedByOptions(const std::string& marked, bool decimal, bool minus,
                                const std::string& keys) {
    return Filtered(marked, keys, [&](int& key) {
      EXPECT_EQ(values.FilterKeyOptions(key, decimal, form.box, minus), key);
    });
  }

  template <typename Filter>
  std::string Filtered(const std::string& marked, const std::string& keys, Filter filter) {
    Fill(form.box, marked);
    std::string admitted;
    for (const char pressed : keys) {
      int key = pressed;
      filter(key);
      EXPECT_TRUE(key == pressed || key == 0);
      if (key != 0) admitted += pressed;
    }
    return admitted;
  }

  suite::ValueHelper values;
  Boxes form;
};

constexpr const char* kKeys = "5,.-x";

TEST_F(KeyFilters, FormatBoundsPlacesSeparatorAndMinus) {
  EXPECT_EQ(Admitted("|", "-##0.00", kKeys), "5,-");
  EXPECT_EQ(Admitted("-|", "-##0.00", kKeys), "5,");
  EXPECT_EQ(Admitted("123|", "-##0.00", kKeys), ",");
  EXPECT_EQ(Admitted("123,4|", "-##0.00", kKeys), "5");
  EXPECT_EQ(Admitted("123,45|", "-##0.00", kKeys), "");
  EXPECT_EQ(Admitted("-123,45|", "-##0.00", kKeys), "");
  EXPECT_EQ(Admitted("123|", "###0", kKeys), "5");
  EXPECT_EQ(Admitted("1234|", "###0", kKeys), "");
  for (const char* single : {"0", "#"}) {
    EXPECT_EQ(Admitted("|", single, kKeys), "5") << single;
    EXPECT_EQ(Admitted("1|", single, kKeys), "") << single;
  }
  EXPECT_EQ(Admitted("12|", "000", kKeys), "5");
  EXPECT_EQ(Admitted("123|", "000", kKeys), "");
  EXPECT_EQ(Admitted("12345678|", "0.00", kKeys), "5,") << "tells how a number looks, not how long it is";
}

TEST_F(KeyFilters, KeyCountsWhereTheCaretStands) {
  EXPECT_EQ(Admitted("|12,34", "-##0.00", kKeys), "5-");
  EXPECT_EQ(Admitted("12|,34", "-##0.00", kKeys), "5");
  EXPECT_EQ(Admitted("12,|34", "-##0.00", kKeys), "");
  EXPECT_EQ(Admitted("1|23", "-##0.00", kKeys), ",");
  EXPECT_EQ(Admitted("|1234", "-###0.00", kKeys), "-") << "a separator here would leave four places";
  EXPECT_EQ(Admitted("|-12", "-##0.00", kKeys), "") << "nothing stands before the minus";
}

TEST_F(KeyFilters, KeyReplacesTheSelection) {
  EXPECT_EQ(Admitted("[123,45]", "-##0.00", kKeys), "5,-");
  EXPECT_EQ(Admitted("1[23],45", "-##0.00", kKeys), "5");
  EXPECT_EQ(Admitted("123[,]45", "-##0.00", kKeys), ",") << "five whole digits would be left";
  EXPECT_EQ(Admitted("123,[4]5", "-##0.00", kKeys), "5");
  EXPECT_EQ(Admitted("[-]12", "-##0.00", kKeys), "5,-");
}

TEST_F(KeyFilters, SeparatorIsTheLocales) {
  environment.locale = Locale::English();
  EXPECT_EQ(Admitted("12|", "-##0.00", kKeys), "5.");
  EXPECT_EQ(AdmittedByOptions("12|", true, true, kKeys), "5.");
}

TEST_F(KeyFilters, OptionsAllowSeparatorAndMinus) {
  EXPECT_EQ(AdmittedByOptions("|", false, false, kKeys), "5");
  EXPECT_EQ(AdmittedByOptions("|", true, false, kKeys), "5,");
  EXPECT_EQ(AdmittedByOptions("|", false, true, kKeys), "5-");
  EXPECT_EQ(AdmittedByOptions("1,5|", true, true, kKeys), "5");
  EXPECT_EQ(AdmittedByOptions("[1,5]", true, true, kKeys), "5,-");
  EXPECT_EQ(AdmittedByOptions("123456789012|", true, true, kKeys), "5,");
}

TEST_F(KeyFilters, DateTakesWhatADateHolds) {
  EXPECT_EQ(Filtered("|", "5,.-/x", [&](int& key) { key = values.FilterDateKey(key, form.box); }), "5,.-");
  form.box.SetText("5");
  form.box.Select(1, 0);
  EXPECT_EQ(values.FilterDateKey('/', form.box), '.') << "5/3/24 is no 5324";
  EXPECT_EQ(values.FilterDateKey(' ', form.box), '.');
  form.box.SetText("5.");
  form.box.Select(2, 0);
  EXPECT_EQ(values.FilterDateKey(' ', form.box), 0);
}

TEST_F(KeyFilters, ControlCharactersPassInAFullBox) {
  const std::string control{'\b', '\r', '\x1b'};
  EXPECT_EQ(Admitted("1234|", "###0", control), control);
  EXPECT_EQ(AdmittedByOptions("x|", false, false, control), control);
  EXPECT_EQ(Filtered("|", control, [&](int& key) { key = values.FilterDateKey(key, form.box); }), control);
}

TEST_F(KeyFilters, TypedAndPastedTextEndsWithinTheFormat) {
  form.Load();
  form.box.KeyPress = [this](int& key) { values.FilterKeyFormat(key, form.box, "-##0.00"); };
  const auto shown = toolkit.Show(form, form.box);
  UserActions& user = shown->user;
  user.Type("-12x34,567");
  EXPECT_EQ(form.box.Text(), "-123,56");
  form.box.SelectAll();
  EXPECT_FALSE(user.Paste("8.765"));
  EXPECT_TRUE(user.Paste("8,7"));
  EXPECT_EQ(form.box.Text(), "8,7");
}

TEST_F(KeyFilters, LeavingShowsTheNumberByItsFormat) {
  const auto left = [this](const char* text, const char* format) {
    form.box.SetText(text);
    values.FormatOnLeave(form.box, format);
    return form.box.Text();
  };
  EXPECT_EQ(left("5", "0.00"), "5,00");
  EXPECT_EQ(left("1,005", "0.00"), "1,01");
  EXPECT_EQ(left("-3,456", "-##0.00"), "-3,46");
  EXPECT_EQ(left(" 7", "00"), "07");
  EXPECT_EQ(left("", "0.00"), "");
  EXPECT_EQ(left("-", "-##0.00"), "") << "never became a number";
  EXPECT_EQ(left(",", "0.00"), "");
  EXPECT_EQ(left("8.765", "0.00"), "8.765") << "could mean two numbers";
  environment.locale = Locale::English();
  EXPECT_EQ(left("8.765", "0.00"), "8.77");
}

class Values : public test::SuiteTest {
 protected:
  suite::ValueHelper values;
};

TEST_F(Values, TextsAndNumbersOfAField) {
  EXPECT_EQ(values.ToText(Null{}, true, false), "");
  EXPECT_EQ(values.ToText(Decimal(1250, 2), true, false), "12,5");
  EXPECT_EQ(values.ToText(DateTime{2024, 2, 29}, false, false), "29.02.2024");
  EXPECT_EQ(values.ToNumber(Null{}), 0);
  EXPECT_EQ(values.ToNumber("12,5"), 12.5);
  EXPECT_EQ(values.ToNumber("keine Zahl"), 0);
  EXPECT_EQ(values.ToNumber(true), 1);
  EXPECT_EQ(values.ToInteger(Null{}), 0);
  EXPECT_EQ(values.ToInteger(std::int64_t{-32768}), -32768);
  EXPECT_THROW(values.ToInteger(std::int64_t{32768}), OverflowError);
}

TEST_F(Values, ColumnsOfATable) {
  db->Execute("INSERT INTO KOSTENART (NUMBER, NAME) VALUES (4010, 'Löhne')");
  EXPECT_EQ(values.LookupColumn(context, "NAME", "KOSTENART", " NUMBER = 4010"), "Löhne");
  EXPECT_EQ(values.LookupColumn(context, "NAME", "KOSTENART", " NUMBER = 1"), "");
  EXPECT_EQ(values.LookupColumnNumber(context, "NUMBER", "KOSTENART", " NAME = 'löhne'"), 4010);
  EXPECT_EQ(values.LookupColumnNumber(context, "NUMBER", "KOSTENART", " NUMBER = 1"), 0);
  EXPECT_EQ(values.FieldText("name", db->Open("SELECT NUMBER, NAME FROM KOSTENART")), "Löhne");
  EXPECT_THROW(values.LookupColumn({}, "NAME", "KOSTENART", " NUMBER = 1"), CallError);
}

TEST_F(Values, SizeOfATextColumnNeedsNoRow) {
  EXPECT_EQ(values.ColumnSize("SELECT * FROM ARBEITSAUFTRAG", "T_FREI1", context), 50);
  EXPECT_EQ(values.ColumnSize("SELECT FWJ FROM ARBEITSAUFTRAG_KOPF", "FWJ", context), 4);
}

class Converting : public test::SuiteTest {
 protected:
  suite::ConvertHelper convert;
};

TEST_F(Converting, DateBecomesTheLiteralOfTheFormat) {
  const DateTime day{2024, 2, 29};
  EXPECT_EQ(convert.DateToSql(day, "yyyymmdd"), "20240229");
  EXPECT_EQ(convert.DateToSql(day, "'yyyy-mm-dd'"), "'2024-02-29'");
  EXPECT_EQ(convert.DateToSql("29.2.24", "yyyymmdd"), "20240229");
  EXPECT_EQ(convert.DateToSql("30.2.2024", "yyyymmdd"), "");
  EXPECT_EQ(convert.DateToSql(Null{}, "yyyymmdd"), "");
}

TEST_F(Converting, NumberGetsAPointAndLosesItsGroups) {
  EXPECT_EQ(convert.NumberToSql("-1 234 567,50", " "), "-1234567.50");
  EXPECT_EQ(convert.NumberToSql("12", ""), "12");
  EXPECT_THROW(convert.NumberToSql("1.234", " "), DatabaseError);
  EXPECT_THROW(convert.NumberToSql("0 OR 1=1", " "), DatabaseError);
  environment.locale = Locale::English();
  EXPECT_EQ(convert.NumberToSql("1 234.5", " "), "1234.5");
}

// What the key filter of a code field builds on.
TEST_F(Converting, NormalizedTextReadsAsANumber) {
  for (const Locale locale : {Locale::German(), Locale::English()}) {
    environment.locale = locale;
    EXPECT_EQ(ParseNumber(convert.NormalizeNumber("-12.5"), locale), Decimal(-125, 1));
    EXPECT_FALSE(IsNumeric(convert.NormalizeNumber("1.2.3"), locale));
  }
  environment.locale = Locale::German();
  EXPECT_EQ(ParseNumber(convert.NormalizeNumber("12,5"), environment.locale), Decimal(125, 1));
}

}  // namespace
}  // namespace tarvoni
