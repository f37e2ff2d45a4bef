#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/context/controls/form.h"
#include "src/context/data/named_value.h"
#include "src/context/data/recordset.h"
#include "src/context/data/sql_text.h"
#include "src/context/data/tvn_var_dll.h"

// What the system asks of the suite's shared library. Errors of the database leave every operation.
namespace tarvoni {

// Numbered messages in the user's language.
class MessageService {
 public:
  virtual ~MessageService() = default;
  virtual void Bind(const TvnVar_Dll& context, Form& screen) = 0;
  virtual std::string GetMessage(std::int32_t number, const TvnVar_Dll& context) = 0;
};

// The pick list over a statement.
class LookupDialog {
 public:
  // What Pick gives when the further button was pressed that a third "2" in the option shows.
  static constexpr const char* kNew = "&New";

  virtual ~LookupDialog() = default;
  // Shows the statement's rows, positioned at `start_text`, and gives the first column of the chosen row;
  // `start_text` on cancel. With "DATUM" for the statement and option "1" it asks for a date and gives it as
  // "dd.mm.yyyy", or "".
  virtual std::string Pick(const TvnVar_Dll& context, const SqlText& sql, const std::string& caption,
                           const std::string& start_text, const std::string& option) = 0;
};

// Conversions and key filters.
class ValueHelper {
 public:
  virtual ~ValueHelper() = default;
  virtual std::string ToText(const Value& value, bool flag_a, bool flag_b) = 0;  // "" for NULL
  virtual std::int16_t ToInteger(const Value& value) = 0;                        // OverflowError
  virtual double ToNumber(const Value& value) = 0;                               // 0 for NULL
  virtual std::string ToTextPlain(const Value& value) = 0;
  virtual std::string FieldText(const std::string& column, const Recordset& rows) = 0;
  // The column of the first row that meets the condition; "" or 0 if there is none.
  virtual std::string LookupColumn(const TvnVar_Dll& context, const std::string& column,
                                   const std::string& table, const SqlText& condition) = 0;
  virtual double LookupColumnNumber(const TvnVar_Dll& context, const std::string& column,
                                    const std::string& table, const SqlText& condition) = 0;
  // Defined size of a text column of the statement, in characters.
  virtual int ColumnSize(const SqlText& sql, const std::string& column, const TvnVar_Dll& context) = 0;
  // The key filters: `key` is the character, 0 afterwards if it is refused. Those with a result return it
  // too.
  virtual int FilterKeyOptions(int& key, bool allow_decimal, TextBox& box, bool allow_minus) = 0;
  virtual void FormatOnLeave(TextBox& box, const std::string& format) = 0;
  virtual void FilterKeyFormat(int& key, TextBox& box, const std::string& format) = 0;
  virtual int FilterDateKey(int key, TextBox& box) = 0;
};

// Text for SQL.
class ConvertHelper {
 public:
  virtual ~ConvertHelper() = default;
  // The date as the literal of `format`, with quotes only where the format holds them; "" for no date.
  virtual std::string DateToSql(const Value& date, const std::string& format) = 0;
  virtual std::string NumberToSql(const std::string& text, const std::string& separator) = 0;
  // The typed text as ParseNumber reads it in the current locale: a point becomes the locale's separator.
  virtual std::string NormalizeNumber(const std::string& text) = 0;
};

// The user's column widths, kept under a key.
class GridLayoutStore {
 public:
  virtual ~GridLayoutStore() = default;
  virtual void LoadLayout(const TvnVar_Dll& context, const std::string& key, Grid& grid) = 0;
  virtual void SaveLayout(const TvnVar_Dll& context, const std::string& key, Grid& grid) = 0;
};

// The choice of forest locations.
class WaldortDialog {
 public:
  virtual ~WaldortDialog() = default;
  // Ids and path texts of the chosen locations, in pairs; both empty on cancel.
  virtual void PickMany(const TvnVar_Dll& context, const std::string& start_text, std::int32_t scope,
                        std::vector<std::int32_t>& ids, std::vector<std::string>& texts) = 0;
  // On a choice fills `full_text` (path, ":", long name), `id` and `text` and sets `chosen`; otherwise all
  // stay.
  virtual void PickOne(const TvnVar_Dll& context, std::string& full_text, std::int32_t& id, std::string& text,
                       std::int32_t& scope, bool& chosen) = 0;
};

class ReportService {
 public:
  virtual ~ReportService() = default;
  // Prints report "EST" or "BRUTTO" of one id through the preview.
  virtual void PrintGrid(const TvnVar_Dll& context, const std::string& report, const std::string& id,
                         const std::string& selection, bool flag) = 0;
  // Mode 10: `result` is the amount of a wage order's hours. Mode 9: the rows of the month's summary as text,
  // cells parted by a tab, rows by CR LF. `person` is the worker or the client.
  virtual void PrintRows(const TvnVar_Dll& context, std::int32_t id, std::int32_t person, std::int32_t year,
                         std::int32_t month, int mode, bool& flag, Value& result) = 0;
};

class MonthPicker {
 public:
  virtual ~MonthPicker() = default;
  // Asks for a pay month, "mm.yyyy" in `text`; `accepted` tells whether one was chosen.
  virtual void PickMonth(std::string& text, const TvnVar_Dll& context, bool& accepted) = 0;
};

class DeleteGuard {
 public:
  virtual ~DeleteGuard() = default;
  // A text that reads as true if deleting may go on although or because of the rows of `sql`.
  virtual std::string ConfirmDelete(const SqlText& sql, std::int32_t first_message,
                                    std::int32_t second_message, const TvnVar_Dll& context) = 0;
};

class PersonPicker {
 public:
  virtual ~PersonPicker() = default;
  // Id of the chosen payee; `chosen` tells whether there is one.
  virtual std::int32_t PickPayee(const TvnVar_Dll& context, std::int32_t first, const std::string& type_key,
                                 std::int32_t second, bool& chosen, const std::string& text_a,
                                 const std::string& text_b, const std::string& text_c,
                                 const std::string& text_d, std::int32_t standard_client,
                                 std::int32_t current, std::int32_t scope) = 0;
};

class DescriptionEditor {
 public:
  virtual ~DescriptionEditor() = default;
  // Edits the description of a header row of `table`; `text` holds it before and after. Nothing is written.
  virtual void EditText(const TvnVar_Dll& context, std::int32_t id, bool read_only, const std::string& table,
                        std::string& text) = 0;
};

// The catalogue of statements by key.
class NamedSqlCatalog {
 public:
  virtual ~NamedSqlCatalog() = default;
  // Adds the rows to the list: text first or last, the id as item data; clears nothing.
  virtual void FillCombo(Connection& connection, ComboBox& combo, const SqlText& sql) = 0;
  // An unknown key is a CallError, as are values that the statement does not take.
  virtual SqlText GetSql(const TvnVar_Dll& context, const std::string& key, const NamedValues& values) = 0;
};

// The check of a typed code against a statement. Boxes may be null.
class NamedFieldValidator {
 public:
  virtual ~NamedFieldValidator() = default;
  // On a row: `code` gets the code, and the row's id as its Tag; `id_box` the id or number; `name_box` the
  // value of `name_column`. On none: all are cleared with the Tag, the user is told if `report_missing`, and
  // the result is false.
  virtual bool Validate(const TvnVar_Dll& context, bool report_missing, const SqlText& sql, TextBox* code,
                        TextBox* id_box, const std::string& name_column, TextBox* name_box,
                        const std::string& extra) = 0;
  // The named column of the statement's first row; NULL without one.
  virtual Value ReadColumn(const TvnVar_Dll& context, const SqlText& sql, const std::string& column) = 0;
};

// The suite's side: one instance of each service, made on first use.
class Suite {
 public:
  virtual ~Suite() = default;
  virtual MessageService& Messages() = 0;
  virtual LookupDialog& Lookup() = 0;
  virtual ValueHelper& Values() = 0;
  virtual ConvertHelper& Convert() = 0;
  virtual GridLayoutStore& GridLayouts() = 0;
  virtual WaldortDialog& Waldort() = 0;
  virtual ReportService& Reports() = 0;
  virtual MonthPicker& Months() = 0;
  virtual DeleteGuard& Deletes() = 0;
  virtual PersonPicker& Persons() = 0;
  virtual DescriptionEditor& Descriptions() = 0;
  virtual NamedSqlCatalog& NamedSql() = 0;
  virtual NamedFieldValidator& NamedFields() = 0;
};

}  // namespace tarvoni
