#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>
#include <functional>

#include "host/desktop/argument_form.h"
#include "host/methods.h"

namespace tarvoni::host {

// The ten methods, and the arguments of the chosen one.
class CallPane : public QWidget {
 public:
  using Call = std::function<void(const Method&, const Arguments::Values&)>;
  // `year_used` hears whether the chosen method offers rows of a forest year.
  CallPane(const Workplace& workplace, Call call, std::function<void(bool)> year_used);

  void SetScope(const ChoiceScope& scope, const QString& client_name);
  // Another database: what was chosen in the one before means nothing in it.
  void ForgetChosen() { chosen_.clear(); }
  // Runs a call and offers what it has left. What it made is chosen where it is offered; gives its names.
  QStringList Watch(const std::function<void()>& call);
  // Chooses a method; Enter opens it then.
  void Choose(const Method& method);
  // Opens what is chosen, if all is given that it needs.
  void Open();

 private:
  void LayOut();
  void ShowMethod(int index);
  void OrderTabs();

  const Workplace& workplace_;
  Call call_;
  std::function<void(bool)> year_used_;
  QListWidget* list_;
  QGroupBox* group_;
  QLabel* purpose_;
  QVBoxLayout* column_;
  QPushButton* open_;
  ArgumentForm* form_ = nullptr;
  ChosenRows chosen_;
  ChoiceScope scope_;
  QString client_name_;
};

}  // namespace tarvoni::host
