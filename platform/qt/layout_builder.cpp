#include "platform/qt/layout_builder.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <algorithm>
#include <vector>

#include "platform/qt/bar_layout.h"
#include "platform/qt/cell_size.h"
#include "platform/qt/form_window.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/table_view.h"
#include "platform/qt/public/text.h"
#include "platform/qt/tab_view.h"
#include "platform/qt/table_parts.h"

namespace tarvoni::qt {
namespace {

using layout::Kind;
using layout::Node;

constexpr int kWidestCode = 16;  // characters; a longer first box does not push the others of its column
constexpr int kColumns = 3;      // of a stack: label, code, the rest

// What a node became: a widget or a layout, and whether it takes the free width and height.
struct Piece {
  QWidget* widget = nullptr;
  QLayout* layout = nullptr;
  bool wide = false;
  bool tall = false;

  explicit operator bool() const { return widget || layout; }
};

void AddTo(QBoxLayout& box, const Piece& piece) {
  if (piece.widget) box.addWidget(piece.widget, piece.wide ? 1 : 0);
  if (piece.layout) box.addLayout(piece.layout, piece.wide ? 1 : 0);
}

void AddTo(QGridLayout& grid, const Piece& piece, int row, int column, int span = 1) {
  const Qt::Alignment place = piece.wide || span == kColumns ? Qt::Alignment() : Qt::AlignLeft;
  if (piece.widget) grid.addWidget(piece.widget, row, column, 1, span, place);
  if (piece.layout) grid.addLayout(piece.layout, row, column, 1, span);
  if (piece.tall) grid.setRowStretch(row, 1);
}

// Told to each layout, since one inside a grid whose rows stand closer than its columns takes neither.
int BetweenCells(const QWidget* parent) {
  return parent->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, parent);
}

bool IsFixedBox(const Node& cell) {
  return cell.kind == Kind::kCell && cell.width > 0 && cell.width <= kWidestCode;
}

class Builder {
 public:
  explicit Builder(FormWindow& window) : window_(window) {}

  Piece Build(const Node& node, QWidget* parent);
  Piece Bar(const Node& node, QWidget* parent);
  Piece Stack(const std::vector<Node>& nodes, QWidget* parent);

 private:
  ControlView& View(const Node& node, QWidget* parent);
  Piece Cell(const Node& node, QWidget* parent);
  Piece Group(const Node& node, QWidget* parent);
  Piece Lines(const Node& node, QWidget* parent);
  Piece Matrix(const Node& node, QWidget* parent);
  void MatrixRow(const Node& row, const std::vector<std::string>& captions, QGridLayout& grid, int at,
                 QWidget* parent);
  Piece Table(const Node& node, QWidget* parent);
  Piece Tabs(const Node& node, QWidget* parent);
  Piece Text(const Node& node, QWidget* parent);
  QSplitter* Split(const std::vector<std::vector<Node>>& parts, Qt::Orientation direction, QWidget* parent);
  Piece Beside(const std::vector<Node>& nodes, std::size_t first, QWidget* parent);
  QLabel* RowLabel(const Node& row, QWidget* parent);
  void Row(const Node& row, QGridLayout& grid, int at, QWidget* parent);
  void NameCells(const Node& row, QLabel* label, const std::vector<std::string>& captions = {}) const;

  FormWindow& window_;
};

Piece Builder::Build(const Node& node, QWidget* parent) {
  switch (node.kind) {
    case Kind::kStack:
      return Stack(node.children, parent);
    case Kind::kRow:
      return Stack({node}, parent);
    case Kind::kSide:
      return Beside(node.children, 0, parent);
    case Kind::kGroup:
      return Group(node, parent);
    case Kind::kMatrix:
      return Matrix(node, parent);
    case Kind::kTable:
      return Table(node, parent);
    case Kind::kList:
      return Lines(node, parent);
    case Kind::kTabs:
      return Tabs(node, parent);
    case Kind::kBar:
      return Bar(node, parent);
    case Kind::kCell:
      return Cell(node, parent);
    case Kind::kText:
      return Text(node, parent);
    case Kind::kGap:
    case Kind::kHidden:
    case Kind::kPage:
    case Kind::kNone:
      return {};
  }
  return {};
}

ControlView& Builder::View(const Node& node, QWidget* parent) {
  std::unique_ptr<ControlView> made = MakeView(*node.control, window_, parent);
  ControlView& view = *made;
  window_.Add(*node.control, std::move(made));
  return view;
}

Piece Builder::Cell(const Node& node, QWidget* parent) {
  QWidget* const widget = View(node, parent).Widget();
  return {.widget = widget, .wide = SizeCell(*widget, node.width)};
}

Piece Builder::Text(const Node& node, QWidget* parent) {
  return {.widget = new QLabel(ToQt(node.text), parent)};
}

Piece Builder::Table(const Node& node, QWidget* parent) {
  ControlView& view = View(node, parent);
  SizeTable(*view.Target(), node.rows);
  const auto* const frame = dynamic_cast<Captioned*>(node.control->Container());
  const bool captioned = frame && !frame->Caption().empty();
  dynamic_cast<GridView&>(view).Rows().SetTitle(captioned ? frame->Caption() : window_.Screen().Caption());
  return {.widget = view.Widget(), .wide = true, .tall = node.rows == 0};
}

Piece Builder::Lines(const Node& node, QWidget* parent) {
  QWidget* const widget = View(node, parent).Widget();
  SizeLines(*widget, node.rows, node.width);
  return {.widget = widget, .wide = node.width == 0, .tall = false};
}

Piece Builder::Group(const Node& node, QWidget* parent) {
  ControlView& view = View(node, parent);
  const Piece inner = Stack(node.children, view.Widget());
  view.Widget()->setLayout(inner.layout);
  return {.widget = view.Widget(), .wide = true, .tall = inner.tall};
}

Piece Builder::Tabs(const Node& node, QWidget* parent) {
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

// The user moves the border between tables.
QSplitter* Builder::Split(const std::vector<std::vector<Node>>& parts, Qt::Orientation direction,
                          QWidget* parent) {
  auto* const splitter = new QSplitter(direction, parent);
  splitter->setChildrenCollapsible(false);
  for (const auto& part : parts) {
    auto* const widget = new QWidget(splitter);
    QLayout* const layout =
        direction == Qt::Vertical ? Stack(part, widget).layout : Beside(part, 0, widget).layout;
    layout->setContentsMargins({});
    widget->setLayout(layout);
    splitter->addWidget(widget);
  }
  return splitter;
}

// Nodes side by side; what is left of the width goes to gaps and wide pieces, or to the end.
Piece Builder::Beside(const std::vector<Node>& nodes, std::size_t first, QWidget* parent) {
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

Piece Builder::Bar(const Node& node, QWidget* parent) {
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

Piece Builder::Stack(const std::vector<Node>& nodes, QWidget* parent) {
  auto* const grid = new QGridLayout;
  grid->setColumnStretch(kColumns - 1, 1);
  Piece stack{.layout = grid, .wide = true};
  if (const auto parts = PartsByTable(nodes); parts.size() > 1) {
    grid->addWidget(Split(parts, Qt::Vertical, parent), 0, 0, 1, kColumns);
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
      AddTo(*grid, piece, row++, 0, kColumns);
      stack.tall = stack.tall || piece.tall;
    }
  }
  // Beside a higher neighbour the free room goes below.
  if (!stack.tall) grid->setRowStretch(row, 1);
  return stack;
}

QLabel* Builder::RowLabel(const Node& row, QWidget* parent) {
  if (row.control) return qobject_cast<QLabel*>(View(row, parent).Widget());
  return row.text.empty() ? nullptr : new QLabel(ToQt(row.text), parent);
}

void Builder::Row(const Node& row, QGridLayout& grid, int at, QWidget* parent) {
  QLabel* const label = RowLabel(row, parent);
  if (label) grid.addWidget(label, at, 0);
  const auto& cells = row.children;
  // Codes with their names stand in columns; rows of many cells flow.
  if (cells.size() == 2 && IsFixedBox(cells[0])) {
    AddTo(grid, Build(cells[0], parent), at, 1);
    AddTo(grid, Beside(cells, 1, parent), at, 2);
  } else {
    AddTo(grid, Beside(cells, 0, parent), at, 1, 2);
  }
  NameCells(row, label);
}

// The row's caption names its cells for assistive programs, and its mnemonic leads to the first of them.
void Builder::NameCells(const Node& row, QLabel* label, const std::vector<std::string>& captions) const {
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

Piece Builder::Matrix(const Node& node, QWidget* parent) {
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

void Builder::MatrixRow(const Node& row, const std::vector<std::string>& captions, QGridLayout& grid, int at,
                        QWidget* parent) {
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

// Scrolls only where the screen is too small for the whole.
class Scroll : public QScrollArea {
 public:
  explicit Scroll(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
  }
  // A scaled screen may round the window down to a point less.
  QSize sizeHint() const override { return widget()->sizeHint() + QSize(1, 1); }
  QSize minimumSizeHint() const override {
    return widget()->minimumSizeHint().boundedTo(screen()->availableGeometry().size() / 2);
  }
};

}  // namespace

void BuildLayout(const Node& root, FormWindow& window, QWidget* content) {
  std::vector<Node> body = root.kind == Kind::kStack ? root.children : std::vector<Node>{root};
  std::erase_if(body,
                [](const Node& node) { return node.kind == Kind::kHidden || node.kind == Kind::kNone; });
  std::vector<Node> foot;
  if (!body.empty() && body.back().kind == Kind::kBar) {
    foot.push_back(body.back());
    body.pop_back();
  }
  Builder builder(window);
  auto* const whole = new QVBoxLayout(content);
  auto* const scroll = new Scroll(content);
  auto* const inner = new QWidget(scroll);
  const Piece stack = builder.Stack(body, inner);
  stack.layout->setContentsMargins({});
  inner->setLayout(stack.layout);
  scroll->setWidget(inner);
  whole->addWidget(scroll, 1);
  for (const Node& bar : foot) whole->addLayout(builder.Bar(bar, content).layout);
}

}  // namespace tarvoni::qt
