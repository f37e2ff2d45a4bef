#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/controls/form.h"
#include "src/context/data/named_value.h"
#include "src/context/data/sql_text.h"
#include "src/context/data/tvn_var_dll.h"

// The routines that every Screen calls. Only TypedKeyFilter, SafeSetFocus, GetIdByNumberText and
// GetIdByNumberFiltered keep errors to themselves.
namespace tarvoni {

// --- messages ---

// Every message of the system goes through here; "" as title is "Tarvoni". Gives the pressed button, Yes
// is 6.
std::int32_t AppMsgBox(const std::string& prompt, std::int32_t buttons = 0, const std::string& title = {},
                       const std::string& helpFile = {}, std::int32_t context = 0);
// If `ok` is false, tells that the value of the field does not exist.
void ReportMissingField(const std::string& fieldName, bool ok, const TvnVar_Dll& ctx);

// --- options: reading an unknown key creates it ---

std::int32_t GetOptionNumber(const std::string& propertyId, Connection& conn);
std::string GetOptionText(const std::string& propertyId, Connection& conn);

// --- boxes, combos and the focus ---

// Selects the whole text of the topmost Screen's active text or combo box.
void SelectActiveText();
// Locked boxes leave the tab order and take the face colour, which FocusNextEditableTextBox reads. The same locks a
// combo box or a date.
void SetTextBoxLocked(bool locked, InputControl& box);
// Gives the focus to an enabled control; that it cannot take it is no error.
void SafeSetFocus(Control& control);
// The focus goes to the next open text box in tab order; stays at the last one.
void FocusNextEditableTextBox(Form& form);
// Chooses the last item that equals the text without regard to case; none if there is none.
void FindComboText(ComboBox& combo, const std::string& text);
// Chooses the first item with this number; none for 0, the choice stays if no item has it.
void FindComboItemData(ComboBox& combo, std::int32_t value);
// Adds the statement's rows.
void FillComboFromSql(Connection& conn, ComboBox& combo, const SqlText& sql);

// --- key filters: the key to keep, 0 for a refused one ---

// Admits a key if the active control's text with it converts to the type of the column; else message 199.
int TypedKeyFilter(int keyAscii, const std::string& table, const std::string& column, const TvnVar_Dll& ctx);
// Digits, Backspace, Enter, and one decimal separator if allowed; never a minus.
int NumericKeyFilter(int keyAscii, bool allowDecimal, std::string_view text);
int DateKeyFilter(int keyAscii, TextBox& box);
void FormatKeyFilter(int& keyAscii, TextBox& box, const std::string& format);
void FormatNumberBox(TextBox& box, const std::string& format);
int KeyFilterOptions(int& keyAscii, bool allowDecimal, TextBox& box, bool allowMinus);

// --- codes and names ---

// The statement of the catalogue.
SqlText GetNamedSql(const TvnVar_Dll& ctx, const std::string& key, const NamedValues& values);
// Boxes may be null; see NamedFieldValidator::Validate.
bool ValidateNamedField(const TvnVar_Dll& ctx, bool reportMissing, const SqlText& sql, TextBox* first,
                        TextBox* second, const std::string& nameColumn, TextBox* third,
                        const std::string& extra);
// The code of a row, "" for none and for the code 0.
std::string GetNumberById(const std::string& table, std::int32_t id, const TvnVar_Dll& ctx);
std::string GetNameById(const std::string& table, std::int32_t id, Connection& conn);
// A column of a person. A person who does not exist is an error of the read.
std::string GetPersonalColumn(const std::string& column, std::int32_t idPersonal, Connection& conn);
// The id of a code in the client's set of codes; 0 if there is none or the read fails.
std::int32_t GetIdByNumberText(const std::string& table, const std::string& number, std::int32_t idPersonal,
                               Connection& conn);
std::int32_t GetIdByNumberFiltered(const std::string& table, const std::string& number,
                                   std::int32_t idPersonal, Connection& conn, const SqlText& extraCondition);
// The path of a forest location and its long name; an unknown one sets `id` to 0 and gives "".
std::string GetWaldortText(std::int32_t& id, const TvnVar_Dll& ctx, bool noLongName);
// The numbers of the cost types under a label, joined with ", ".
std::string GetMachineCostTypeNumbers(const std::string& label, Connection& conn);

}  // namespace tarvoni
