#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QSplitter>
#include <string>
#include <vector>

#include "src/context/controls/layout.h"

namespace tarvoni::qt {

class ControlView;
class FormWindow;

// What a node became: a widget or a layout, and whether it takes the free width and height.
struct Piece {
  QWidget* widget = nullptr;
  QLayout* layout = nullptr;
  bool wide = false;
  bool tall = false;

  explicit operator bool() const { return widget || layout; }
};

// Turns the nodes of a description into pieces; the window gets the views of the controls.
class PieceBuilder {
 public:
  explicit PieceBuilder(FormWindow& window) : window_(window) {}

  Piece Build(const layout::Node& node, QWidget* parent);
  // Buttons side by side, in more lines where the window is narrow.
  Piece Bar(const layout::Node& node, QWidget* parent);
  // Nodes one below the other, the boxes of their rows in columns.
  Piece Stack(const std::vector<layout::Node>& nodes, QWidget* parent);

 private:
  using Node = layout::Node;
  using Nodes = std::vector<Node>;

  // One node each.
  ControlView& View(const Node& node, QWidget* parent);
  Piece Cell(const Node& node, QWidget* parent);
  Piece Group(const Node& node, QWidget* parent);
  Piece Lines(const Node& node, QWidget* parent);
  Piece Table(const Node& node, QWidget* parent);
  Piece Tabs(const Node& node, QWidget* parent);
  Piece Text(const Node& node, QWidget* parent);

  // Nodes beside and below each other.
  Piece Below(const Node& node, QWidget* parent) { return Stack(node.children, parent); }
  Piece Single(const Node& row, QWidget* parent) { return Stack({row}, parent); }
  Piece Beside(const Node& node, QWidget* parent) { return InLine(node.children, 0, parent); }
  Piece InLine(const Nodes& nodes, std::size_t first, QWidget* parent);
  QSplitter* Split(const std::vector<Nodes>& parts, Qt::Orientation direction, QWidget* parent);

  // Rows: a label and its cells.
  void Row(const Node& row, QGridLayout& grid, int at, QWidget* parent);
  Piece Matrix(const Node& node, QWidget* parent);
  void MatrixRow(const Node& row, const std::vector<std::string>& captions, QGridLayout& grid, int at,
                 QWidget* parent);
  QLabel* RowLabel(const Node& row, QWidget* parent);
  void NameCells(const Node& row, QLabel* label, const std::vector<std::string>& captions = {}) const;

  FormWindow& window_;
};

constexpr int kStackColumns = 3;  // of a stack: label, code, the rest

// Told to each layout, since one inside a grid whose rows stand closer than its columns takes neither.
int BetweenCells(const QWidget* parent);
void AddTo(QGridLayout& grid, const Piece& piece, int row, int column, int span = 1);

}  // namespace tarvoni::qt
