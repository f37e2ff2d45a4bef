#include <QBoxLayout>
#include <QStyle>

#include "platform/qt/bar_layout.h"
#include "platform/qt/cell_size.h"
#include "platform/qt/piece_builder.h"
#include "platform/qt/table_parts.h"

namespace tarvoni::qt {

using layout::Kind;
using layout::Node;

namespace {

void AddTo(QBoxLayout& box, const Piece& piece) {
  if (piece.widget) box.addWidget(piece.widget, piece.wide ? 1 : 0);
  if (piece.layout) box.addLayout(piece.layout, piece.wide ? 1 : 0);
}

}  // namespace

int BetweenCells(const QWidget* parent) {
  return parent->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, parent);
}

void AddTo(QGridLayout& grid, const Piece& piece, int row, int column, int span) {
  const Qt::Alignment place = piece.wide || span == kStackColumns ? Qt::Alignment() : Qt::AlignLeft;
  if (piece.widget) grid.addWidget(piece.widget, row, column, 1, span, place);
  if (piece.layout) grid.addLayout(piece.layout, row, column, 1, span);
  if (piece.tall) grid.setRowStretch(row, 1);
}

// The user moves the border between tables.
QSplitter* PieceBuilder::Split(const std::vector<std::vector<Node>>& parts, Qt::Orientation direction,
                               QWidget* parent) {
  auto* const splitter = new QSplitter(direction, parent);
  splitter->setChildrenCollapsible(false);
  for (const auto& part : parts) {
    auto* const widget = new QWidget(splitter);
    QLayout* const layout =
        direction == Qt::Vertical ? Stack(part, widget).layout : InLine(part, 0, widget).layout;
    layout->setContentsMargins({});
    widget->setLayout(layout);
    splitter->addWidget(widget);
  }
  return splitter;
}

// Nodes side by side; what is left of the width goes to gaps and wide pieces, or to the end.
Piece PieceBuilder::InLine(const std::vector<Node>& nodes, std::size_t first, QWidget* parent) {
  auto* const box = new QHBoxLayout;
  box->setSpacing(BetweenCells(parent));
  Piece line{.layout = box};
  if (const auto parts = PartsByTable(nodes); first == 0 && parts.size() > 1) {
    box->addWidget(Split(parts, Qt::Horizontal, parent));
    return {.layout = box, .wide = true, .tall = true};
  }
  for (std::size_t i = first; i < nodes.size(); ++i) {
    const bool gap = nodes[i].kind == Kind::kGap;
    const Piece piece = Build(nodes[i], parent);
    if (gap) box->addStretch(1);
    AddTo(*box, piece);
    line.wide = line.wide || piece.wide || gap;
    line.tall = line.tall || piece.tall;
  }
  if (!line.wide) box->addStretch(1);
  line.wide = true;
  return line;
}

Piece PieceBuilder::Bar(const Node& node, QWidget* parent) {
  auto* const bar = new BarLayout;
  for (const Node& child : node.children) {
    if (child.kind == Kind::kGap) {
      bar->AddGap();
    } else if (const Piece piece = Build(child, parent)) {
      piece.widget ? bar->addWidget(piece.widget) : bar->addItem(piece.layout);
    }
  }
  SizeButtons(*bar);
  return {.layout = bar, .wide = true};
}

Piece PieceBuilder::Stack(const std::vector<Node>& nodes, QWidget* parent) {
  auto* const grid = new QGridLayout;
  grid->setColumnStretch(kStackColumns - 1, 1);
  Piece stack{.layout = grid, .wide = true};
  if (const auto parts = PartsByTable(nodes); parts.size() > 1) {
    grid->addWidget(Split(parts, Qt::Vertical, parent), 0, 0, 1, kStackColumns);
    return {.layout = grid, .wide = true, .tall = true};
  }
  int row = 0;
  for (const Node& node : nodes) {
    if (node.kind == Kind::kRow) {
      Row(node, *grid, row++, parent);
    } else if (node.kind == Kind::kGap) {
      grid->setRowStretch(row++, 1);
      stack.tall = true;
    } else if (const Piece piece = Build(node, parent)) {
      AddTo(*grid, piece, row++, 0, kStackColumns);
      stack.tall = stack.tall || piece.tall;
    }
  }
  // Beside a higher neighbour the free room goes below.
  if (!stack.tall) grid->setRowStretch(row, 1);
  return stack;
}

}  // namespace tarvoni::qt
