#include "platform/qt/tab_view.h"

#include <QTabBar>
#include <QTabWidget>

#include "platform/qt/form_window.h"
#include "platform/qt/public/text.h"
#include "src/context/services/mnemonics.h"

namespace tarvoni::qt {

TabView::TabView(TabControl& tabs, FormWindow& window, QWidget* parent)
    : ControlView(tabs, window), tabs_(tabs), pages_(new QTabWidget(parent)) {
  pages_->setFocusPolicy(Qt::NoFocus);
  pages_->tabBar()->setFocusPolicy(Qt::TabFocus);
}

QWidget* TabView::Widget() const {
  return pages_;
}

QWidget* TabView::Target() const {
  return pages_->tabBar();
}

void TabView::Show(Aspect aspect) {
  ControlView::Show(aspect);
  if (aspect != Aspect::kValue || pages_->count() < tabs_.Tabs()) return;
  pages_->setCurrentIndex(tabs_.Tab());
  for (int i = 0; i < tabs_.Tabs(); ++i) ShowPage(tabs_.Page(i));
}

void TabView::ShowPage(const TabPage& page) const {
  const int number = page.Number();
  pages_->setTabText(number, ToQt(CaptionWithMnemonic(page)));
  // The widget would turn away from a current page that is disabled; what stands on it is closed all the same.
  pages_->setTabEnabled(number, page.Enabled() || number == tabs_.Tab());
  pages_->setTabVisible(number, page.Visible());
}

bool TabView::Press(const QMouseEvent& event, bool twice) {
  const int tab = pages_->tabBar()->tabAt(event.position().toPoint());
  if (tab < 0 || event.button() != Qt::LeftButton || twice) return true;
  Window().Act([&](UserActions& user) { user.ChooseTab(tabs_, tab); });
  return true;
}

bool TabView::Other(QEvent& event) {
  return event.type() == QEvent::Wheel;
}

bool TabView::Navigate(const QKeyEvent& event) {
  const int step = event.key() == Qt::Key_Right ? 1 : event.key() == Qt::Key_Left ? -1 : 0;
  if (step == 0) return true;
  for (int tab = tabs_.Tab() + step; tab >= 0 && tab < tabs_.Tabs(); tab += step) {
    if (!tabs_.TabEnabled(tab) || !tabs_.Page(tab).Visible()) continue;
    Window().Act([&](UserActions& user) { user.ChooseTab(tabs_, tab); });
    break;
  }
  return true;
}

PageView::PageView(TabPage& page, FormWindow& window, TabView& tabs)
    : ControlView(page, window), page_(page), tabs_(tabs), widget_(new QWidget) {
  tabs_.Pages().addTab(widget_, ToQt(page.Caption()));
}

void PageView::Show(Aspect) {
  tabs_.ShowPage(page_);
}

}  // namespace tarvoni::qt
