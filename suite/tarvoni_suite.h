#pragma once

#include <memory>

#include "src/context/services/services.h"

namespace tarvoni {

// The shared library: one instance of each service, made on first use and kept.
class TarvoniSuite final : public Suite {
 public:
  MessageService& Messages() override;
  LookupDialog& Lookup() override;
  ValueHelper& Values() override;
  ConvertHelper& Convert() override;
  GridLayoutStore& GridLayouts() override;
  WaldortDialog& Waldort() override;
  ReportService& Reports() override;
  MonthPicker& Months() override;
  DeleteGuard& Deletes() override;
  PersonPicker& Persons() override;
  DescriptionEditor& Descriptions() override;
  NamedSqlCatalog& NamedSql() override;
  NamedFieldValidator& NamedFields() override;

 private:
  std::unique_ptr<MessageService> messages_;
  std::unique_ptr<LookupDialog> lookup_;
  std::unique_ptr<ValueHelper> values_;
  std::unique_ptr<ConvertHelper> convert_;
  std::unique_ptr<GridLayoutStore> grid_layouts_;
  std::unique_ptr<WaldortDialog> waldort_;
  std::unique_ptr<ReportService> reports_;
  std::unique_ptr<MonthPicker> months_;
  std::unique_ptr<DeleteGuard> deletes_;
  std::unique_ptr<PersonPicker> persons_;
  std::unique_ptr<DescriptionEditor> descriptions_;
  std::unique_ptr<NamedSqlCatalog> named_sql_;
  std::unique_ptr<NamedFieldValidator> named_fields_;
};

}  // namespace tarvoni
