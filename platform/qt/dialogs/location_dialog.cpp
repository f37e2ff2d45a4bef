#include "platform/qt/dialogs/location_dialog.h"

#include <QCoreApplication>
#include <QDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/dialogs/dialog_parts.h"
#include "platform/qt/dialogs/location_tree.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

constexpr int kFewToOpen = 40;  // a tree so small is shown with all its nodes
constexpr int kNodeRole = Qt::UserRole;

class LocationDialog : public QDialog {
 public:
  LocationDialog(QWidget* parent, const LocationRequest& request);
  std::vector<std::int32_t> Ids() const;

  void accept() override {
    if (ok_->isEnabled()) QDialog::accept();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  QHBoxLayout* FilterLine();
  QHBoxLayout* Foot();
  void Fill();
  void Begin();
  void FilterNodes();
  void ShowState();
  void MakeCurrent(int node);
  void MarkBelow(int node, Qt::CheckState state);
  void ShowGroupMarks();
  void Toggle(QTreeWidgetItem* item);
  void ItemChanged(QTreeWidgetItem* item);
  bool FilterKey(QKeyEvent& key);
  bool TreeKey(QKeyEvent& key);
  QTreeWidgetItem* Item(int node) const { return items_[static_cast<std::size_t>(node)]; }
  const LocationTree::Node& NodeAt(int node) const { return nodes_.Nodes()[static_cast<std::size_t>(node)]; }
  std::vector<int> MarkedNodes() const;
  int CurrentNode() const;

  const LocationRequest& request_;
  LocationTree nodes_;
  std::vector<QTreeWidgetItem*> items_;  // of each node
  QLineEdit* filter_;
  QTreeWidget* tree_;
  QLabel* state_;
  QPushButton* ok_ = nullptr;
  bool marking_ = false;
};

LocationDialog::LocationDialog(QWidget* parent, const LocationRequest& request)
    : QDialog(parent),
      request_(request),
      nodes_(request.locations),
      filter_(new QLineEdit(this)),
      tree_(new QTreeWidget(this)),
      state_(new QLabel(this)) {
  setWindowTitle(ToQt(request.caption));
  Build();
  Fill();
  Begin();
  connect(filter_, &QLineEdit::textChanged, this, [this] { FilterNodes(); });
  connect(tree_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) { ItemChanged(item); });
  connect(tree_, &QTreeWidget::currentItemChanged, this, [this] { ShowState(); });
  connect(tree_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
    if (!request_.many && NodeAt(item->data(0, kNodeRole).toInt()).location) accept();
  });
}

void LocationDialog::Build() {
  tree_->setObjectName("tree");
  tree_->setAccessibleName(ToQt(request_.caption));
  tree_->setUniformRowHeights(true);
  tree_->setHeaderLabels({"Waldort", "Bezeichnung"});
  tree_->installEventFilter(this);
  state_->setObjectName("state");
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(FilterLine());
  layout->addWidget(tree_, 1);
  layout->addWidget(state_);
  layout->addLayout(Foot());
  ResizeWithin(*this, {CharactersWide(*this, 90), LinesHigh(*this, 36)});
}

QHBoxLayout* LocationDialog::FilterLine() {
  filter_->setObjectName("filter");
  filter_->setClearButtonEnabled(true);
  filter_->setPlaceholderText("Teil des Pfades oder der Bezeichnung");
  filter_->installEventFilter(this);
  auto* label = new QLabel("&Suchen:", this);
  label->setBuddy(filter_);
  auto* line = new QHBoxLayout;
  line->addWidget(label);
  line->addWidget(filter_);
  return line;
}

QHBoxLayout* LocationDialog::Foot() {
  const DialogButtons buttons = MakeButtons(*this, "Ü&bernehmen");
  ok_ = buttons.ok;
  if (!request_.many) return buttons.line;
  auto* clear = new QPushButton("&Keine markieren", this);
  clear->setObjectName("clear");
  connect(clear, &QPushButton::clicked, this, [this] {
    for (const int node : MarkedNodes()) Item(node)->setCheckState(0, Qt::Unchecked);
  });
  buttons.line->insertWidget(0, clear);
  return buttons.line;
}

void LocationDialog::Fill() {
  QList<QTreeWidgetItem*> roots;
  for (int node = 0; node < static_cast<int>(nodes_.Nodes().size()); ++node) {
    const LocationTree::Node& shown = NodeAt(node);
    auto* item =
        shown.parent == LocationTree::kNone ? new QTreeWidgetItem : new QTreeWidgetItem(Item(shown.parent));
    if (shown.parent == LocationTree::kNone) roots.push_back(item);
    item->setText(0, ToQt(shown.part));
    if (shown.location) item->setText(1, ToQt(request_.locations[*shown.location].name));
    item->setData(0, kNodeRole, node);
    if (request_.many) item->setCheckState(0, Qt::Unchecked);
    items_.push_back(item);
  }
  tree_->addTopLevelItems(roots);
  tree_->header()->setSectionResizeMode(0, QHeaderView::Interactive);
  tree_->header()->resizeSection(0, CharactersWide(*this, 50));
  const bool named =
      std::ranges::any_of(request_.locations, [](const Location& l) { return !l.name.empty(); });
  tree_->setColumnHidden(1, !named);
}

void LocationDialog::Begin() {
  if (items_.size() <= kFewToOpen) tree_->expandAll();
  const int start = nodes_.NodeOf(request_.start_text);
  if (!items_.empty()) MakeCurrent(start == LocationTree::kNone ? 0 : start);
  ShowState();
  filter_->setFocus();
}

void LocationDialog::MakeCurrent(int node) {
  tree_->setCurrentItem(Item(node));
  tree_->scrollToItem(Item(node), QAbstractItemView::PositionAtCenter);
}

int LocationDialog::CurrentNode() const {
  const QTreeWidgetItem* item = tree_->currentItem();
  return item && !item->isHidden() ? item->data(0, kNodeRole).toInt() : LocationTree::kNone;
}

std::vector<int> LocationDialog::MarkedNodes() const {
  std::vector<int> marked;
  for (int node = 0; node < static_cast<int>(items_.size()); ++node) {
    if (NodeAt(node).location && Item(node)->checkState(0) == Qt::Checked) marked.push_back(node);
  }
  return marked;
}

std::vector<std::int32_t> LocationDialog::Ids() const {
  std::vector<int> nodes = request_.many ? MarkedNodes() : std::vector<int>();
  if (nodes.empty()) nodes = {CurrentNode()};
  std::vector<std::size_t> locations;
  for (const int node : nodes) locations.push_back(NodeAt(node).location.value());
  std::ranges::sort(locations);
  std::vector<std::int32_t> ids;
  for (const std::size_t location : locations) ids.push_back(request_.locations[location].id);
  return ids;
}

void LocationDialog::FilterNodes() {
  const LocationTree::Found found = nodes_.Find(FromQt(filter_->text()));
  const bool filtered = !filter_->text().trimmed().isEmpty();
  tree_->setUpdatesEnabled(false);
  for (std::size_t i = 0; i < items_.size(); ++i) {
    items_[i]->setHidden(!found.shown[i]);
    if (filtered) items_[i]->setExpanded(found.open[i]);
  }
  if (found.best != LocationTree::kNone) MakeCurrent(found.best);
  tree_->setUpdatesEnabled(true);
  ShowState();
}

void LocationDialog::ShowState() {
  const std::size_t marked = request_.many ? MarkedNodes().size() : 0;
  const int current = CurrentNode();
  const bool location = current != LocationTree::kNone && NodeAt(current).location;
  ok_->setEnabled(marked > 0 || location);
  if (marked > 0) {
    state_->setText(QString::number(marked) + (marked == 1 ? " Waldort markiert" : " Waldorte markiert"));
  } else if (location) {
    state_->setText(ToQt(request_.locations[*NodeAt(current).location].path));
  } else {
    state_->setText(items_.empty()                   ? "Es gibt noch keine Waldorte."
                    : current == LocationTree::kNone ? "Kein Waldort passt."
                                                     : "Bitte einen Waldort wählen.");
  }
}

// A node that only holds others marks those it shows below it.
void LocationDialog::MarkBelow(int node, Qt::CheckState state) {
  QTreeWidgetItem* item = Item(node);
  for (int i = 0; i < item->childCount(); ++i) {
    QTreeWidgetItem* child = item->child(i);
    if (child->isHidden()) continue;
    const int below = child->data(0, kNodeRole).toInt();
    if (NodeAt(below).location) child->setCheckState(0, state);
    MarkBelow(below, state);
  }
}

// Marks each holding node by what is below it, shown or not.
void LocationDialog::ShowGroupMarks() {
  struct Below {
    int all = 0;
    int marked = 0;
  };
  std::vector<Below> below(items_.size());
  for (std::size_t i = items_.size(); i-- > 0;) {
    const LocationTree::Node& node = nodes_.Nodes()[i];
    if (node.location) {
      ++below[i].all;
      below[i].marked += items_[i]->checkState(0) == Qt::Checked;
    } else {
      const Qt::CheckState none_or_some = below[i].marked == 0 ? Qt::Unchecked : Qt::PartiallyChecked;
      items_[i]->setCheckState(0, below[i].marked == below[i].all ? Qt::Checked : none_or_some);
    }
    if (node.parent == LocationTree::kNone) continue;
    below[static_cast<std::size_t>(node.parent)].all += below[i].all;
    below[static_cast<std::size_t>(node.parent)].marked += below[i].marked;
  }
}

void LocationDialog::ItemChanged(QTreeWidgetItem* item) {
  if (marking_ || !request_.many) return;
  marking_ = true;
  const int node = item->data(0, kNodeRole).toInt();
  if (!NodeAt(node).location) MarkBelow(node, item->checkState(0));
  ShowGroupMarks();
  marking_ = false;
  ShowState();
}

void LocationDialog::Toggle(QTreeWidgetItem* item) {
  if (item) item->setCheckState(0, item->checkState(0) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

bool LocationDialog::FilterKey(QKeyEvent& key) {
  const bool control = key.modifiers().testFlag(Qt::ControlModifier);
  if (request_.many && control && key.key() == Qt::Key_Space) {
    Toggle(tree_->currentItem());
    return true;
  }
  const bool folds = control && (key.key() == Qt::Key_Left || key.key() == Qt::Key_Right);
  if (!MovesInList(key) && !folds) return false;
  QKeyEvent sent(key.type(), key.key(), folds ? Qt::NoModifier : key.modifiers());
  QCoreApplication::sendEvent(tree_, &sent);
  return true;
}

bool LocationDialog::TreeKey(QKeyEvent& key) {
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    accept();
    return true;
  }
  if (key.key() == Qt::Key_Space || !TypesText(key)) return false;
  filter_->setFocus();
  QCoreApplication::sendEvent(filter_, &key);
  return true;
}

bool LocationDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto& key = *static_cast<QKeyEvent*>(event);
    if (watched == filter_ && FilterKey(key)) return true;
    if (watched == tree_ && focusWidget() != filter_ && TreeKey(key)) return true;
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace

std::vector<std::int32_t> ShowLocations(QWidget* parent, const LocationRequest& request) {
  Modal dialog(new LocationDialog(parent, request));
  return dialog.Run() ? dialog->Ids() : std::vector<std::int32_t>();
}

}  // namespace tarvoni::qt
