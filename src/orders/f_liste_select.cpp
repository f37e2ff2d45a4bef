#include "src/orders/f_liste_select.h"

#include <algorithm>
#include <ranges>

#include "src/common/box_rules.h"
#include "src/common/list_pair.h"
#include "src/context/values/utf8.h"

namespace tarvoni {

F_ListeSelect::F_ListeSelect() : Screen("F_ListeSelect") {
  SelectOnFocus(txtSuche);
  OnEnter(txtSuche, FocusOnEnter(listeAll));
  txtSuche.Change = [this] { MarkFound(); };
  ConnectList(listeAll, listeSel, cmdAdd);
  ConnectList(listeSel, listeAll, cmdDel);
  cmdOK.Click = [this] { Confirm(); };
  CloseBy(cmdCancel);
}

void F_ListeSelect::Run(const TvnVar_Dll& tvnvar) {
  SelectListe.clear();
  SelectListeDelete.clear();
  Present(tvnvar, [this] {
    FillList(listeAll, strSQLAll);
    FillList(listeSel, strSQLSel);
    ShowCounts();
  });
}

void F_ListeSelect::FillList(MultiListBox& list, const SqlText& statement) const {
  list.Clear();
  if (!statement.Empty()) AddRows(Db(), list, statement);
}

void F_ListeSelect::ConnectList(MultiListBox& from, MultiListBox& to, Button& button) {
  button.Click = [&] { Move(from, to); };
  from.DblClick = [&button] { button.Press(); };
  from.KeyPress = [&](int& key) {
    if (key != kKeyEnter && key != kKeySpace) return;
    key = 0;
    MoveByKey(from, to);
  };
}

// The marked items go to the end of the other list.
void F_ListeSelect::Move(MultiListBox& from, MultiListBox& to) {
  if (from.Text().empty()) return;
  const std::vector<int> marked = from.MarkedItems();
  for (const int item : marked) to.AddItem(from.List(item), from.ItemData(item));
  for (const int item : marked | std::views::reverse) from.RemoveItem(item);
  ShowCounts();
}

// By key the next item is chosen, so that the key can be pressed again.
void F_ListeSelect::MoveByKey(MultiListBox& from, MultiListBox& to) {
  if (from.Text().empty()) return;
  const int first = from.MarkedItems().front();
  Move(from, to);
  from.SetListIndex(std::min(first, from.ListCount() - 1));
}

// Marks what holds the text in the offer, so that one key moves all of it.
void F_ListeSelect::MarkFound() {
  std::vector<int> found;
  const std::string wanted = utf8::Upper(utf8::Trim(txtSuche.Text()));
  for (int i = 0; !wanted.empty() && i < listeAll.ListCount(); ++i) {
    if (utf8::Upper(listeAll.List(i)).find(wanted) != std::string::npos) found.push_back(i);
  }
  listeAll.Mark(found);
  ShowCounts();
  if (!wanted.empty()) CurrentToolkit().Tell(std::to_string(found.size()) + " gefunden.");
}

void F_ListeSelect::ShowCounts() {
  lblAll.SetCaption("Angebot: " + std::to_string(listeAll.ListCount()));
  lblSel.SetCaption("Auswahl: " + std::to_string(listeSel.ListCount()));
}

void F_ListeSelect::Confirm() {
  SelectListe = QuotedEntries(listeSel);
  SelectListeDelete = QuotedEntries(listeAll);
  Unload();
}

}  // namespace tarvoni
