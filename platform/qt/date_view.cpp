#include "platform/qt/date_view.h"

#include <QAction>
#include <QLineEdit>

#include "platform/qt/form_window.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "src/context/services/environment.h"
#include "src/context/values/date_text.h"

namespace tarvoni::qt {

DateView::DateView(DateControl& date, FormWindow& window, QWidget* parent)
    : ControlView(date, window), date_(date), edit_(new QLineEdit(parent)) {
  edit_->setFocusPolicy(Qt::TabFocus);
  edit_->setMaxLength(20);  // more than a date, so that none is cut to another one
  edit_->setContextMenuPolicy(Qt::NoContextMenu);
  edit_->setPlaceholderText("TT.MM.JJJJ");
  calendar_ = edit_->addAction(QIcon(), QLineEdit::TrailingPosition);
  calendar_->setText("Kalender");
  calendar_->setToolTip("Kalender öffnen (Strg oder F4)");
  QObject::connect(calendar_, &QAction::triggered, edit_, [this] { Open(); });
}

QWidget* DateView::Widget() const {
  return edit_;
}

QString DateView::Shown() const {
  return date_.Value() ? ToQt(FormatDate(*date_.Value(), "dd.mm.yyyy", CurrentLocale())) : QString();
}

void DateView::Show(Aspect aspect) {
  if (aspect == Aspect::kValue) {
    edit_->setText(Shown());
    if (date_.HasFocus()) edit_->selectAll();
  }
  const bool closes = aspect == Aspect::kEnabled || aspect == Aspect::kLocked;
  if (closes) calendar_->setVisible(date_.IsEnabled() && !date_.Locked());
  if (aspect == Aspect::kLocked) {
    edit_->setReadOnly(date_.Locked());
    PaintBox(*edit_, date_.BackColor(), date_.Locked());
    calendar_->setIcon(LookupIcon(*edit_));
  }
  ControlView::Show(aspect);
}

void DateView::Choose(std::optional<DateTime> day) {
  Window().Act([&](UserActions& user) { user.ChooseDate(date_, day); });
  Show(Aspect::kValue);
}

std::optional<DateTime> DateView::TypedDay() const {
  const auto day = ParseDate(FromQt(edit_->text().trimmed()), [this] { return date_.MissingYear(); });
  return day && *day >= date_.MinDate() && *day <= date_.MaxDate() ? day : std::nullopt;
}

// A text that is no day the user may choose stays to be corrected; Escape brings the date as it was.
bool DateView::Commit() {
  if (edit_->text() == Shown() || date_.Locked() || !date_.HasFocus()) return true;
  const std::string typed = FromQt(edit_->text().trimmed());
  const std::optional<DateTime> day = TypedDay();
  if (!typed.empty() && !day) {
    const auto text = [](const DateTime& limit) { return FormatDate(limit, "dd.mm.yyyy", CurrentLocale()); };
    CurrentToolkit().ShowRefusal(date_, "„" + typed + "“ ist kein Tag zwischen " + text(date_.MinDate()) +
                                            " und " + text(date_.MaxDate()) + ".");
    return false;
  }
  Window().User().ChooseDate(date_, day);
  Show(Aspect::kValue);
  return true;
}

void DateView::Open() {
  if (!edit_->text().trimmed().isEmpty() && !TypedDay()) Show(Aspect::kValue);
  Window().Act([this](UserActions& user) {
    if (!user.Focus(date_) || date_.Locked()) return;
    const auto day = CurrentToolkit().PickDate("Datum", date_.Value());
    if (day) user.ChooseDate(date_, day);
  });
}

bool DateView::Key(const QKeyEvent& event) {
  const bool up = event.key() == Qt::Key_Up;
  if (event.key() == Qt::Key_F4) {
    Open();
    return true;
  }
  if (up || event.key() == Qt::Key_Down) {
    Window().Act([](UserActions&) {});  // what was typed counts first
    if (date_.Value()) Choose(DateTime::FromDays(date_.Value()->Days() + (up ? 1 : -1)));
    return true;
  }
  if (event.key() == Qt::Key_Escape && edit_->text() != Shown()) {
    Show(Aspect::kValue);
    return true;
  }
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Escape)
    return ControlView::Key(event);
  return false;
}

bool DateView::Press(const QMouseEvent& event, bool twice) {
  ControlView::Press(event, twice);
  if (date_.HasFocus()) edit_->selectAll();
  return true;
}

bool DateView::Other(QEvent& event) {
  // Whoever comes types the date anew, as in every box.
  if (event.type() == QEvent::FocusIn) edit_->selectAll();
  return event.type() == QEvent::MouseMove || event.type() == QEvent::Drop;
}

}  // namespace tarvoni::qt
