#include "suite/tarvoni_suite.h"

#include "suite/convert_helper.h"
#include "suite/delete_guard.h"
#include "suite/description_editor.h"
#include "suite/grid_layout_store.h"
#include "suite/lookup_dialog.h"
#include "suite/message_service.h"
#include "suite/month_picker.h"
#include "suite/named_field_validator.h"
#include "suite/named_sql_catalog.h"
#include "suite/person_picker.h"
#include "suite/report_service.h"
#include "suite/value_helper.h"
#include "suite/waldort_dialog.h"

namespace tarvoni {
namespace {

template <typename Service, typename Contract>
Contract& Kept(std::unique_ptr<Contract>& slot) {
  if (!slot) slot = std::make_unique<Service>();
  return *slot;
}

}  // namespace

MessageService& TarvoniSuite::Messages() {
  return Kept<suite::MessageService>(messages_);
}
LookupDialog& TarvoniSuite::Lookup() {
  return Kept<suite::LookupDialog>(lookup_);
}
ValueHelper& TarvoniSuite::Values() {
  return Kept<suite::ValueHelper>(values_);
}
ConvertHelper& TarvoniSuite::Convert() {
  return Kept<suite::ConvertHelper>(convert_);
}
GridLayoutStore& TarvoniSuite::GridLayouts() {
  return Kept<suite::GridLayoutStore>(grid_layouts_);
}
WaldortDialog& TarvoniSuite::Waldort() {
  return Kept<suite::WaldortDialog>(waldort_);
}
ReportService& TarvoniSuite::Reports() {
  return Kept<suite::ReportService>(reports_);
}
MonthPicker& TarvoniSuite::Months() {
  return Kept<suite::MonthPicker>(months_);
}
DeleteGuard& TarvoniSuite::Deletes() {
  return Kept<suite::DeleteGuard>(deletes_);
}
PersonPicker& TarvoniSuite::Persons() {
  return Kept<suite::PersonPicker>(persons_);
}
DescriptionEditor& TarvoniSuite::Descriptions() {
  return Kept<suite::DescriptionEditor>(descriptions_);
}
NamedSqlCatalog& TarvoniSuite::NamedSql() {
  return Kept<suite::NamedSqlCatalog>(named_sql_);
}
NamedFieldValidator& TarvoniSuite::NamedFields() {
  return Kept<suite::NamedFieldValidator>(named_fields_);
}

}  // namespace tarvoni
