#include "platform/qt/table_parts.h"

#include <algorithm>

namespace tarvoni::qt {
namespace {

using layout::Kind;
using layout::Node;

bool HoldsTable(const Node& node) {
  return (node.kind == Kind::kTable && node.rows == 0) || std::ranges::any_of(node.children, HoldsTable);
}

}  // namespace

std::vector<std::vector<Node>> PartsByTable(const std::vector<Node>& nodes) {
  auto tables = std::ranges::count_if(nodes, HoldsTable);
  std::vector<std::vector<Node>> parts(1);
  for (const Node& node : nodes) {
    parts.back().push_back(node);
    if (HoldsTable(node) && --tables > 0) parts.emplace_back();
  }
  return parts;
}

}  // namespace tarvoni::qt
