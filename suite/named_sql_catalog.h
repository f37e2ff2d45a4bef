#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The statements by key: what a lookup offers (…_GRID), what a check admits (…_VALID), and the units of goods for a
// combo box (WARENEINHEIT). code_lists.cpp tells the values of each.
//
// …_GRID: the first column is the code that the user types, a column NAME what it stands for; in the order of the codes.
// …_VALID: no row for a code that the list does not offer, whatever was typed; else ID, the code, and the names. The
// typed code stands behind all other values unless the list says otherwise.
class NamedSqlCatalog final : public tarvoni::NamedSqlCatalog {
 public:
  // The id is in the column called ID, ID_… or …_ID, the text in the first other one.
  void FillCombo(Connection& connection, ComboBox& combo, const SqlText& sql) override;
  // A typed quote is error 105, as in every statement. Too few values are a CallError.
  SqlText GetSql(const TvnVar_Dll& context, const std::string& key, const NamedValues& values) override;
};

}  // namespace tarvoni::suite
