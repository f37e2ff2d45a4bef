#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_NewArbeitsauftrag.
namespace tarvoni::new_arbeitsauftrag_sql {

SqlText NumberOfPayee(std::int32_t payee);
SqlText StandardGroup(std::int32_t payee);
SqlText StandardFeature();
// What a group gives its orders: range, number, product.
SqlText NumberingOfGroup(std::string_view group);

// Where numbers run: each payee, year and cost centre has its own.
struct Place {
  std::int32_t payee = 0;
  std::string forest_year;
  std::string cost_centre;  // KOSTENSTELLE.NUMBER
};
// 9998 and 9999 are reserved and never count.
SqlText HighestNumber(const Place& place, std::int16_t from, std::int16_t to);
SqlText OrdersWithNumber(const Place& place, std::string_view number);

struct Header {
  std::string name;
  Place place;
  std::string number;
  std::string feature;  // the Tags
  std::string product;
  std::string group;
  std::string description;
};
SqlText InsertHeader(const Header& header);
SqlText LastHeader();

}  // namespace tarvoni::new_arbeitsauftrag_sql
