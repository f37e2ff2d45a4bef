#pragma once

#include <cstdint>
#include <memory>
#include <string>

// What a host needs of the component Tarvoni_Lohn ("Tvn ST Lohn dll library"): load libTarvoni_Lohn.so, open a
// database into a record, ask DllGetClassObject for a class and call its methods. Everything happens on the
// thread that calls; each thread has Screens of its own.
namespace tarvoni {

class Connection;

// The context record that the host fills and every Screen copies on entry. A copy is deep: it shares the
// objects and owns its strings. The members keep this order; the unnamed ones belong to the shared library.
struct TvnVar_Dll {
  std::shared_ptr<Connection> dbAdo;  // opened and closed by the host
  std::shared_ptr<void> objSecond;
  std::string strConString;  // for data controls
  std::string strConStringAlt;
  std::string strTextA;
  std::string strLocalCurrency;  // offered beside "EUR"
  std::string strTextB;
  std::string strSqlDateFormat = "yyyymmdd";  // of date literals
  std::string strTextC;
  std::string strTextD;
  std::string strWorkDirectory;
  std::string strTextE;
  std::int32_t lngPlain1 = 0;
  std::int32_t lngWaldortScope = 0;  // of forest-location selection
  std::int32_t lngPlain3 = 0;
  std::int32_t lngPlain4 = 0;
  std::int32_t lngPlain5 = 0;
  std::int32_t lngPlain6 = 0;
  std::int32_t lngPlain7 = 0;
  std::int32_t lngPlain8 = 0;
  std::int32_t lngPlain9 = 0;
  std::int32_t lngPlain10 = 0;
  std::string strTextF;
  std::string strTextG;
  std::string strTextH;
  std::int32_t lngPlain11 = 0;
  std::string strTextI;
  std::string strTextJ;
  std::int32_t lngPlain12 = 0;
};

// What every call gives; negative is a failure.
using Result = std::int32_t;
inline constexpr Result kResultOk = 0;
inline constexpr Result kResultFalse = 1;  // done, or true, only in the negative
inline constexpr Result kResultNotImplemented = static_cast<Result>(0x80004001);
inline constexpr Result kResultNoInterface = static_cast<Result>(0x80004002);
inline constexpr Result kResultPointer = static_cast<Result>(0x80004003);
inline constexpr Result kResultFail = static_cast<Result>(0x80004005);
inline constexpr Result kResultNoAggregation = static_cast<Result>(0x80040110);
inline constexpr Result kResultClassNotAvailable = static_cast<Result>(0x80040111);

constexpr bool Failed(Result result) {
  return result < 0;
}

// The fixed identity of the library, a class or an interface.
struct Guid {
  std::uint64_t high = 0;  // the first 16 digits as they are written
  std::uint64_t low = 0;
  friend constexpr bool operator==(const Guid&, const Guid&) = default;
};

inline constexpr Guid kLibraryTarvoni_Lohn = {0x8e39647126f44351, 0x81fb5a18e72646f7};
inline constexpr Guid kClass_c_Lohn = {0xf554ab6fb1624f9c, 0x948df40084028513};
inline constexpr Guid kInterface_c_Lohn = {0x1ce1fd78e3b249d7, 0xb9358d8fd0017bce};
inline constexpr Guid kClass_C_Version = {0x7576030b2f6544d9, 0xb6b26b9552fb77f3};
inline constexpr Guid kInterface_C_Version = {0xc71dc426ca3547bf, 0xb82ec1004982f37a};
inline constexpr Guid kInterfaceUnknown = {0x0000000000000000, 0xc000000000000046};
inline constexpr Guid kInterfaceClassFactory = {0x0000000100000000, 0xc000000000000046};

// Every object counts its references and ends with the last one.
class Unknown {
 public:
  // Gives the object's interface `id` with a reference of its own; null and a failure if it has none.
  virtual Result QueryInterface(const Guid& id, void** object) = 0;
  virtual std::uint32_t AddRef() = 0;
  virtual std::uint32_t Release() = 0;

 protected:
  ~Unknown() = default;
};

class ClassFactory : public Unknown {
 public:
  // `outer` has to be null: the classes can't be aggregated.
  virtual Result CreateInstance(Unknown* outer, const Guid& id, void** object) = 0;
  // Keeps the library in use while `lock` was called more often with true than with false.
  virtual Result LockServer(bool lock) = 0;

 protected:
  ~ClassFactory() = default;
};

// The methods of class c_Lohn. Each returns when the user has closed its Screen; PA_Gruppe_Delete has none. What
// ends a call early is a failed result, told by TarvoniLastFailure.
class _c_Lohn : public Unknown {
 public:
  // `strPersonal_dll` and `idPersonal_dll` are an ID_PERSONAL in decimal digits.
  virtual Result ARA(const TvnVar_Dll& tvnvar, std::string strPersonal_dll, std::uint8_t mode_dll) = 0;
  virtual Result Maschinenbuch(std::int32_t intNummer_dll, bool bolNew, const TvnVar_Dll& tvnvar) = 0;
  virtual Result MaschineStamm(const TvnVar_Dll& tvnvar) = 0;
  virtual Result PA_Gruppe(std::int32_t Id_PA_Gruppe, std::int32_t ID_Mandant, const TvnVar_Dll& tvnvar) = 0;
  virtual Result BruttoLohn(const TvnVar_Dll& tvnvar, std::int32_t Id_StundenBuch) = 0;
  virtual Result Lager(const TvnVar_Dll& tvnvar, std::string strPersonal_dll, std::uint8_t mode_dll,
                       std::string& strSelektion_Fr_Wh_dll, std::string& strSelektionFormula_dll) = 0;
  virtual Result Belege(const TvnVar_Dll& tvnvar, std::string strPersonal_dll, std::uint8_t mode_dll) = 0;
  virtual Result Arbeitsauftrag(const TvnVar_Dll& tvnvar, std::string idPersonal_dll, std::int32_t ID,
                                bool Plan_dll) = 0;
  virtual Result PA_Gruppe_Delete(std::int32_t ID_Item_dll, const TvnVar_Dll& tvnvar) = 0;
  // `RechName` is the name made, "" if the user cancels.
  virtual Result NewRechnung(const TvnVar_Dll& tvnvar, std::string& RechName, std::int32_t intPersonal,
                             std::string oldRechName) = 0;

 protected:
  ~_c_Lohn() = default;
};

// The methods of class C_Version.
class C_Version : public Unknown {
 public:
  // "2.0": the component's major and minor version.
  virtual Result DLL_Version(std::string& version) = 0;

 protected:
  ~C_Version() = default;
};

// Why the last call of this thread failed; all "" after a call that did not.
struct Failure {
  std::string text;       // for the user, in his language
  std::string screen;     // the Screen at work, "F_ARA"
  std::string interface;  // the interface called, "_c_Lohn"
};

// The library's exports. A host that loads it at run time takes the types from here:
//   auto get_class_object = reinterpret_cast<decltype(&DllGetClassObject)>(dlsym(library, "DllGetClassObject"));
extern "C" {

// The class factory of `class_id` (`id` is kInterfaceClassFactory).
Result DllGetClassObject(const Guid& class_id, const Guid& id, void** object);
// kResultOk when nothing of the library is in use, else kResultFalse.
Result DllCanUnloadNow();
// There is no registry of components to write to: both give kResultFalse and change nothing.
Result DllRegisterServer();
Result DllUnregisterServer();

// Opens a file or, with "odbc:…", a database on a server, and fills `dbAdo` and `strConString` of the record.
// Every thread that calls a method gets the windows, the suite's services and German number formats set up, and the
// process a QApplication if it has none.
Result TarvoniOpenDatabase(const char* database, TvnVar_Dll& tvnvar);
void TarvoniLastFailure(Failure& failure);

}  // extern "C"

}  // namespace tarvoni
