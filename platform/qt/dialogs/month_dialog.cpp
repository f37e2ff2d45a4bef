#include "platform/qt/dialogs/month_dialog.h"

#include <QButtonGroup>
#include <QEvent>
#include <QGridLayout>
#include <QPushButton>
#include <QToolButton>

#include "platform/qt/dialogs/entry_dialog.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/dialogs/month_entry.h"
#include "platform/qt/public/text.h"
#include "src/context/values/date_text.h"

namespace tarvoni::qt {
namespace {

constexpr int kMonthsAcross = 3;

class MonthDialog : public EntryDialog {
 public:
  MonthDialog(QWidget* parent, const std::string& caption, const YearMonth& start)
      : EntryDialog(parent, caption,
                    {.label = "&Monat:", .hint = "MM.JJJJ", .fault = "Das ist kein gültiger Monat."}),
        month_(start),
        year_(new QLabel(this)),
        months_(new QButtonGroup(this)) {
    auto* body = new QWidget(this);
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(0, 0, 0, 0);
    AddYears(grid);
    for (int month = 1; month <= 12; ++month) AddMonth(grid, month);
    AddBody(body);
    Choose(start);
    connect(months_, &QButtonGroup::idClicked, this,
            [this](int month) { Choose({.year = month_.year, .month = month}); });
  }

  const YearMonth& Month() const { return month_; }

 private:
  void AddYears(QGridLayout* grid) {
    year_->setObjectName("year");
    year_->setAlignment(Qt::AlignCenter);
    QFont bold = year_->font();
    bold.setBold(true);
    year_->setFont(bold);
    grid->addWidget(YearButton(Qt::LeftArrow, "Voriges Jahr", -1), 0, 0, Qt::AlignLeft);
    grid->addWidget(year_, 0, 1);
    grid->addWidget(YearButton(Qt::RightArrow, "Nächstes Jahr", 1), 0, kMonthsAcross - 1, Qt::AlignRight);
  }

  QToolButton* YearButton(Qt::ArrowType arrow, const char* name, int years) {
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setToolTip(name);
    button->setAccessibleName(name);
    connect(button, &QToolButton::clicked, this, [this, years] { StepBy(Step::kLarge, years); });
    return button;
  }

  void AddMonth(QGridLayout* grid, int month) {
    auto* button = new QPushButton(ToQt(MonthName(month, Locale::German())), this);
    button->setCheckable(true);
    button->setAutoDefault(false);
    button->installEventFilter(this);
    // A pressed button alone is hard to tell from the others.
    QPalette chosen = button->palette();
    chosen.setColor(QPalette::Button, chosen.color(QPalette::Highlight));
    chosen.setColor(QPalette::ButtonText, chosen.color(QPalette::HighlightedText));
    connect(button, &QPushButton::toggled, button,
            [button, chosen](bool on) { button->setPalette(on ? chosen : QPalette()); });
    months_->addButton(button, month);
    grid->addWidget(button, 1 + (month - 1) / kMonthsAcross, (month - 1) % kMonthsAcross);
  }

  bool Read(const std::string& text) override {
    const auto month = ParseMonth(text, month_.year);
    if (month) Take(*month);
    return month.has_value();
  }

  void StepBy(Step step, int count) override {
    Choose(Shifted(month_, step == Step::kSmall ? count : 12 * count));
  }

  void Choose(const YearMonth& month) {
    Take(month);
    SetText(MonthText(month));
  }

  void Take(const YearMonth& month) {
    month_ = month;
    year_->setText(QString::number(month.year));
    months_->button(month.month)->setChecked(true);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonDblClick) accept();
    return EntryDialog::eventFilter(watched, event);
  }

  YearMonth month_;
  QLabel* year_;
  QButtonGroup* months_;
};

}  // namespace

std::optional<YearMonth> ShowMonthPicker(QWidget* parent, const std::string& caption,
                                         const YearMonth& start) {
  Modal dialog(new MonthDialog(parent, caption, start));
  if (!dialog.Run()) return std::nullopt;
  return dialog->Month();
}

}  // namespace tarvoni::qt
