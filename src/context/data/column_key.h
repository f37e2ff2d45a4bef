#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace tarvoni {

// A column named by its field, or by its number from 0 where the statement gives it no name.
class ColumnKey {
 public:
  ColumnKey(const char* field) : field_(field) {}
  ColumnKey(std::string_view field) : field_(field) {}
  ColumnKey(std::string field) : field_(std::move(field)) {}
  ColumnKey(int number) : number_(number) {}

  // The column among a row's fields or a grid's columns, with their error if there is none.
  template <typename Columns>
  decltype(auto) In(Columns&& columns) const {
    return number_ < 0 ? columns[std::string_view(field_)] : columns[number_];
  }

 private:
  static constexpr int kByField = -1;

  std::string field_;
  int number_ = kByField;
};

}  // namespace tarvoni
