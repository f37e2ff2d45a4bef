#pragma once

#include <vector>

#include "src/context/controls/lists.h"

namespace tarvoni {

// A list in which several items can be marked at once. The chosen item is the one where the user stands; choosing one
// marks it alone.
class MultiListBox : public ListBox {
 public:
  using ListBox::ListBox;

  bool Marked(int index) const;
  std::vector<int> MarkedItems() const;  // from the first to the last
  void SetListIndex(int index) override;

  // Each of these chooses an item and leaves others marked.
  void MarkTo(int index);  // all from where the marking began to this one
  void Toggle(int index);
  void MarkAll();
  // The first of them is chosen; none chooses nothing.
  void Mark(const std::vector<int>& items);

 protected:
  void ItemsChanged() override;

 private:
  void Choose(int index);

  std::vector<bool> marked_;  // may be shorter than the list
  int anchor_ = 0;            // where the marking began
};

}  // namespace tarvoni
