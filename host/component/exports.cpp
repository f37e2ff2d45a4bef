#include "host/component/component.h"
#include "host/open_database.h"
#include "include/tarvoni_lohn.h"
#include "src/entry/call.h"
#include "src/entry/class_table.h"

namespace tarvoni {

Result DllGetClassObject(const Guid& class_id, const Guid& id, void** object) {
  SetThreadPreparation(&host::PrepareComponentThread);
  ForgetFailure();
  return GetClassObject(class_id, id, object);
}

Result DllCanUnloadNow() {
  return LibraryInUse() ? kResultFalse : kResultOk;
}

Result DllRegisterServer() {
  return kResultFalse;
}

Result DllUnregisterServer() {
  return kResultFalse;
}

Result TarvoniOpenDatabase(const char* database, TvnVar_Dll& tvnvar) {
  return RunCall("", "TarvoniOpenDatabase", [&] {
    tvnvar.dbAdo = host::OpenDatabase(database);
    tvnvar.strConString = tvnvar.dbAdo->ConnectionString();
  });
}

void TarvoniLastFailure(Failure& failure) {
  failure = LastFailure();
}

}  // namespace tarvoni
