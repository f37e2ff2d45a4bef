#include "platform/qt/dialogs/location_tree.h"

#include <algorithm>

#include "src/context/values/utf8.h"

namespace tarvoni::qt {
namespace {

constexpr std::string_view kSeparator = "/ ";

std::vector<std::string_view> PartsOf(std::string_view path) {
  std::vector<std::string_view> parts;
  for (path = utf8::Trim(path); !path.empty();) {
    const std::size_t end = std::min(path.find(kSeparator), path.size());
    parts.push_back(utf8::Trim(path.substr(0, end)));
    path = utf8::Trim(path.substr(std::min(end + kSeparator.size(), path.size())));
  }
  return parts;
}

}  // namespace

LocationTree::LocationTree(const std::vector<Location>& locations) {
  for (std::size_t i = 0; i < locations.size(); ++i) {
    Node& node = nodes_[static_cast<std::size_t>(NodeFor(locations[i]))];
    node.location = i;
    node.search = {};
    node.search.Add(node.part);
    node.search.Add(locations[i].path);
    node.search.Add(locations[i].name);
  }
}

int LocationTree::Child(int parent, std::string_view part) const {
  const auto found = children_.find({parent, std::string(part)});
  return found == children_.end() ? kNone : found->second;
}

int LocationTree::AddNode(int parent, std::string_view part) {
  const int added = static_cast<int>(nodes_.size());
  nodes_.push_back({.part = std::string(part), .parent = parent, .location = std::nullopt});
  nodes_.back().search.Add(part);
  children_.emplace(std::pair(parent, std::string(part)), added);
  return added;
}

// Two locations of one path stand beside each other.
int LocationTree::NodeFor(const Location& location) {
  int node = kNone, parent = kNone;
  std::vector<std::string_view> parts = PartsOf(location.path);
  if (parts.empty()) parts = {location.name};
  for (const std::string_view part : parts) {
    parent = node;
    node = Child(parent, part);
    if (node == kNone) node = AddNode(parent, part);
  }
  return nodes_[static_cast<std::size_t>(node)].location ? AddNode(parent, parts.back()) : node;
}

int LocationTree::NodeOf(std::string_view path) const {
  int node = kNone;
  for (const std::string_view part : PartsOf(path.substr(0, path.rfind(':')))) {
    node = Child(node, part);
    if (node == kNone) return kNone;
  }
  return node;
}

LocationTree::Found LocationTree::Find(std::string_view typed) const {
  const SearchQuery query(typed);
  Found found{.shown = std::vector<bool>(nodes_.size(), query.Empty()),
              .open = std::vector<bool>(nodes_.size(), false)};
  if (query.Empty()) return found;
  Fit best = Fit::kNone;
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    const Node& node = nodes_[i];
    const Fit fit = query.FitOf(node.search);
    const bool below_fitting = node.parent != kNone && found.shown[static_cast<std::size_t>(node.parent)];
    found.shown[i] = fit != Fit::kNone || below_fitting;
    if (node.location && fit > best) best = fit, found.best = static_cast<int>(i);
  }
  for (std::size_t i = nodes_.size(); i-- > 0;) {
    if (nodes_[i].parent == kNone || !found.shown[i]) continue;
    const auto parent = static_cast<std::size_t>(nodes_[i].parent);
    found.shown[parent] = found.open[parent] = true;
  }
  return found;
}

}  // namespace tarvoni::qt
