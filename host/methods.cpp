#include "host/methods.h"

#include <algorithm>
#include <memory>

#include "src/context/values/call_error.h"

namespace tarvoni::host {
namespace {

using enum ParameterKind;

struct Releaser {
  void operator()(Unknown* object) const { object->Release(); }
};
template <typename Interface>
using Reference = std::unique_ptr<Interface, Releaser>;

void Check(Result result) {
  if (!Failed(result)) return;
  Failure failure;
  TarvoniLastFailure(failure);
  if (failure.text.empty()) failure.text = "Die Komponente gibt das Ergebnis " + std::to_string(result) + ".";
  throw MethodError(result, failure);
}

Reference<_c_Lohn> MakeLohn() {
  void* object = nullptr;
  Check(DllGetClassObject(kClass_c_Lohn, kInterfaceClassFactory, &object));
  const Reference<ClassFactory> factory(static_cast<ClassFactory*>(object));
  Check(factory->CreateInstance(nullptr, kInterface_c_Lohn, &object));
  return Reference<_c_Lohn>(static_cast<_c_Lohn*>(object));
}

}  // namespace

const std::vector<Method>& Methods() {
  static const std::vector<Method> methods = {
      {"ARA",
       "&Arbeitsaufträge (Lohn)",
       "Lohnaufträge eines Mandanten im Forstjahr: Liste, Bearbeitung, Stunden",
       {{"strPersonal_dll", kText}, {"mode_dll", kByte}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.ARA(tvnvar, a.Text("strPersonal_dll"), a.Byte("mode_dll"));
       }},
      {"Maschinenbuch",
       "&Maschinenbuch",
       "Stammdaten und Kosten einer Maschine",
       {{"intNummer_dll", kLong}, {"bolNew", kBoolean}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.Maschinenbuch(a.Long("intNummer_dll"), a.Boolean("bolNew"), tvnvar);
       }},
      {"MaschineStamm",
       "Maschinen-&Stammdaten",
       "Welche Kostenart zu welcher Kostengruppe der Maschinen zählt",
       {},
       [](_c_Lohn& lohn, Arguments&, const TvnVar_Dll& tvnvar) { return lohn.MaschineStamm(tvnvar); }},
      {"PA_Gruppe",
       "&PA-Gruppe",
       "Eine Gruppe von Produktaufträgen anlegen oder bearbeiten",
       {{"Id_PA_Gruppe", kLong}, {"ID_Mandant", kLong}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.PA_Gruppe(a.Long("Id_PA_Gruppe"), a.Long("ID_Mandant"), tvnvar);
       }},
      {"BruttoLohn",
       "&Bruttolohn",
       "Bruttolohnjournal eines Arbeiters in einem Monat",
       {{"Id_StundenBuch", kLong}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.BruttoLohn(tvnvar, a.Long("Id_StundenBuch"));
       }},
      {"Lager",
       "&Lager",
       "Lagerbelege eines Mandanten",
       {{"strPersonal_dll", kText},
        {"mode_dll", kByte},
        {"strSelektion_Fr_Wh_dll", kText, true},
        {"strSelektionFormula_dll", kText, true}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.Lager(tvnvar, a.Text("strPersonal_dll"), a.Byte("mode_dll"),
                           a.Reference("strSelektion_Fr_Wh_dll"), a.Reference("strSelektionFormula_dll"));
       }},
      {"Belege",
       "B&elege",
       "Rechnungsbelege eines Mandanten und ihre Aufteilung auf Kosten",
       {{"strPersonal_dll", kText}, {"mode_dll", kByte}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.Belege(tvnvar, a.Text("strPersonal_dll"), a.Byte("mode_dll"));
       }},
      {"Arbeitsauftrag",
       "Produktauf&träge (Kosten)",
       "Ein Produktauftrag oder Plan mit seinen Kostenpositionen",
       {{"idPersonal_dll", kText}, {"ID", kLong}, {"Plan_dll", kBoolean}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.Arbeitsauftrag(tvnvar, a.Text("idPersonal_dll"), a.Long("ID"), a.Boolean("Plan_dll"));
       }},
      {"PA_Gruppe_Delete",
       "PA-Gruppe l&öschen",
       "Eine Gruppe löschen, zu der kein Auftrag gehört",
       {{"ID_Item_dll", kLong}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.PA_Gruppe_Delete(a.Long("ID_Item_dll"), tvnvar);
       }},
      {"NewRechnung",
       "&Neue Rechnung",
       "Den Namen einer Rechnung bilden",
       {{"RechName", kText, true}, {"intPersonal", kLong}, {"oldRechName", kText}},
       [](_c_Lohn& lohn, Arguments& a, const TvnVar_Dll& tvnvar) {
         return lohn.NewRechnung(tvnvar, a.Reference("RechName"), a.Long("intPersonal"),
                                 a.Text("oldRechName"));
       },
       "RechName",
       "Name der Rechnung"},
  };
  return methods;
}

const Method& MethodNamed(const std::string& name) {
  const auto found = std::ranges::find(Methods(), name, &Method::name);
  if (found == Methods().end()) throw CallError("Die Methode " + name + " gibt es nicht.");
  return *found;
}

Arguments::Values CallMethod(const Method& method, const Arguments::Values& arguments,
                             const TvnVar_Dll& tvnvar) {
  Arguments given(method.parameters, arguments);
  const auto lohn = MakeLohn();
  Check(method.call(*lohn, given, tvnvar));
  return given.Results();
}

}  // namespace tarvoni::host
