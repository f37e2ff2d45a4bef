#include <array>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

struct Named {
  std::string_view code, name;
};
// In the order of Unit.
constexpr auto kUnits = std::to_array<Named>({{"fm", "Festmeter"},
                                              {"rm", "Raummeter"},
                                              {"ha", "Hektar"},
                                              {"Stk", "Stück"},
                                              {"lfm", "Laufmeter"},
                                              {"Std", "Stunden"},
                                              {"kg", "Kilogramm"},
                                              {"l", "Liter"},
                                              {"km", "Kilometer"},
                                              {"m²", "Quadratmeter"},
                                              {"psch", "pauschal"},
                                              {"-", "ohne Einheit"}});
constexpr std::array<std::string_view, 5> kWageUnits = {"Stunden", "Stück", "Kilometer", "Tage", "Euro"};
constexpr auto kVatRates = std::to_array<Named>({{"0", "steuerfrei"},
                                                 {"10", "10 % ermäßigt"},
                                                 {"13", "13 % Holz und Pflanzen"},
                                                 {"20", "20 % Normalsatz"}});
constexpr auto kSpecialFeatures = std::to_array<Named>({{"00", "ohne Sondermerkmal"},
                                                        {"10", "Windwurf"},
                                                        {"20", "Borkenkäfer"},
                                                        {"30", "Schutzwaldsanierung"},
                                                        {"40", "Förderprojekt"},
                                                        {"50", "Servitutsholz"}});
constexpr auto kInvoiceCategories = std::to_array<Named>(
    {{"1", "Holzverkauf"}, {"2", "Jagd und Fischerei"}, {"3", "Nebennutzung"}, {"9", "Sonstige Rechnung"}});

struct OrderCategory {
  std::string_view code, name;
  bool no_edit, central;
  int from, to;
};
constexpr auto kOrderCategories =
    std::to_array<OrderCategory>({{"1", "Eigenregie", false, false, 1, 3999},
                                  {"2", "Unternehmereinsatz", false, false, 4000, 6999},
                                  {"3", "Zentral vergebene Nummern", true, true, 7000, 7999}});

void WriteVatRates(Connection& connection) {
  RowWriter rates(connection, "MWST", "ID, SHORT, [LONG]", RowWriter::Keys::kGiven);
  int id = 0;
  for (const Named& rate : kVatRates) rates.Add(++id, rate.code, rate.name);
  rates.Finish();
}

void WriteSpecialFeatures(Connection& connection) {
  RowWriter features(connection, "SONDERMERKMAL", "ID, NUMMER, NAME, STANDART, DISABLE",
                     RowWriter::Keys::kGiven);
  int id = 0;
  for (const Named& feature : kSpecialFeatures) {
    ++id;
    features.Add(id, feature.code, feature.name, id == 1, false);
  }
  features.Finish();
}

void WriteCategories(Connection& connection) {
  RowWriter invoices(connection, "T_KATEGORIE", "NUMMER, [LONG], STANDART, DISABLE");
  for (const Named& category : kInvoiceCategories)
    invoices.Add(category.code, category.name, &category == &kInvoiceCategories.front(), false);
  invoices.Finish();
  RowWriter orders(connection, "T_PA_KATEGORIE",
                   "ID, NUMMER, [LONG], NOEDIT, ZENTRAL, PA_NUMMER_VON, PA_NUMMER_BIS",
                   RowWriter::Keys::kGiven);
  int id = 0;
  for (const OrderCategory& category : kOrderCategories)
    orders.Add(++id, category.code, category.name, category.no_edit, category.central, category.from,
               category.to);
  orders.Finish();
}

}  // namespace

void BuildUnits(Enterprise& enterprise) {
  Connection& connection = enterprise.connection;
  int id = 0;
  RowWriter units(connection, "WARENEINHEIT", "EINHEIT_ID, EINHEIT, BESCHREIBUNG", RowWriter::Keys::kGiven);
  for (const Named& unit : kUnits) units.Add(++id, unit.code, unit.name);
  units.Finish();
  id = 0;
  RowWriter wage_units(connection, "EINHEIT", "ID, NAME", RowWriter::Keys::kGiven);
  for (const auto name : kWageUnits) wage_units.Add(++id, name);
  wage_units.Finish();
  WriteVatRates(connection);
  WriteSpecialFeatures(connection);
  WriteCategories(connection);
}

}  // namespace tarvoni::demo
