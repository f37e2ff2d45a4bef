#include "host/desktop/argument_form.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "host/desktop/digits.h"
#include "host/desktop/report.h"
#include "platform/qt/public/text.h"

namespace tarvoni::host {

using qt::FromQt;
using qt::ToQt;

namespace {

constexpr int kChoiceWidth = 30;  // characters

constexpr int kDigitsOfNumber = 9;

// A free one, behind those there are.
std::int32_t NextNumber(const std::vector<Choice>& rows) {
  return rows.empty() ? 1 : std::ranges::max(rows, {}, &Choice::id).id + 1;
}

bool IsFlag(const ArgumentField& field) {
  return field.kind == FieldKind::kPlans || field.kind == FieldKind::kNew;
}

}  // namespace

ArgumentForm::ArgumentForm(const Workplace& workplace, const std::vector<ArgumentField>& fields,
                           ChosenRows& chosen, Heard heard)
    : workplace_(workplace), chosen_(chosen), heard_(std::move(heard)) {
  auto* const form = new QFormLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  form->setRowWrapPolicy(QFormLayout::WrapLongRows);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  for (const ArgumentField& field : fields) {
    QWidget* const widget = MakeWidget(field);
    entries_.push_back({field, widget});
    form->addRow(IsFlag(field) ? QString() : ToQt(field.label + ":"), widget);
  }
  if (fields.empty()) form->addRow(new QLabel("Keine weiteren Angaben nötig."));
}

QWidget* ArgumentForm::MakeWidget(const ArgumentField& field) {
  switch (field.kind) {
    case FieldKind::kClient: {
      auto* const label = new QLabel(this);
      label->setTextFormat(Qt::PlainText);
      return label;
    }
    case FieldKind::kRow:
      return MakeRowBox(field);
    case FieldKind::kPlans:
    case FieldKind::kNew:
      return MakeFlag(field);
    default:
      return new QLineEdit(this);
  }
}

QWidget* ArgumentForm::MakeRowBox(const ArgumentField& field) {
  auto* const box = new QComboBox(this);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(kChoiceWidth);
  connect(box, &QComboBox::currentTextChanged, this, [this] { heard_.changed(); });
  connect(box, &QComboBox::currentIndexChanged, this, [this, box, choices = field.choices](int index) {
    if (index >= 0) chosen_[std::string(choices(scope_).Text())] = box->itemData(index).toInt();
  });
  return box;
}

QWidget* ArgumentForm::MakeFlag(const ArgumentField& field) {
  auto* const box = new QCheckBox(ToQt(field.label), this);
  bool& flag = field.kind == FieldKind::kPlans ? scope_.plan : new_number_;
  connect(box, &QCheckBox::toggled, this, [this, &flag](bool set) {
    flag = set;
    FillChoices();
  });
  return box;
}

void ArgumentForm::SetScope(const ChoiceScope& scope, const QString& client_name) {
  const bool plan = scope_.plan;
  scope_ = scope;
  scope_.plan = plan;
  for (const Entry& entry : entries_) {
    if (entry.field.kind == FieldKind::kClient) static_cast<QLabel*>(entry.widget)->setText(client_name);
  }
  FillChoices();
}

void ArgumentForm::ShowAfterCall() {
  for (const Entry& entry : entries_) {
    if (entry.field.kind == FieldKind::kNew) static_cast<QCheckBox*>(entry.widget)->setChecked(false);
  }
  FillChoices();
}

// A box leaves Enter to whoever it stands in.
void ArgumentForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return heard_.entered();
  QWidget::keyPressEvent(event);
}

void ArgumentForm::FillChoices() {
  if (!workplace_.IsOpen()) return;
  Reported(this, [this] {
    for (const Entry& entry : entries_) {
      if (entry.field.kind == FieldKind::kRow) FillBox(entry.field, *static_cast<QComboBox*>(entry.widget));
    }
  });
  heard_.changed();
}

void ArgumentForm::FillBox(const ArgumentField& field, QComboBox& box) {
  const bool typed = field.free_number && new_number_;
  if (typed && box.isEditable()) return;  // what was typed stays
  const QSignalBlocker quiet(box);
  box.clear();
  box.setEditable(typed);
  const std::vector<Choice> rows = workplace_.Choices(field.choices(scope_));
  if (typed) {
    TakeDigits(*box.lineEdit(), kDigitsOfNumber);
    box.setEditText(QString::number(NextNumber(rows)));
    return;
  }
  const std::string where = UsesForestYear(field) ? "im Forstjahr " + scope_.forest_year + " " : "";
  box.setPlaceholderText(ToQt(where + "nichts vorhanden"));
  if (!field.none.empty()) box.addItem(ToQt(field.none), 0);
  for (const Choice& row : rows) box.addItem(ToQt(row.text), row.id);
  ShowChosen(field, box);
}

// What is there comes before what is new.
void ArgumentForm::ShowChosen(const ArgumentField& field, QComboBox& box) {
  const int first = box.count() > 1 && !field.none.empty() ? 1 : 0;
  box.setCurrentIndex(std::max(first, box.findData(StartOf(field))));
}

std::int32_t ArgumentForm::StartOf(const ArgumentField& field) const {
  const auto chosen = chosen_.find(field.choices(scope_).Text());
  if (chosen != chosen_.end()) return chosen->second;
  const SqlText start = field.start ? field.start(scope_) : SqlText();
  return start.Empty() ? 0 : workplace_.FirstKey(start);
}

std::string ArgumentForm::ValueOf(const Entry& entry) const {
  switch (entry.field.kind) {
    case FieldKind::kClient:
      return std::to_string(scope_.client);
    case FieldKind::kRow: {
      const auto* const box = static_cast<const QComboBox*>(entry.widget);
      if (box->isEditable()) return FromQt(box->currentText());
      return box->currentIndex() < 0 ? std::string() : std::to_string(box->currentData().toInt());
    }
    case FieldKind::kPlans:
    case FieldKind::kNew:
      return static_cast<const QCheckBox*>(entry.widget)->isChecked() ? "1" : "0";
    default:
      return FromQt(static_cast<const QLineEdit*>(entry.widget)->text());
  }
}

bool ArgumentForm::IsComplete() const {
  return std::ranges::all_of(entries_, [this](const Entry& entry) {
    if (entry.field.kind == FieldKind::kClient) return scope_.client != 0;
    return entry.field.kind != FieldKind::kRow || !ValueOf(entry).empty();
  });
}

Arguments::Values ArgumentForm::Values() const {
  Arguments::Values values;
  for (const Entry& entry : entries_) values[entry.field.parameter] = ValueOf(entry);
  return values;
}

}  // namespace tarvoni::host
