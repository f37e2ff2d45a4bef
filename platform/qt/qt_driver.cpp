#include "platform/qt/public/qt_driver.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QTabBar>
#include <QTableView>
#include <algorithm>

#include "platform/qt/date_view.h"
#include "platform/qt/dialogs/print_pages.h"
#include "platform/qt/form_window.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/keys.h"
#include "platform/qt/public/table_view.h"
#include "platform/qt/public/text.h"
#include "platform/qt/tab_view.h"
#include "platform/qt/text_box_view.h"
#include "platform/qt/xlsx_file.h"
#include "src/context/services/environment.h"
#include "src/context/values/call_error.h"
#include "src/context/values/date_text.h"

namespace tarvoni::qt {
namespace {

void SendMouse(QWidget& widget, QEvent::Type type, QPoint place) {
  const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, held, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void SendClick(QWidget& widget, QPoint place) {
  SendMouse(widget, QEvent::MouseButtonPress, place);
  SendMouse(widget, QEvent::MouseButtonRelease, place);
}

void SendDoubleClick(QWidget& widget, QPoint place) {
  SendClick(widget, place);
  SendMouse(widget, QEvent::MouseButtonDblClick, place);
  SendMouse(widget, QEvent::MouseButtonRelease, place);
}

// The middle of a row's first cell in sight, after scrolling there.
QPoint CellOf(QTableView& table, int row) {
  const QModelIndex cell = table.model()->index(row, table.columnAt(2));
  table.scrollTo(cell);
  return table.visualRect(cell).center();
}

// A place inside that also hits the little box of a check box.
QPoint Inside(const QWidget& widget) {
  return {std::min(8, widget.width() / 2), widget.height() / 2};
}

// Whether a click on the control is all its own, with nothing of the widget's beside it.
bool IsPlain(const Control& control) {
  return dynamic_cast<const TextBox*>(&control) || dynamic_cast<const Captioned*>(&control);
}

}  // namespace

FormWindow& QtDriver::Top() const {
  if (FormWindow* window = toolkit_.TopWindow()) return *window;
  throw CallError("Es ist kein Bildschirm geöffnet.");
}

ControlView* QtDriver::ViewOf(const Control& control) const {
  return Top().ViewOf(&control);
}

void QtDriver::Settle() const {
  Top().Happen([](UserActions& user) { user.RunTimers(); });
  QCoreApplication::sendPostedEvents();
}

bool QtDriver::Focus(Control& control) {
  Top().Act([&](UserActions& user) { user.Focus(control); });
  Settle();
  return control.HasFocus();
}

void QtDriver::SendKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const bool ctrl = key == Qt::Key_Control;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    FormWindow& window = Top();
    QWidget* const focus = window.focusWidget();
    const bool held = ctrl && type == QEvent::KeyRelease;
    QKeyEvent event(type, key, held ? Qt::KeyboardModifiers(Qt::ControlModifier) : modifiers, text);
    QApplication::sendEvent(focus ? focus : &window, &event);
    if (!window.Screen().IsLoaded()) return;
  }
}

void QtDriver::Key(Control&, int key, int shift) {
  SendKey(QtKey(key), Modifiers(shift), {});
  Settle();
}

void QtDriver::SendText(std::string_view text) {
  for (const char32_t character : ToQt(text).toStdU32String()) {
    if (!Top().Screen().IsLoaded()) return;
    if (character == U'\n') {
      SendKey(Qt::Key_Return, Qt::NoModifier, {});
    } else {
      SendKey(character == U' ' ? Qt::Key_Space : 0, Qt::NoModifier,
              QStringView(QChar::fromUcs4(character)).toString());
    }
  }
}

void QtDriver::Type(Control&, std::string_view text) {
  SendText(text);
  Settle();
}

void QtDriver::Paste(Control&, std::string_view text) {
  QGuiApplication::clipboard()->setText(ToQt(text));
  SendKey(Qt::Key_V, Qt::ControlModifier, {});
  Settle();
}

void QtDriver::SelectAll(Control& control) {
  if (dynamic_cast<TextBox*>(&control)) SendKey(Qt::Key_A, Qt::ControlModifier, {});
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) combo->SelectAll();
}

void QtDriver::Click(Control& control) {
  ControlView* const view = ViewOf(control);
  if (view && IsPlain(control)) {
    SendClick(*view->Target(), Inside(*view->Target()));
  } else {
    Top().Act([&](UserActions& user) { user.Click(control); });
  }
  Settle();
}

void QtDriver::DoubleClick(Control& control) {
  ControlView* const view = ViewOf(control);
  const bool presses = dynamic_cast<TextBox*>(&control) || dynamic_cast<Label*>(&control);
  const auto* const grid = dynamic_cast<GridView*>(view);
  if (grid && grid->Rows().Table()->currentIndex().isValid()) {
    QTableView& table = *grid->Rows().Table();
    SendDoubleClick(*table.viewport(), CellOf(table, table.currentIndex().row()));
  } else if (view && presses) {
    SendDoubleClick(*view->Target(), Inside(*view->Target()));
  } else {
    Top().Act([&](UserActions& user) { user.DoubleClick(control); });
  }
  Settle();
}

void QtDriver::MouseDown(Control& control) {
  Top().Act([&](UserActions& user) { user.MouseDown(control); });
  Settle();
}

void QtDriver::SelectItem(ItemList& list, int index) {
  ControlView* const view = ViewOf(list);
  if (auto* combo = view ? qobject_cast<QComboBox*>(view->Widget()) : nullptr) {
    // What the open list does when one of its items is clicked.
    combo->setCurrentIndex(index);
    Q_EMIT combo->activated(index);
  } else if (auto* box = view ? qobject_cast<QListWidget*>(view->Widget()) : nullptr) {
    box->scrollToItem(box->item(index));
    SendClick(*box->viewport(), box->visualItemRect(box->item(index)).center());
  }
  Settle();
}

void QtDriver::ChooseDate(DateControl& control, const std::optional<DateTime>& date) {
  Top().Act([&](UserActions& user) { user.Focus(control); });
  if (ControlView* const view = ViewOf(control); view && control.HasFocus()) {
    SendKey(Qt::Key_A, Qt::ControlModifier, {});
    if (date) {
      SendText(FormatDate(*date, "dd.mm.yyyy", CurrentLocale()));
    } else {
      SendKey(Qt::Key_Delete, Qt::NoModifier, {});
    }
    Top().Act([](UserActions&) {});  // what was typed counts
  }
  Settle();
}

void QtDriver::ChooseTab(TabControl& tabs, int tab) {
  if (const auto* view = dynamic_cast<TabView*>(ViewOf(tabs))) {
    QTabBar& bar = *view->Pages().tabBar();
    SendClick(bar, bar.tabRect(tab).center());
  }
  Settle();
}

void QtDriver::ClickRow(Grid& grid, int row) {
  if (auto* const view = dynamic_cast<GridView*>(ViewOf(grid))) {
    QTableView& table = *view->Rows().Table();
    SendClick(*table.viewport(), CellOf(table, row));
  }
  Settle();
}

void QtDriver::ClickHead(DataGrid& grid, int column) {
  if (auto* const view = dynamic_cast<GridView*>(ViewOf(grid))) {
    const QHeaderView& head = *view->Rows().Table()->horizontalHeader();
    SendClick(*head.viewport(),
              {head.sectionViewportPosition(column) + head.sectionSize(column) / 2, head.height() / 2});
  }
  Settle();
}

void QtDriver::ResizeColumn(Grid& grid, int column, int twips) {
  if (auto* const view = dynamic_cast<GridView*>(ViewOf(grid)))
    view->Rows().Table()->setColumnWidth(column, PixelsOfTwips(twips, view->Rows()));
  Settle();
}

void QtDriver::Close(Form& form) {
  if (FormWindow* window = toolkit_.WindowOf(form)) window->close();
  Settle();
}

void QtDriver::Shot(Form& form, const std::string& name) {
  FormWindow* const window = toolkit_.WindowOf(form);
  if (!window || shots_.empty()) return;
  std::filesystem::create_directories(shots_);
  QCoreApplication::sendPostedEvents();
  const std::filesystem::path file = shots_ / (name + ".png");
  if (!window->grab().save(ToQt(file.string())))
    throw CallError("Das Bild " + file.string() + " ließ sich nicht schreiben.");
}

void QtDriver::ShotPaper(const PrintDocument& document, const std::string& name) {
  if (shots_.empty()) return;
  std::filesystem::create_directories(shots_);
  const std::filesystem::path file = shots_ / name;
  WriteXlsx(document, file.string() + ".xlsx");
  const bool written = WritePdf(document, ToQt(file.string() + ".pdf")) &&
                       FirstPage(document).save(ToQt(file.string() + ".png"));
  if (!written) throw CallError("Das Papier " + file.string() + " ließ sich nicht schreiben.");
}

}  // namespace tarvoni::qt
