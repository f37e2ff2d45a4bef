#include "host/desktop/start_page.h"

#include <QCommandLinkButton>

#include "platform/qt/public/look.h"

namespace tarvoni::host {
namespace {

constexpr int kPageWidth = 70;  // characters

QCommandLinkButton* Link(const QString& text, const QString& description,
                         const std::function<void()>& action) {
  auto* const link = new QCommandLinkButton(text, description);
  link->setAutoDefault(true);  // Enter presses it
  QObject::connect(link, &QCommandLinkButton::clicked, link, [action] { action(); });
  return link;
}

QLabel* Heading(const QString& text, double scale) {
  auto* const label = new QLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(true);
  label->setFont(font);
  return label;
}

}  // namespace

StartPage::StartPage(Actions actions)
    : actions_(std::move(actions)),
      recent_label_(Heading("Zuletzt geöffnet", 1.1)),
      recent_(new QListWidget) {
  recent_->setAccessibleName("Zuletzt geöffnete Datenbanken");
  // Kept in the layout while hidden, so that what stands above does not move.
  QSizePolicy policy = recent_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  recent_->setSizePolicy(policy);
  connect(recent_, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { actions_.open(item->text()); });

  auto* const page = new QWidget;
  page->setMaximumWidth(qt::CharactersWide(*this, kPageWidth));
  auto* const column = new QVBoxLayout(page);
  column->addWidget(Heading("Tarvoni Lohn", 2));
  column->addWidget(new QLabel("Lohn und Kostenrechnung eines Forstbetriebs"));
  column->addSpacing(fontMetrics().height());
  AddLinks(*column);
  column->addSpacing(fontMetrics().height());
  column->addWidget(recent_label_);
  column->addWidget(recent_, 1);

  auto* const row = new QHBoxLayout(this);
  row->addStretch(1);
  row->addWidget(page, 8);
  row->addStretch(1);
}

void StartPage::AddLinks(QVBoxLayout& column) {
  own_ = Link("Ei&genen Betrieb anlegen", "eine neue Datei mit einem Mandanten und den Codes",
              actions_.make_enterprise);
  column.addWidget(
      Link("Datenbank &öffnen", "eine Datei auf diesem Rechner oder im Netz", actions_.open_file));
  column.addWidget(Link("Mit &Server verbinden", "eine Datenbank auf einem Server", actions_.connect_server));
  column.addWidget(own_);
  column.addWidget(
      Link("&Musterbetrieb anlegen", "ein erfundener Forstbetrieb zum Ausprobieren", actions_.make_demo));
}

void StartPage::ShowRecent(const QStringList& databases) {
  recent_->clear();
  recent_->addItems(databases);
  if (!databases.isEmpty()) recent_->setCurrentRow(0);
  recent_label_->setVisible(!databases.isEmpty());
  recent_->setVisible(!databases.isEmpty());
}

void StartPage::FocusStart() {
  (recent_->count() > 0 ? recent_ : own_)->setFocus();
}

}  // namespace tarvoni::host
