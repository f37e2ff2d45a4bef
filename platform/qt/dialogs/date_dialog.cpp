#include "platform/qt/dialogs/date_dialog.h"

#include <QCalendarWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextCharFormat>
#include <QToolButton>

#include "platform/qt/dialogs/entry_dialog.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/dialogs/month_entry.h"
#include "platform/qt/public/text.h"
#include "src/context/values/clock.h"
#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"

namespace tarvoni::qt {
namespace {

QDate ToQt(const DateTime& date) {
  return {date.year, date.month, date.day};
}

DateTime FromQt(const QDate& date) {
  return {.year = date.year(), .month = date.month(), .day = date.day()};
}

DateTime Today() {
  const DateTime now = Clock::Today();
  return {.year = now.year, .month = now.month, .day = now.day};
}

QCalendarWidget* MakeCalendar(QWidget* parent) {
  auto* calendar = new QCalendarWidget(parent);
  calendar->setObjectName("calendar");
  calendar->setAccessibleName("Kalender");
  calendar->setLocale(QLocale(QLocale::German, QLocale::Germany));
  calendar->setFirstDayOfWeek(Qt::Monday);
  calendar->setVerticalHeaderFormat(QCalendarWidget::ISOWeekNumbers);
  calendar->setDateRange({kFirstYear, 1, 1}, {kLastYear, 12, 31});
  // Its own red for weekends is hard to read on a dark ground.
  QTextCharFormat weekend;
  weekend.setForeground(calendar->palette().brush(QPalette::Link));
  calendar->setWeekdayTextFormat(Qt::Saturday, weekend);
  calendar->setWeekdayTextFormat(Qt::Sunday, weekend);
  QTextCharFormat head;
  head.setForeground(calendar->palette().brush(QPalette::Text));
  head.setBackground(calendar->palette().brush(QPalette::AlternateBase));
  calendar->setHeaderTextFormat(head);
  return calendar;
}

class DateDialog : public EntryDialog {
 public:
  DateDialog(QWidget* parent, const std::string& caption, const DateTime& start)
      : EntryDialog(parent, caption,
                    {.label = "&Datum:", .hint = "TT.MM.JJJJ", .fault = "Das ist kein gültiges Datum."}),
        date_(start) {
    auto* body = new QWidget(this);
    calendar_ = MakeCalendar(body);
    auto* today = new QPushButton("&Heute", body);
    today->setObjectName("today");
    today->setAutoDefault(false);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(calendar_);
    layout->addWidget(today, 0, Qt::AlignLeft);
    AddBody(body);
    Choose(start);
    connect(calendar_, &QCalendarWidget::selectionChanged, this,
            [this] { Choose(FromQt(calendar_->selectedDate())); });
    connect(calendar_, &QCalendarWidget::activated, this, [this] { accept(); });
    connect(today, &QPushButton::clicked, this, [this] { Choose(Today()); });
  }

  const DateTime& Date() const { return date_; }

 private:
  bool Read(const std::string& text) override {
    const auto date = ParseDate(text, date_);
    if (date) Take({.year = date->year, .month = date->month, .day = date->day});
    return date.has_value();
  }

  void StepBy(Step step, int count) override {
    const QDate day = ToQt(date_);
    Choose(FromQt(step == Step::kSmall   ? day.addDays(count)
                  : step == Step::kLarge ? day.addMonths(count)
                                         : day.addYears(count)));
  }

  void Choose(const DateTime& date) {
    if (date.year < kFirstYear || date.year > kLastYear) return;
    Take(date);
    SetText(FieldText(date, "", Locale::German()));
  }

  void Take(const DateTime& date) {
    date_ = date;
    const QSignalBlocker blocker(calendar_);
    calendar_->setSelectedDate(ToQt(date));
  }

  DateTime date_;
  QCalendarWidget* calendar_ = nullptr;
};

}  // namespace

std::optional<DateTime> ShowDatePicker(QWidget* parent, const std::string& caption,
                                       const std::optional<DateTime>& start) {
  Modal dialog(new DateDialog(parent, caption, start.value_or(Today())));
  if (!dialog.Run()) return std::nullopt;
  return dialog->Date();
}

}  // namespace tarvoni::qt
