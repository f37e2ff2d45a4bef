#pragma once

#include <string_view>

// The schema by subject. A blank line ends a statement; the comment above it says what the table is for.
namespace tarvoni::schema {

extern const std::string_view kSettings;
extern const std::string_view kPersons;
extern const std::string_view kCodes;
extern const std::string_view kNature;
extern const std::string_view kTimber;
extern const std::string_view kWage;
extern const std::string_view kOrders;
extern const std::string_view kPositions;
extern const std::string_view kVouchers;
extern const std::string_view kStores;
extern const std::string_view kMachines;

// Not for a server.
extern const std::string_view kFileIndexes;

}  // namespace tarvoni::schema
