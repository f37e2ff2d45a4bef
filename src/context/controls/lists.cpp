#include "src/context/controls/lists.h"

#include <algorithm>

#include "src/context/values/call_error.h"
#include "src/context/values/utf8.h"

namespace tarvoni {

const ItemList::Item& ItemList::At(int index) const {
  if (index < 0 || index >= ListCount()) {
    throw CallError("Die Liste " + FullName() + " hat keinen Eintrag " + std::to_string(index) + ".");
  }
  return items_[static_cast<std::size_t>(index)];
}

void ItemList::SetItemData(int index, std::int32_t data) {
  At(index);
  items_[static_cast<std::size_t>(index)].data = data;
}

int ItemList::AddItem(std::string_view text, std::int32_t data) {
  items_.push_back({std::string(text), data});
  Announce(Aspect::kItems);
  return ListCount() - 1;
}

void ItemList::RemoveItem(int index) {
  At(index);
  items_.erase(items_.begin() + index);
  if (list_index_ == index) {
    list_index_ = -1;
  } else if (list_index_ > index) {
    --list_index_;
  }
  ItemsChanged();
  Announce(Aspect::kItems);
}

void ItemList::Clear() {
  if (items_.empty()) return;
  items_.clear();
  list_index_ = -1;
  ItemsChanged();
  Announce(Aspect::kItems);
}

void ItemList::SetListIndex(int index) {
  if (index != -1) At(index);
  if (std::exchange(list_index_, index) == index) return;
  Announce(Aspect::kText);
  Click();
}

void ComboBox::SetListIndex(int index) {
  const std::string text = index < 0 ? std::string() : List(index);
  if (index == ListIndex() && text_ == text) return;
  text_ = text;
  sel_start_ = sel_length_ = 0;
  ItemList::SetListIndex(index);
}

void ComboBox::SetText(std::string_view text) {
  if (text_ == text) return;
  if (editable_) {
    text_ = text;
    sel_start_ = sel_length_ = 0;
    Announce(Aspect::kText);
    Change();
    return;
  }
  for (int i = 0; i < ListCount(); ++i) {
    if (List(i) == text) return SetListIndex(i);
  }
  throw CallError("Die Liste " + FullName() + " hat keinen Eintrag \"" + std::string(text) + "\".");
}

void ComboBox::ItemsChanged() {
  if (ListIndex() < 0) text_.clear();
}

void ComboBox::Select(int start, int length) {
  const int size = utf8::Length(text_);
  sel_start_ = std::clamp(start, 0, size);
  sel_length_ = std::clamp(length, 0, size - sel_start_);
  Announce(Aspect::kSelection);
}

void ComboBox::SelectAll() {
  Select(0, utf8::Length(text_));
}

}  // namespace tarvoni
