#pragma once

#include <string>

#include "platform/sqlite/database.h"
#include "platform/tsql/public/plan.h"

// Changes of the file's tables, each whole or not at all, within a write transaction.
namespace tarvoni::sqlite {

// Throws 2714 if the table is there.
void CreateTable(Database& database, const tsql::CreateTableStep& step);
// Throws 1505 if rows break a unique index.
void CreateIndex(Database& database, const tsql::CreateIndexStep& step);
// Throws 3701 if the table is not there, 3726 if another refers to it.
void DropTable(Database& database, const std::string& name);

}  // namespace tarvoni::sqlite
