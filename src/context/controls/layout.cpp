#include "src/context/controls/layout.h"

#include "src/context/values/call_error.h"

namespace tarvoni::layout {
namespace {

Node Cell(Control& control, int width) {
  return {.kind = Kind::kCell, .control = &control, .width = width};
}

Node Captioning(Captioned& control, std::string_view caption) {
  control.SetCaption(caption);
  return Cell(control, 0);
}

}  // namespace

Node Box(TextBox& box, int width) {
  return Cell(box, width);
}
Node Box(ComboBox& box, int width) {
  return Cell(box, width);
}
Node Box(DateControl& box) {
  return Cell(box, 12);
}
Node Box(Label& label, int width) {
  return Cell(label, width);
}

Node Shown(TextBox& box, int width) {
  box.SetLocked(true);
  box.SetTabStop(false);
  box.SetBackColor(kButtonFace);
  return Cell(box, width);
}

Node ShownAmount(TextBox& box, int width) {
  box.SetTakes(Entry::kDecimal);
  return Shown(box, width);
}

Node Lines(TextBox& box, int rows, int width) {
  box.SetMultiLine(true);
  return {.kind = Kind::kList, .control = &box, .width = width, .rows = rows};
}

Node List(ListBox& box, int rows, int width) {
  return {.kind = Kind::kList, .control = &box, .width = width, .rows = rows};
}

Node Push(Button& button, std::string_view caption, Command command) {
  button.SetDoes(command);
  return Captioning(button, caption);
}
Node Check(CheckBox& box, std::string_view caption) {
  return Captioning(box, caption);
}
Node Option(OptionButton& button, std::string_view caption) {
  return Captioning(button, caption);
}
Node Text(Label& label, std::string_view caption) {
  return Captioning(label, caption);
}
Node Text(std::string_view text) {
  return {.kind = Kind::kText, .text = std::string(text)};
}
Node Gap() {
  return {.kind = Kind::kGap};
}
Node Table(Grid& grid, int rows) {
  return {.kind = Kind::kTable, .control = &grid, .rows = rows};
}

Node Hidden(std::vector<Control*> controls) {
  Node node{.kind = Kind::kHidden};
  for (Control* control : controls) node.children.push_back(Cell(*control, 0));
  return node;
}

Node Last(Node node) {
  node.last = true;
  return node;
}

namespace detail {

Node WithChildren(Node node, std::vector<Node> children) {
  node.children = std::move(children);
  return node;
}

// The outermost controls of the nodes stand in the container; what they contain already has its own.
void Contain(Control& container, const std::vector<Node>& children) {
  for (const Node& child : children) {
    if (child.control && !child.control->Container()) child.control->SetContainer(&container);
    const bool holds_its_own = child.kind == Kind::kGroup || child.kind == Kind::kTabs;
    if (!holds_its_own) Contain(container, child.children);
  }
}

}  // namespace detail

Node MakeTabs(TabControl& tabs, std::vector<Node> pages) {
  for (Node& page : pages) {
    if (page.kind != Kind::kPage) throw CallError("In ein Register gehören nur Seiten.");
    TabPage& control = tabs.AddPage(page.text);
    page.control = &control;
    detail::Contain(control, page.children);
  }
  return detail::WithChildren({.kind = Kind::kTabs, .control = &tabs}, std::move(pages));
}

void AssignTabOrder(const Node& root) {
  int next = 0;
  std::vector<const Node*> behind;
  const auto assign = [&](const Node& node, const auto& self) -> void {
    if (node.control) node.control->SetTabIndex(next++);
    for (const Node& child : node.children) {
      if (child.last) {
        behind.push_back(&child);
      } else {
        self(child, self);
      }
    }
  };
  assign(root, assign);
  // What comes last may hold something that comes last of all.
  for (std::size_t i = 0; i < behind.size(); ++i) assign(*behind[i], assign);
}

}  // namespace tarvoni::layout
