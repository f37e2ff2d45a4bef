#include "platform/qt/form_window.h"
#include "platform/qt/piece_builder.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {

using layout::Kind;
using layout::Node;

namespace {

constexpr int kWidestCode = 16;  // characters; a longer first box does not push the others of its column

bool IsFixedBox(const Node& cell) {
  return cell.kind == Kind::kCell && cell.width > 0 && cell.width <= kWidestCode;
}

}  // namespace

QLabel* PieceBuilder::RowLabel(const Node& row, QWidget* parent) {
  if (row.control) return qobject_cast<QLabel*>(View(row, parent).Widget());
  return row.text.empty() ? nullptr : new QLabel(ToQt(row.text), parent);
}

void PieceBuilder::Row(const Node& row, QGridLayout& grid, int at, QWidget* parent) {
  QLabel* const label = RowLabel(row, parent);
  if (label) grid.addWidget(label, at, 0);
  const auto& cells = row.children;
  // Codes with their names stand in columns; rows of many cells flow.
  if (cells.size() == 2 && IsFixedBox(cells[0])) {
    AddTo(grid, Build(cells[0], parent), at, 1);
    AddTo(grid, InLine(cells, 1, parent), at, 2);
  } else {
    AddTo(grid, InLine(cells, 0, parent), at, 1, 2);
  }
  NameCells(row, label);
}

// The row's caption names its cells for assistive programs, and its mnemonic leads to the first of them.
void PieceBuilder::NameCells(const Node& row, QLabel* label, const std::vector<std::string>& captions) const {
  const QString name = label ? PlainCaption(FromQt(label->text())) : QString();
  bool led = false;
  for (std::size_t i = 0; i < row.children.size(); ++i) {
    const ControlView* const view = window_.ViewOf(row.children[i].control);
    if (!view || dynamic_cast<const Captioned*>(row.children[i].control)) continue;
    QString full = name;
    if (i + 1 < captions.size() && !captions[i + 1].empty()) full += " " + PlainCaption(captions[i + 1]);
    view->SetName(full.trimmed());
    if (label && !led) label->setBuddy(view->Target());
    led = true;
  }
}

Piece PieceBuilder::Matrix(const Node& node, QWidget* parent) {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(BetweenCells(parent));
  for (std::size_t i = 0; i < node.captions.size(); ++i) {
    if (node.captions[i].empty()) continue;
    grid->addWidget(new QLabel(ToQt(node.captions[i]), parent), 0, static_cast<int>(i));
  }
  int at = 0;
  for (const Node& child : node.children) {
    ++at;
    if (child.kind == Kind::kRow) {
      MatrixRow(child, node.captions, *grid, at, parent);
    } else if (const Piece piece = Build(child, parent)) {
      AddTo(*grid, piece, at, 0, -1);
    }
  }
  int stretch = 0;
  for (int i = 0; i < grid->columnCount(); ++i) stretch += grid->columnStretch(i);
  if (stretch == 0) grid->setColumnStretch(grid->columnCount(), 1);
  return {.layout = grid, .wide = true};
}

void PieceBuilder::MatrixRow(const Node& row, const std::vector<std::string>& captions, QGridLayout& grid,
                             int at, QWidget* parent) {
  QLabel* const label = RowLabel(row, parent);
  if (label) grid.addWidget(label, at, 0);
  int column = 0;
  for (const Node& cell : row.children) {
    const Piece piece = Build(cell, parent);
    AddTo(grid, piece, at, ++column);
    if (piece.wide) grid.setColumnStretch(column, 1);
  }
  NameCells(row, label, captions);
}

}  // namespace tarvoni::qt
