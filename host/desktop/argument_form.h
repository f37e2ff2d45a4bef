#pragma once

#include <QFormLayout>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "host/argument_fields.h"
#include "host/workplace.h"
#include "src/entry/arguments.h"

namespace tarvoni::host {

// The fields for the arguments of one method.
class ArgumentForm : public QWidget {
 public:
  // `changed` hears when the arguments become complete or incomplete.
  ArgumentForm(const Workplace& workplace, const std::vector<ArgumentField>& fields,
               std::function<void()> changed);

  // Shows what belongs to the client and the forest year, with the client's name.
  void SetScope(const ChoiceScope& scope, const QString& client_name);
  // False while a row has to be chosen and there is none.
  bool IsComplete() const;
  Arguments::Values Values() const;

 private:
  struct Entry {
    ArgumentField field;
    QWidget* widget;
  };
  QWidget* MakeWidget(const ArgumentField& field);
  void FillChoices();
  std::string ValueOf(const Entry& entry) const;

  const Workplace& workplace_;
  std::function<void()> changed_;
  std::vector<Entry> entries_;
  ChoiceScope scope_;
};

}  // namespace tarvoni::host
