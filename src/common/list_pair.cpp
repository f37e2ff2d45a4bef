#include "src/common/list_pair.h"

#include "src/common/query.h"
#include "src/context/data/statement.h"

namespace tarvoni {
namespace {

bool HasChosen(const ListBox& box) {
  return !box.Text().empty();
}

void MoveChosen(ListBox& from, ListBox& to) {
  const int chosen = from.ListIndex();
  to.AddItem(from.List(chosen), from.ItemData(chosen));
  from.RemoveItem(chosen);
}

}  // namespace

void ListPair::Connect(const Buttons& buttons) {
  buttons.select.Click = [this] { Select(); };
  buttons.release.Click = [this] { Release(); };
  if (buttons.select_all != nullptr) buttons.select_all->Click = [this] { SelectAll(); };
  if (buttons.release_all != nullptr) buttons.release_all->Click = [this] { ReleaseAll(); };
}

void ListPair::Select() {
  if (!HasChosen(offered_)) return;
  Selecting();
  MoveChosen(offered_, selected_);
}

void ListPair::Release() {
  if (!HasChosen(selected_)) return;
  MoveChosen(selected_, offered_);
  Released();
}

void ListPair::SelectAll() {
  for (int i = offered_.ListCount() - 1; i >= 0; --i) {
    offered_.SetListIndex(i);
    Select();
  }
}

void ListPair::ReleaseAll() {
  for (int i = selected_.ListCount() - 1; i >= 0; --i) {
    selected_.SetListIndex(i);
    Release();
  }
}

void AddRows(Connection& connection, ListBox& box, const SqlText& statement) {
  for (Recordset rows = connection.Open(statement); !rows.EndOfFile(); rows.MoveNext()) {
    box.AddItem(ToText(rows.Fields()[0].Value()));
  }
}

std::vector<std::string> EntryTexts(const ItemList& list) {
  std::vector<std::string> texts;
  for (int i = 0; i < list.ListCount(); ++i) texts.push_back(list.List(i));
  return texts;
}

SqlText InList(const ItemList& list) {
  return TextList(EntryTexts(list));
}

std::string QuotedEntries(const ItemList& list) {
  std::string joined;
  for (const std::string& text : EntryTexts(list)) {
    if (!joined.empty()) joined += ',';
    joined += "'" + text + "'";
  }
  return joined;
}

}  // namespace tarvoni
