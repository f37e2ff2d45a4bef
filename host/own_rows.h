#pragma once

#include "host/demo/enterprise.h"
#include "host/own_enterprise.h"

// The rows that an enterprise of one's own is made of, beside codes and settings.
namespace tarvoni::host {

// The client with his cost centres, one for each district, and the objects; gives what codes need to know of him.
demo::Client WriteOwnClient(Connection& connection, const OwnEnterprise& enterprise);

// The districts, each with its compartments.
void WriteOwnForest(Connection& connection, const OwnEnterprise& enterprise);

// The payees, and the workers with what pays them and a journal for each month of the forest year.
void WriteOwnPersons(Connection& connection, const OwnEnterprise& enterprise);

}  // namespace tarvoni::host
