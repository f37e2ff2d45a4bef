#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/common/guard.h"
#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/controls/form.h"
#include "src/context/data/statement.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/services/toolkit.h"

namespace tarvoni {

// What every Screen holds: its copy of the context record and the short words for it. A Run goes
//   Enter(tvnvar); options; Connect(Data1); lists; BindMessages(); columns and layouts; state; Show();
class Screen : public Form {
 public:
  Connection* HandlerConnection() const override { return tvnvar_.dbAdo.get(); }

 protected:
  using Form::Form;

  // Takes a deep copy of the context record and loads the Screen.
  void Enter(const TvnVar_Dll& tvnvar);
  void Connect(DataControl& data) const { data.SetConnectionString(tvnvar_.strConString); }
  void BindMessages();
  // Shows the Screen modally; returns when it is unloaded.
  void Show();

  const TvnVar_Dll& Context() const { return tvnvar_; }
  Connection& Db() const { return DbOf(tvnvar_); }
  long long Execute(const SqlText& statement) const { return Db().Execute(statement); }
  Recordset Open(const SqlText& statement) const { return Db().Open(statement); }
  std::int32_t ReadNumber(const SqlText& statement) const { return tarvoni::ReadNumber(Db(), statement); }
  std::string ReadText(const SqlText& statement) const { return tarvoni::ReadText(Db(), statement); }
  std::int32_t Option(const std::string& key) const { return GetOptionNumber(key, Db()); }
  std::string OptionText(const std::string& key) const { return GetOptionText(key, Db()); }

  std::string Message(std::int32_t number) const;
  // A question with Yes and No; true on Yes.
  bool Ask(const std::string& text, std::int32_t style = kBoxYesNo + kBoxQuestion) const;
  // Tells that an entry is wrong, gives the field the focus and is false: `return Refuse(...)` ends a save.
  bool Refuse(const std::string& text, Control& field, std::int32_t style = kBoxWarning) const;
  // Message 223 with a field's caption: "… [Lohnart]".
  std::string EntryMissing(const std::string& caption) const { return Message(223) + " [" + caption + "]"; }

 private:
  TvnVar_Dll tvnvar_;
};

// A text read as digits behind a literal 0, as keys are: "" is 0. Anything else is an error.
std::int32_t ReadId(const Value& value);

}  // namespace tarvoni
