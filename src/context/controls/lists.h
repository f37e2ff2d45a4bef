#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/controls/input_control.h"

namespace tarvoni {

// Items with a number each, one of them chosen. A change of ListIndex, by the user or by program, raises
// Click.
class ItemList : public InputControl {
 public:
  using InputControl::InputControl;

  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const { return At(index).text; }
  std::int32_t ItemData(int index) const { return At(index).data; }
  void SetItemData(int index, std::int32_t data);
  int AddItem(std::string_view text, std::int32_t data = 0);  // gives the new item's index
  void RemoveItem(int index);
  void Clear();

  int ListIndex() const { return list_index_; }  // -1: none
  virtual void SetListIndex(int index);
  // Number of the chosen item; 0 without one.
  std::int32_t SelectedData() const { return list_index_ < 0 ? 0 : ItemData(list_index_); }

 protected:
  virtual void ItemsChanged() {}

 private:
  struct Item {
    std::string text;
    std::int32_t data = 0;
  };
  const Item& At(int index) const;

  std::vector<Item> items_;
  int list_index_ = -1;
};

class ListBox : public ItemList {
 public:
  using ItemList::ItemList;
  std::string Text() const { return ListIndex() < 0 ? std::string() : List(ListIndex()); }
};

// A list that drops down. An editable one also takes typed text, which then names no item.
class ComboBox : public ItemList {
 public:
  using ItemList::ItemList;

  const std::string& Text() const { return text_; }
  // Editable: any text. Otherwise the text must be an item's (CallError).
  void SetText(std::string_view text);
  bool Empty() const { return text_.empty(); }
  bool Editable() const { return editable_; }
  void SetEditable(bool editable) { editable_ = editable; }
  void SetListIndex(int index) override;

  int SelStart() const { return sel_start_; }
  int SelLength() const { return sel_length_; }
  void Select(int start, int length);
  void SelectAll();

 protected:
  void ItemsChanged() override;

 private:
  std::string text_;
  bool editable_ = false;
  int sel_start_ = 0;
  int sel_length_ = 0;
};

}  // namespace tarvoni
