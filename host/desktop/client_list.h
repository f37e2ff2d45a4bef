#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QWidget>
#include <functional>

#include "host/workplace.h"

namespace tarvoni::host {

// The clients of a database, with a filter over number and name.
class ClientList : public QWidget {
 public:
  // `chosen` hears that another client is current, `activated` that Enter or a double click goes on with him.
  ClientList(std::function<void()> chosen, std::function<void()> activated);

  // `current` is the id to begin with.
  void Show(const std::vector<Client>& clients, std::int32_t current);
  // Lets the user type what he looks for.
  void Search();
  // No focus proxy does this: Tab would pass by what stands before it.
  void FocusList() { list_->setFocus(); }
  // Id and name of the chosen client; 0 and "" for none.
  std::int32_t CurrentId() const;
  QString CurrentName() const;

 protected:
  // Keys between the box and the list.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Filter(const QString& text);
  bool SearchByKey(QKeyEvent& key);

  std::function<void()> activated_;
  QLineEdit* filter_;
  QLabel* none_;  // shown where no client answers
  QTreeWidget* list_;
};

}  // namespace tarvoni::host
