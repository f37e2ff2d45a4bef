#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "include/tarvoni_lohn.h"
#include "src/context/data/recordset.h"
#include "src/context/data/sql_text.h"

namespace tarvoni::host {

// A row to choose, by its key.
struct Choice {
  std::int32_t id = 0;
  std::string text;
};

struct Client {
  std::int32_t id = 0;  // ID_PERSONAL
  std::string number;
  std::string short_name;
  std::string name;
};

// The database that the desktop host works on, and what it reads of it itself. Errors of the database leave every
// operation.
class Workplace {
 public:
  // Closes what was open. A database that does not open, or is none of ours (a CallError), leaves that open.
  void Open(const std::string& database);
  void Close();
  bool IsOpen() const { return record_.dbAdo != nullptr; }
  // As the user named it, without a password.
  const std::string& Name() const { return name_; }

  // The record that the methods get; settings go straight into it.
  TvnVar_Dll& Record() { return record_; }

  std::vector<Client> Clients() const;
  // The client to begin with; 0 if there is none.
  std::int32_t StandardClient() const;
  std::string StandardForestYear() const;
  // The currency beside the euro that the database names; "" if it names none.
  std::string LocalCurrency() const;
  // The rows of a statement: the key first, the rest as one text.
  std::vector<Choice> Choices(const SqlText& statement) const;
  // The key that a statement gives first; 0 if it gives none.
  std::int32_t FirstKey(const SqlText& statement) const;

 private:
  Recordset Read(const SqlText& statement) const;
  std::string FirstText(const SqlText& statement) const;

  std::string name_;
  TvnVar_Dll record_;
};

}  // namespace tarvoni::host
