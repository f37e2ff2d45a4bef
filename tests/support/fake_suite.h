#pragma once

#include <map>
#include <string>
#include <vector>

#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/call_error.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"

namespace tarvoni::test {

// The services in their plainest form: messages name their number, lookups go through the toolkit's pick
// list, named statements name their key. What a test does not need is refused.
class FakeSuite : public Suite,
                  public MessageService,
                  public LookupDialog,
                  public ValueHelper,
                  public ConvertHelper,
                  public GridLayoutStore,
                  public NamedSqlCatalog,
                  public NamedFieldValidator {
 public:
  std::vector<std::string> layouts;  // "load KEY", "save KEY"
  Form* bound = nullptr;

  MessageService& Messages() override { return *this; }
  LookupDialog& Lookup() override { return *this; }
  ValueHelper& Values() override { return *this; }
  ConvertHelper& Convert() override { return *this; }
  GridLayoutStore& GridLayouts() override { return *this; }
  NamedSqlCatalog& NamedSql() override { return *this; }
  NamedFieldValidator& NamedFields() override { return *this; }
  WaldortDialog& Waldort() override { Missing(); }
  ReportService& Reports() override { Missing(); }
  MonthPicker& Months() override { Missing(); }
  DeleteGuard& Deletes() override { Missing(); }
  PersonPicker& Persons() override { Missing(); }
  DescriptionEditor& Descriptions() override { Missing(); }

  void Bind(const TvnVar_Dll&, Form& screen) override { bound = &screen; }
  std::string GetMessage(std::int32_t number, const TvnVar_Dll&) override {
    return "M" + std::to_string(number);
  }

  std::string Pick(const TvnVar_Dll& context, const SqlText& sql, const std::string& caption,
                   const std::string& start_text, const std::string& option) override {
    if (sql.Text() == "DATUM") {
      const auto day = CurrentToolkit().PickDate(caption, ParseDate(start_text));
      return day ? FormatDate(*day, "dd.mm.yyyy", CurrentLocale()) : std::string();
    }
    Recordset rows = context.dbAdo->Open(sql);
    const PickResult result = CurrentToolkit().PickList(
        {.caption = caption, .rows = rows, .start_text = start_text, .option = option, .extra_button = {}});
    if (result.extra) return kNew;
    if (!result.row) return start_text;
    rows.Move(static_cast<long>(*result.row));
    return ToText(rows.Fields()[0].Value(), true, false);
  }

  std::string ToText(const Value& value, bool, bool) override {
    return tarvoni::FieldText(value, "", CurrentLocale());
  }
  std::int16_t ToInteger(const Value& value) override { return ToInt16(ToNumber(value)); }
  double ToNumber(const Value& value) override {
    const auto number = NumberOf(value, CurrentLocale());
    return number ? number->ToDouble() : 0;
  }
  std::string ToTextPlain(const Value& value) override { return ToText(value, true, false); }
  std::string FieldText(const std::string& column, const Recordset& rows) override {
    return ToText(rows.Fields()[column].Value(), true, false);
  }
  std::string LookupColumn(const TvnVar_Dll&, const std::string&, const std::string&,
                           const SqlText&) override {
    Missing();
  }
  double LookupColumnNumber(const TvnVar_Dll&, const std::string&, const std::string&,
                            const SqlText&) override {
    Missing();
  }
  int ColumnSize(const SqlText&, const std::string&, const TvnVar_Dll&) override { Missing(); }
  int FilterKeyOptions(int& key, bool, TextBox&, bool) override { return key; }
  void FormatOnLeave(TextBox& box, const std::string& format) override {
    const auto number = ParseNumber(box.Text(), CurrentLocale());
    box.SetText(number ? FormatNumber(*number, format, CurrentLocale()) : "");
  }
  void FilterKeyFormat(int& key, TextBox& box, const std::string& format) override {
    if (key < 32) return;
    const std::string text = (box.SelLength() > 0 ? std::string() : box.Text()) + static_cast<char>(key);
    if (!NumberMask::Of(format).Admits(text, CurrentLocale())) key = 0;
  }
  int FilterDateKey(int key, TextBox&) override { return key < 'A' ? key : 0; }

  std::string DateToSql(const Value&, const std::string&) override { Missing(); }
  std::string NumberToSql(const std::string& text, const std::string&) override { return text; }
  std::string NormalizeNumber(const std::string& text) override { return text; }

  void LoadLayout(const TvnVar_Dll&, const std::string& key, Grid&) override {
    layouts.push_back("load " + key);
  }
  void SaveLayout(const TvnVar_Dll&, const std::string& key, Grid&) override {
    layouts.push_back("save " + key);
  }

  void FillCombo(Connection& connection, ComboBox& combo, const SqlText& sql) override {
    for (Recordset rows = connection.Open(sql); !rows.EndOfFile(); rows.MoveNext()) {
      combo.AddItem(ToText(rows.Fields()[0].Value(), true, false),
                    ToInt32(ToNumber(rows.Fields()[1].Value())));
    }
  }
  // The key, a colon, and the values with tabs between them.
  SqlText GetSql(const TvnVar_Dll&, const std::string& key, const NamedValues& values) override {
    std::string text = key + ":";
    for (const NamedValue& value : values) text += (&value == values.data() ? "" : "\t") + value.Text();
    return SqlText::Verbatim(text);
  }

  bool Validate(const TvnVar_Dll& context, bool report_missing, const SqlText& sql, TextBox* code, TextBox*,
                const std::string& name_column, TextBox* name_box, const std::string&) override {
    const Recordset rows = context.dbAdo->Open(sql);
    if (rows.EndOfFile()) {
      code->Clear();
      if (name_box) name_box->SetText("");
      if (report_missing) CurrentToolkit().MessageBox("Code fehlt", kBoxWarning, "Tarvoni");
      return false;
    }
    code->SetTag(ToText(rows.Fields()["ID"].Value(), true, false));
    if (name_box) name_box->SetText(ToText(rows.Fields()[name_column].Value(), true, false));
    return true;
  }
  Value ReadColumn(const TvnVar_Dll&, const SqlText&, const std::string&) override { Missing(); }

 private:
  [[noreturn]] static void Missing() { throw CallError("Dieser Dienst fehlt im Test."); }
};

}  // namespace tarvoni::test
