#include "platform/qt/piece_builder.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/qt/cell_size.h"
#include "platform/qt/form_window.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/public/table_view.h"
#include "platform/qt/public/text.h"
#include "platform/qt/tab_view.h"

namespace tarvoni::qt {

using layout::Kind;
using layout::Node;

// What is not listed takes no place of its own.
Piece PieceBuilder::Build(const Node& node, QWidget* parent) {
  using Maker = Piece (PieceBuilder::*)(const Node&, QWidget*);
  static constexpr auto kMakers =
      std::to_array<std::pair<Kind, Maker>>({{Kind::kStack, &PieceBuilder::Below},
                                             {Kind::kRow, &PieceBuilder::Single},
                                             {Kind::kSide, &PieceBuilder::Beside},
                                             {Kind::kGroup, &PieceBuilder::Group},
                                             {Kind::kMatrix, &PieceBuilder::Matrix},
                                             {Kind::kTable, &PieceBuilder::Table},
                                             {Kind::kList, &PieceBuilder::Lines},
                                             {Kind::kTabs, &PieceBuilder::Tabs},
                                             {Kind::kBar, &PieceBuilder::Bar},
                                             {Kind::kCell, &PieceBuilder::Cell},
                                             {Kind::kText, &PieceBuilder::Text}});
  const auto* const maker = std::ranges::find(kMakers, node.kind, &std::pair<Kind, Maker>::first);
  return maker == kMakers.end() ? Piece() : (this->*maker->second)(node, parent);
}

ControlView& PieceBuilder::View(const Node& node, QWidget* parent) {
  std::unique_ptr<ControlView> made = MakeView(*node.control, window_, parent);
  ControlView& view = *made;
  window_.Add(*node.control, std::move(made));
  return view;
}

Piece PieceBuilder::Cell(const Node& node, QWidget* parent) {
  QWidget* const widget = View(node, parent).Widget();
  return {.widget = widget, .wide = SizeCell(*widget, node.width)};
}

Piece PieceBuilder::Text(const Node& node, QWidget* parent) {
  return {.widget = new QLabel(ToQt(node.text), parent)};
}

Piece PieceBuilder::Table(const Node& node, QWidget* parent) {
  ControlView& view = View(node, parent);
  SizeTable(*view.Target(), node.rows);
  const auto* const frame = dynamic_cast<Captioned*>(node.control->Container());
  const bool captioned = frame && !frame->Caption().empty();
  dynamic_cast<GridView&>(view).Rows().SetTitle(captioned ? frame->Caption() : window_.Screen().Caption());
  return {.widget = view.Widget(), .wide = true, .tall = node.rows == 0};
}

Piece PieceBuilder::Lines(const Node& node, QWidget* parent) {
  QWidget* const widget = View(node, parent).Widget();
  SizeLines(*widget, node.rows, node.width);
  return {.widget = widget, .wide = node.width == 0, .tall = false};
}

Piece PieceBuilder::Group(const Node& node, QWidget* parent) {
  ControlView& view = View(node, parent);
  const Piece inner = Stack(node.children, view.Widget());
  view.Widget()->setLayout(inner.layout);
  return {.widget = view.Widget(), .wide = true, .tall = inner.tall};
}

Piece PieceBuilder::Tabs(const Node& node, QWidget* parent) {
  auto& tabs = dynamic_cast<TabView&>(View(node, parent));
  bool tall = false;
  for (const Node& page : node.children) {
    auto view = std::make_unique<PageView>(dynamic_cast<TabPage&>(*page.control), window_, tabs);
    QWidget* const widget = view->Widget();
    window_.Add(*page.control, std::move(view));
    const Piece inner = Stack(page.children, widget);
    widget->setLayout(inner.layout);
    tall = tall || inner.tall;
  }
  tabs.Show(Aspect::kValue);
  return {.widget = tabs.Widget(), .wide = true, .tall = tall};
}

}  // namespace tarvoni::qt
