#pragma once

#include "platform/qt/control_view.h"
#include "src/context/controls/controls.h"

class QTabWidget;

namespace tarvoni::qt {

class TabView : public ControlView {
 public:
  TabView(TabControl& tabs, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  QWidget* Target() const override;
  void Show(Aspect aspect) override;
  bool Press(const QMouseEvent& event, bool twice) override;
  bool Release(const QMouseEvent&) override { return true; }
  bool Other(QEvent& event) override;

  QTabWidget& Pages() const { return *pages_; }
  void ShowPage(const TabPage& page) const;

 protected:
  bool Navigate(const QKeyEvent& event) override;

 private:
  TabControl& tabs_;
  QTabWidget* pages_;
};

// One page; the layout fills its widget.
class PageView : public ControlView {
 public:
  PageView(TabPage& page, FormWindow& window, TabView& tabs);
  QWidget* Widget() const override { return widget_; }
  void Show(Aspect aspect) override;

 private:
  TabPage& page_;
  TabView& tabs_;
  QWidget* widget_;
};

}  // namespace tarvoni::qt
