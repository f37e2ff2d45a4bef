#include "src/context/controls/multi_list_box.h"

#include <algorithm>

namespace tarvoni {

bool MultiListBox::Marked(int index) const {
  const auto place = static_cast<std::size_t>(index);
  return place < marked_.size() && marked_[place];
}

std::vector<int> MultiListBox::MarkedItems() const {
  std::vector<int> items;
  for (int i = 0; i < ListCount(); ++i) {
    if (Marked(i)) items.push_back(i);
  }
  return items;
}

void MultiListBox::SetListIndex(int index) {
  if (index < 0) return Mark({});
  List(index);  // must be there
  Mark({index});
}

void MultiListBox::MarkTo(int index) {
  const int from = anchor_;
  std::vector<int> items;
  for (int i = std::min(from, index); i <= std::max(from, index); ++i) items.push_back(i);
  Mark(items);
  anchor_ = from;
  Choose(index);
}

void MultiListBox::Toggle(int index) {
  std::vector<int> items = MarkedItems();
  if (std::erase(items, index) == 0) items.insert(std::ranges::lower_bound(items, index), index);
  Mark(items);
  if (!items.empty()) Choose(index);
  anchor_ = index;
}

void MultiListBox::MarkAll() {
  if (ListCount() == 0) return;
  anchor_ = 0;
  MarkTo(ListCount() - 1);
}

void MultiListBox::Mark(const std::vector<int>& items) {
  marked_.assign(static_cast<std::size_t>(ListCount()), false);
  for (const int item : items) marked_.at(static_cast<std::size_t>(item)) = true;
  anchor_ = items.empty() ? 0 : items.front();
  Choose(items.empty() ? -1 : items.front());
}

void MultiListBox::Choose(int index) {
  ListBox::SetListIndex(index);
  Announce(Aspect::kSelection);
}

// What stays chosen stays marked.
void MultiListBox::ItemsChanged() {
  marked_.assign(static_cast<std::size_t>(ListCount()), false);
  if (ListIndex() >= 0) marked_[static_cast<std::size_t>(ListIndex())] = true;
  anchor_ = std::max(ListIndex(), 0);
}

}  // namespace tarvoni
