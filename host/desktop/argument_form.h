#pragma once

#include <QComboBox>
#include <QFormLayout>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/argument_fields.h"
#include "host/workplace.h"
#include "src/entry/arguments.h"

namespace tarvoni::host {

// Which row was chosen last, by the statement that offers it.
using ChosenRows = std::map<std::string, std::int32_t, std::less<>>;

// The fields for the arguments of one method.
class ArgumentForm : public QWidget {
 public:
  struct Heard {
    std::function<void()> changed;  // the arguments may have become complete or incomplete
    std::function<void()> entered;  // Enter in a box
  };
  // `chosen` is kept up to date and outlives the form.
  ArgumentForm(const Workplace& workplace, const std::vector<ArgumentField>& fields, ChosenRows& chosen,
               Heard heard);

  // Shows what belongs to the client and the forest year, with the client's name.
  void SetScope(const ChoiceScope& scope, const QString& client_name);
  // Shows what a call has left, and asks for nothing new any more.
  void ShowAfterCall();
  // False while a row has to be chosen and there is none.
  bool IsComplete() const;
  Arguments::Values Values() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Entry {
    ArgumentField field;
    QWidget* widget;
  };
  QWidget* MakeWidget(const ArgumentField& field);
  QWidget* MakeRowBox(const ArgumentField& field);
  QWidget* MakeFlag(const ArgumentField& field);
  void FillChoices();
  void FillBox(const ArgumentField& field, QComboBox& box);
  void ShowChosen(const ArgumentField& field, QComboBox& box);
  // The key of the row that the box begins with.
  std::int32_t StartOf(const ArgumentField& field) const;
  std::string ValueOf(const Entry& entry) const;

  const Workplace& workplace_;
  ChosenRows& chosen_;
  Heard heard_;
  std::vector<Entry> entries_;
  ChoiceScope scope_;
  bool new_number_ = false;
};

}  // namespace tarvoni::host
