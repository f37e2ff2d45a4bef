#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "src/common/guard.h"
#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/common/row_list.h"
#include "src/context/controls/form.h"
#include "src/context/data/statement.h"
#include "src/context/data/tvn_var_dll.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/services/toolkit.h"

namespace tarvoni {

// What every Screen is: controls, a copy of the context record, lists, and the order in which it opens and closes.
// docs/screens.md tells how one is made.
class Screen : public Form {
 public:
  Connection* HandlerConnection() const override { return tvnvar_.dbAdo.get(); }

  // On the way out, behind the veto. What is written here and the layouts are committed together; if that fails, the
  // user is told and the Screen closes.
  Event<> Closing;

  // A list of this Screen: it gets the record's connection before the Screen is filled.
  void AddList(RowList& list) { lists_.push_back(&list); }
  // The user's widths of the grid's columns, stored under the key from one time to the next.
  void KeepLayout(Grid& grid, std::string key) { layouts_.push_back({&grid, std::move(key)}); }

  // Carries writes out and commits them. What they give, keys above all, becomes the Screen's only then: a write or a
  // commit that fails leaves the Screen as it was.
  template <typename Writes>
  auto Committed(const Writes& writes) const {
    return tarvoni::Committed(Db(), writes);
  }

  std::string Message(std::int32_t number) const;
  // A question with Yes and No; true on Yes.
  bool Ask(const std::string& text, std::int32_t style = kBoxYesNo + kBoxQuestion) const;
  // For an UPDATE or DELETE by key. A RowGoneError if the row is not there any more.
  void ExecuteOnRow(const SqlText& statement) const { tarvoni::ExecuteOnRow(Db(), statement); }
  // Deletes a row by key, commits and reloads; a row that is gone already leaves the list too, but the user hears of it.
  void DeleteRow(const SqlText& statement, const std::function<void()>& reload) const;

 protected:
  using Form::Form;

  // Opens the Screen and returns when it is closed: a deep copy of the record, the controls, the connection of the
  // lists, the messages; then `fill` reads options and lists and sets the state; then the user's layouts.
  void Present(const TvnVar_Dll& tvnvar, const std::function<void()>& fill);
  // `closing` closes the Screen; while it is disabled, that is while a row is being edited, nothing does.
  void CloseBy(Button& closing);

  const TvnVar_Dll& Context() const { return tvnvar_; }
  Connection& Db() const { return DbOf(tvnvar_); }
  long long Execute(const SqlText& statement) const { return Db().Execute(statement); }
  // Does work that goes on from a row just made; if it fails, `undo` takes that row away again.
  template <typename Work>
  auto OrUndo(const Work& work, const SqlText& undo) const {
    return tarvoni::OrUndo(Db(), work, undo);
  }
  Recordset Open(const SqlText& statement) const { return Db().Open(statement); }
  std::int32_t ReadNumber(const SqlText& statement) const { return tarvoni::ReadNumber(Db(), statement); }
  std::string ReadText(const SqlText& statement) const { return tarvoni::ReadText(Db(), statement); }
  std::int32_t OptionNumber(const std::string& key) const { return GetOptionNumber(key, Db()); }
  std::string OptionText(const std::string& key) const { return GetOptionText(key, Db()); }
  // The standard forest year.
  int DateYear() const override;

  // Tells that an entry is wrong, gives the field the focus and is false: `return Refuse(...)` ends a save.
  bool Refuse(const std::string& text, Control& field, std::int32_t style = kBoxWarning) const;
  // The same unless the entry passed: "Die Eingabe fehlt oder ist ungültig. [Lohnart]".
  bool Require(bool passed, const Captioned& named, Control& field) const;

 private:
  struct KeptLayout {
    Grid* grid;
    std::string key;
  };
  void Leave() const;

  TvnVar_Dll tvnvar_;
  std::vector<RowList*> lists_;
  std::vector<KeptLayout> layouts_;
};

// A text read as digits behind a literal 0, as keys are: "" is 0. Anything else is an error.
std::int32_t ReadId(const Value& value);

}  // namespace tarvoni
