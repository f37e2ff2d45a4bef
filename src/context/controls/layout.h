#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "src/context/controls/controls.h"
#include "src/context/controls/grid.h"
#include "src/context/controls/lists.h"

// The description of a Screen's surface, made once by its layout file and read by a toolkit:
//
//   return Stack(Group(frmKosten, "Kosten",
//                      Row(lblKostenstelle, "Kostenstelle", Box(txtKostenstelle[0], 8),
//                      Box(txtKostenstelle[1]))),
//                Table(DataGrid1),
//                Bar(Push(btnNeu, "Neu"), Gap(), Push(btnClose, "Schließen")));
//
// Sizes are in characters, 0 takes what is left. The order is the tab order; a group's controls stand in its
// frame.
namespace tarvoni::layout {

enum class Kind {
  kNone,
  kStack,   // children below each other
  kSide,    // children beside each other
  kGroup,   // a frame around its children, captioned or not
  kRow,     // a label column, then cells; rows of one stack align
  kMatrix,  // rows whose cells align in columns under the captions
  kTable,   // a grid, takes the free height
  kList,    // a list box or a box of several lines, takes `rows` lines
  kTabs,    // a tab control; its children are kPage
  kPage,    //
  kBar,     // buttons beside each other, at the foot
  kCell,    // one control
  kText,    // fixed text without a control
  kGap,     // free space
  kHidden,  // controls that show nothing: data controls, timers
};

struct Node {
  Kind kind = Kind::kNone;
  Control* control = nullptr;  // frame, label of a row, grid, tab control, page or cell
  std::string text = {};
  int width = 0;  // characters
  int rows = 0;   // lines
  std::vector<std::string> captions = {};
  std::vector<Node> children = {};
  bool last = false;  // its controls come behind all others in tab order
};

template <typename T>
concept NodeLike = std::same_as<std::remove_cvref_t<T>, Node>;

// Leaves.
Node Box(TextBox& box, int width = 0);
Node Box(ComboBox& box, int width = 0);
Node Box(DateControl& box);
Node Box(Label& label, int width = 0);  // a label that shows a value
// A box that only shows: locked, out of the tab order, in the face colour.
Node Shown(TextBox& box, int width = 0);
// An amount that only shows, aligned to the right as those that are typed.
Node ShownAmount(TextBox& box, int width = 0);
Node Lines(TextBox& box, int rows, int width = 0);  // makes the box one of several lines
Node List(ListBox& box, int rows, int width = 0);
// With a command the button has its key: F2 edits, Ins makes new …
Node Push(Button& button, std::string_view caption, Command command = Command::kNone);
Node Check(CheckBox& box, std::string_view caption);
Node Option(OptionButton& button, std::string_view caption);
Node Text(std::string_view text);
Node Text(Label& label, std::string_view caption);
Node Gap();
Node Table(Grid& grid, int rows = 0);
Node Hidden(std::vector<Control*> controls);
// The Tab key comes to it when all else was passed: a selection above the list that reads it anew.
Node Last(Node node);

namespace detail {
Node WithChildren(Node node, std::vector<Node> children);
void Contain(Control& container, const std::vector<Node>& children);

template <NodeLike... Nodes>
std::vector<Node> Collect(Nodes&&... nodes) {
  std::vector<Node> result;
  result.reserve(sizeof...(nodes));
  (result.push_back(std::forward<Nodes>(nodes)), ...);
  return result;
}
}  // namespace detail

template <NodeLike... Nodes>
Node Stack(Nodes... children) {
  return detail::WithChildren({.kind = Kind::kStack}, detail::Collect(std::move(children)...));
}

template <NodeLike... Nodes>
Node Side(Nodes... children) {
  return detail::WithChildren({.kind = Kind::kSide}, detail::Collect(std::move(children)...));
}

template <NodeLike... Nodes>
Node Bar(Nodes... buttons) {
  return detail::WithChildren({.kind = Kind::kBar}, detail::Collect(std::move(buttons)...));
}

template <NodeLike... Nodes>
Node Group(Frame& frame, std::string_view caption, Nodes... children) {
  frame.SetCaption(caption);
  Node node = detail::WithChildren({.kind = Kind::kGroup, .control = &frame},
                                   detail::Collect(std::move(children)...));
  detail::Contain(frame, node.children);
  return node;
}

// A row with its label, whose caption Screens read for messages and grid heads.
template <NodeLike... Nodes>
Node Row(Label& label, std::string_view caption, Nodes... cells) {
  label.SetCaption(caption);
  return detail::WithChildren({.kind = Kind::kRow, .control = &label}, detail::Collect(std::move(cells)...));
}

// A row with a fixed text, or "" for none.
template <NodeLike... Nodes>
Node Row(std::string_view caption, Nodes... cells) {
  return detail::WithChildren({.kind = Kind::kRow, .text = std::string(caption)},
                              detail::Collect(std::move(cells)...));
}

template <NodeLike... Nodes>
Node Matrix(std::vector<std::string> captions, Nodes... rows) {
  return detail::WithChildren({.kind = Kind::kMatrix, .captions = std::move(captions)},
                              detail::Collect(std::move(rows)...));
}

// A page of the tab control named first in Tabs.
template <NodeLike... Nodes>
Node Page(std::string_view caption, Nodes... children) {
  return detail::WithChildren({.kind = Kind::kPage, .text = std::string(caption)},
                              detail::Collect(std::move(children)...));
}

Node MakeTabs(TabControl& tabs, std::vector<Node> pages);

template <NodeLike... Nodes>
Node Tabs(TabControl& tabs, Nodes... pages) {
  return MakeTabs(tabs, detail::Collect(std::move(pages)...));
}

// Numbers the controls in the order of the description, those of Last behind all others.
void AssignTabOrder(const Node& root);

// Calls `visit` for every node, outer before inner.
template <typename Visit>
void Walk(const Node& node, const Visit& visit) {
  visit(node);
  for (const Node& child : node.children) Walk(child, visit);
}

}  // namespace tarvoni::layout
