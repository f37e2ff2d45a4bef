#include "host/desktop/argument_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <algorithm>
#include <limits>

#include "host/desktop/report.h"
#include "platform/qt/public/text.h"

namespace tarvoni::host {

using qt::FromQt;
using qt::ToQt;

namespace {

constexpr int kChoiceWidth = 24;  // characters

}  // namespace

ArgumentForm::ArgumentForm(const Workplace& workplace, const std::vector<ArgumentField>& fields,
                           std::function<void()> changed)
    : workplace_(workplace), changed_(std::move(changed)) {
  auto* const form = new QFormLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  form->setRowWrapPolicy(QFormLayout::WrapLongRows);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  for (const ArgumentField& field : fields) {
    QWidget* const widget = MakeWidget(field);
    entries_.push_back({field, widget});
    if (field.kind == FieldKind::kFlag)
      form->addRow(QString(), widget);
    else
      form->addRow(ToQt(field.label + ":"), widget);
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
    case FieldKind::kRow: {
      auto* const box = new QComboBox(this);
      box->setEditable(field.free_number);
      box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
      box->setMinimumContentsLength(kChoiceWidth);
      connect(box, &QComboBox::currentTextChanged, this, [this] { changed_(); });
      return box;
    }
    case FieldKind::kNumber: {
      auto* const box = new QSpinBox(this);
      box->setRange(0, std::numeric_limits<std::uint8_t>::max());
      return box;
    }
    case FieldKind::kFlag: {
      auto* const box = new QCheckBox(ToQt(field.label), this);
      connect(box, &QCheckBox::toggled, this, [this](bool set) {
        scope_.plan = set;
        FillChoices();
      });
      return box;
    }
    default:
      return new QLineEdit(this);
  }
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

void ArgumentForm::FillChoices() {
  if (!workplace_.IsOpen()) return;
  for (const Entry& entry : entries_) {
    if (entry.field.kind != FieldKind::kRow) continue;
    auto* const box = static_cast<QComboBox*>(entry.widget);
    const QSignalBlocker quiet(box);
    const QString before = box->currentText();
    box->clear();
    if (!entry.field.none.empty()) box->addItem(ToQt(entry.field.none), 0);
    Reported(this, [&] {
      for (const Choice& choice : workplace_.Choices(entry.field.choices(scope_))) {
        box->addItem(ToQt(choice.text), choice.id);
      }
    });
    // What is there comes before what is new.
    const int first = box->count() > 1 && !entry.field.none.empty() ? 1 : 0;
    const int same = box->findText(before);
    box->setCurrentIndex(same >= first ? same : first);
    if (box->isEditable()) box->lineEdit()->setCursorPosition(0);
  }
  changed_();
}

std::string ArgumentForm::ValueOf(const Entry& entry) const {
  switch (entry.field.kind) {
    case FieldKind::kClient:
      return std::to_string(scope_.client);
    case FieldKind::kRow: {
      const auto* const box = static_cast<const QComboBox*>(entry.widget);
      const int row = box->findText(box->currentText());
      return row >= 0 ? std::to_string(box->itemData(row).toInt()) : FromQt(box->currentText().trimmed());
    }
    case FieldKind::kNumber:
      return std::to_string(static_cast<const QSpinBox*>(entry.widget)->value());
    case FieldKind::kFlag:
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
