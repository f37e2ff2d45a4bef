#include "host/desktop/call_pane.h"

#include <QHBoxLayout>
#include <algorithm>

#include "host/offered_rows.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"

namespace tarvoni::host {

using qt::PlainCaption;
using qt::ToQt;

CallPane::CallPane(const Workplace& workplace, Call call, std::function<void(bool)> year_used)
    : workplace_(workplace),
      call_(std::move(call)),
      year_used_(std::move(year_used)),
      list_(new QListWidget),
      group_(new QGroupBox),
      purpose_(new QLabel),
      column_(new QVBoxLayout(group_)),
      open_(new QPushButton("Ö&ffnen")) {
  list_->setAccessibleName("Bildschirme");
  for (const Method& method : Methods()) list_->addItem(PlainCaption(method.title));
  list_->setFixedWidth(list_->sizeHintForColumn(0) + qt::CharactersWide(*list_, 3));
  purpose_->setWordWrap(true);
  open_->setDefault(true);
  connect(list_, &QListWidget::currentRowChanged, this, [this](int index) { ShowMethod(index); });
  connect(list_, &QListWidget::itemActivated, this, [this] { Open(); });
  connect(open_, &QPushButton::clicked, this, [this] { Open(); });
  LayOut();
  list_->setCurrentRow(0);
}

void CallPane::LayOut() {
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(open_);
  column_->addWidget(purpose_);
  column_->addLayout(buttons);
  column_->addStretch();

  auto* const label = new QLabel("Bi&ldschirme");
  label->setBuddy(list_);
  auto* const left = new QVBoxLayout;
  left->addWidget(label);
  left->addWidget(list_);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addLayout(left);
  row->addWidget(group_, 1);
}

void CallPane::SetScope(const ChoiceScope& scope, const QString& client_name) {
  scope_ = scope;
  client_name_ = client_name;
  if (form_ && workplace_.IsOpen()) form_->SetScope(scope_, client_name_);
}

void CallPane::Choose(const Method& method) {
  list_->setCurrentRow(static_cast<int>(&method - Methods().data()));
  open_->setFocus();
}

void CallPane::ShowMethod(int index) {
  delete form_;
  form_ = nullptr;
  if (index < 0) return;
  const Method& method = Methods()[static_cast<std::size_t>(index)];
  group_->setTitle(PlainCaption(method.title));
  purpose_->setText(ToQt(method.purpose + "."));
  const std::vector<ArgumentField> fields = FieldsOf(method.name);
  year_used_(std::ranges::any_of(fields, UsesForestYear));
  form_ = new ArgumentForm(workplace_, fields, chosen_,
                           {.changed = [this] { open_->setEnabled(form_ && form_->IsComplete()); },
                            .entered = [this] { Open(); }});
  column_->insertWidget(1, form_);
  OrderTabs();
  open_->setEnabled(form_->IsComplete());
  SetScope(scope_, client_name_);
}

// The boxes of the method stand between the list and the button, though they are made last.
void CallPane::OrderTabs() {
  QWidget* before = list_;
  for (auto* const box : form_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if ((box->focusPolicy() & Qt::TabFocus) == 0) continue;
    setTabOrder(before, box);
    before = box;
  }
  setTabOrder(before, open_);
}

QStringList CallPane::Watch(const std::function<void()>& call) {
  const std::vector<OfferedRows> before = AllOffered(workplace_, scope_);
  call();
  QStringList made;
  for (const OfferedRows& list : NewlyOffered(before, AllOffered(workplace_, scope_))) {
    chosen_[list.statement] = std::ranges::max(list.rows, {}, &Choice::id).id;
    for (const Choice& row : list.rows) made << PlainCaption(list.label) + " " + ToQt(row.text);
  }
  form_->ShowAfterCall();
  return made;
}

void CallPane::Open() {
  if (!form_ || !open_->isEnabled()) return;
  call_(Methods()[static_cast<std::size_t>(list_->currentRow())], form_->Values());
}

}  // namespace tarvoni::host
