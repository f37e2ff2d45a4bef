#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/qt/search_text.h"
#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

// The tree that locations form by the parts of their paths. A node that is no location itself only holds others.
class LocationTree {
 public:
  static constexpr int kNone = -1;

  struct Node {
    std::string part;  // of the path
    int parent = kNone;
    std::optional<std::size_t> location;
    SearchRow search = {};
  };

  explicit LocationTree(const std::vector<Location>& locations);

  // Parents before their children.
  const std::vector<Node>& Nodes() const { return nodes_; }
  // The node of a path as it stands in a field, perhaps with ":" and a name behind it.
  int NodeOf(std::string_view path) const;

  struct Found {
    std::vector<bool> shown;  // for each node: it fits, or one above or below it does
    std::vector<bool> open;   // nodes below it fit
    int best = kNone;         // the location to stand on
  };
  Found Find(std::string_view typed) const;

 private:
  int NodeFor(const Location& location);
  int Child(int parent, std::string_view part) const;
  int AddNode(int parent, std::string_view part);

  std::vector<Node> nodes_;
  std::map<std::pair<int, std::string>, int> children_;  // by parent and part
};

}  // namespace tarvoni::qt
