#include "host/desktop/client_list.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <initializer_list>

#include "platform/qt/public/text.h"

namespace tarvoni::host {

using qt::ToQt;

ClientList::ClientList(std::function<void()> chosen, std::function<void()> activated)
    : activated_(std::move(activated)),
      filter_(new QLineEdit),
      none_(new QLabel("Kein Mandant passt.")),
      list_(new QTreeWidget) {
  list_->setHeaderLabels({"Nummer", "Mandant"});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  list_->setAccessibleName("Mandanten");
  filter_->setPlaceholderText("Suchen");
  filter_->setClearButtonEnabled(true);
  filter_->setAccessibleName("Mandanten suchen");
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) { Filter(text); });
  connect(list_, &QTreeWidget::currentItemChanged, this, [chosen = std::move(chosen)] { chosen(); });
  connect(list_, &QTreeWidget::itemActivated, this, [this] { activated_(); });
  for (QWidget* const widget : std::initializer_list<QWidget*>{filter_, list_})
    widget->installEventFilter(this);

  auto* const label = new QLabel("&Mandanten");
  label->setBuddy(list_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(label);
  column->addWidget(filter_);
  column->addWidget(none_);
  none_->hide();
  column->addWidget(list_);
}

void ClientList::Show(const std::vector<Client>& clients, std::int32_t current) {
  list_->clear();
  filter_->clear();
  QTreeWidgetItem* start = nullptr;
  for (const Client& client : clients) {
    const std::string& name = client.name.empty() ? client.short_name : client.name;
    auto* const item = new QTreeWidgetItem(list_, {ToQt(client.number), ToQt(name)});
    item->setData(0, Qt::UserRole, client.id);
    item->setToolTip(1, ToQt(client.short_name));
    if (!start || client.id == current) start = item;
  }
  list_->setCurrentItem(start);
}

void ClientList::Search() {
  filter_->setFocus();
  filter_->selectAll();
}

bool ClientList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto& key = static_cast<QKeyEvent&>(*event);
  if (watched == list_) return SearchByKey(key);
  switch (key.key()) {
    case Qt::Key_Escape:
      filter_->clear();
      [[fallthrough]];
    case Qt::Key_Down:
      list_->setFocus();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (CurrentId() != 0) activated_();
      return true;
    default:
      return false;
  }
}

// Whoever types letters in the list looks for a name.
bool ClientList::SearchByKey(QKeyEvent& key) {
  const bool letter = !key.text().isEmpty() && key.text()[0].isLetterOrNumber() &&
                      (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  if (!letter) return false;
  filter_->setFocus();
  filter_->setText(key.text());
  return true;
}

std::int32_t ClientList::CurrentId() const {
  const QTreeWidgetItem* const item = list_->currentItem();
  return item ? item->data(0, Qt::UserRole).toInt() : 0;
}

QString ClientList::CurrentName() const {
  const QTreeWidgetItem* const item = list_->currentItem();
  return item ? item->text(0) + "  " + item->text(1) : QString();
}

void ClientList::Filter(const QString& text) {
  QTreeWidgetItem* first = nullptr;
  for (int i = 0; i < list_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* const item = list_->topLevelItem(i);
    const bool found = item->text(0).startsWith(text) || item->text(1).contains(text, Qt::CaseInsensitive);
    item->setHidden(!found);
    if (found && !first) first = item;
  }
  none_->setVisible(!first && !text.isEmpty());
  const QTreeWidgetItem* const current = list_->currentItem();
  if (!current || current->isHidden()) list_->setCurrentItem(first);
}

}  // namespace tarvoni::host
