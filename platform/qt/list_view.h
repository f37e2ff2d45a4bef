#pragma once

#include "platform/qt/control_view.h"
#include "platform/qt/public/text.h"
#include "src/context/controls/multi_list_box.h"

class QComboBox;
class QListWidget;

namespace tarvoni::qt {

// Keys that lists have in common: to the ends, a page on, and to the next item that begins with a letter.
class ItemListView : public ControlView {
 public:
  ItemListView(ItemList& list, FormWindow& window) : ControlView(list, window), list_(list) {}

 protected:
  bool Navigate(const QKeyEvent& event) override;
  // The item that a key of the list leads to; the present one for other keys.
  int Target(const QKeyEvent& event) const;
  void Typed(const std::u32string& text) override;
  void Choose(int index);
  // Fills a list or combo box of Qt. Items mostly come one behind the other.
  template <typename Widget>
  void ShowItems(Widget& widget) const {
    const int count = list_.ListCount();
    if (widget.count() + 1 != count) widget.clear();
    for (int i = widget.count(); i < count; ++i) widget.addItem(ToQt(list_.List(i)));
  }
  ItemList& Items() const { return list_; }

 private:
  ItemList& list_;
};

class ListBoxView : public ItemListView {
 public:
  ListBoxView(ListBox& list, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  void Show(Aspect aspect) override;
  bool Press(const QMouseEvent& event, bool twice) override;
  bool Release(const QMouseEvent&) override { return true; }
  bool Other(QEvent& event) override;

 protected:
  QListWidget& Box() const { return *widget_; }
  virtual void ShowChoice();
  // The item under the pointer; -1 for none.
  int ItemAt(const QMouseEvent& event) const;

 private:
  void ShowItemsAnew();

  QListWidget* widget_;
  bool stale_ = false;  // items went; the list is shown anew when the handler has taken all that it takes
};

// Shift marks from item to item, Ctrl one by one, Ctrl+A all.
class MultiListBoxView : public ListBoxView {
 public:
  MultiListBoxView(MultiListBox& list, FormWindow& window, QWidget* parent);
  void Show(Aspect aspect) override;
  bool Key(const QKeyEvent& event) override;
  bool Press(const QMouseEvent& event, bool twice) override;

 protected:
  bool Navigate(const QKeyEvent& event) override;
  void ShowChoice() override;

 private:
  MultiListBox& list_;
};

class ComboBoxView : public ItemListView {
 public:
  ComboBoxView(ComboBox& combo, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  void Show(Aspect aspect) override;
  bool Key(const QKeyEvent& event) override;
  bool Press(const QMouseEvent& event, bool twice) override;
  bool Other(QEvent& event) override;

 protected:
  bool Navigate(const QKeyEvent& event) override;
  void Typed(const std::u32string& text) override;

 private:
  // The user picks an item of the open list.
  void Pick(int index);
  bool EditsText() const;
  void ShowText() const;
  void ShowSelection() const;
  void EditorChanged(const QString& text);
  void Open();

  ComboBox& combo_;
  QComboBox* widget_;
  bool mirroring_ = false;
};

}  // namespace tarvoni::qt
