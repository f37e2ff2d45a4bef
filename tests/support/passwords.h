#pragma once

#include <string>
#include <vector>

// Connection texts with a password in every form that people write; kSecret is a part of each.
namespace tarvoni::passwords {

inline constexpr const char* kSecret = "Fichte";

inline std::vector<std::string> Attributes() {
  std::vector<std::string> all;
  for (const char* password :
       {"Fichte",       "{Fichte}",     "{Fichte;47}",  "{a;Fichte}",     "{a}}Fichte;b}",
        "{a}b;Fichte}", "{a};Fichte}",  "a;Fichte",     "{nie zu Fichte", "'Fichte'",
        "'a'';Fichte'", "\"a;Fichte\"", "a=Fichte",     "Grüne Fichte ß", "*** Fichte",
        "***Fichte",    "***;Fichte",   "{***;Fichte}", "Fichte'",        "$Fichte&<b>"}) {
    for (const char* key : {"PWD=", "pwd = ", "Password=", " PassWord\t= ", "Kennwort=", "{PWD}="})
      all.push_back(std::string(key) + password);
  }
  return all;
}

// To a driver that is not there, and without the "odbc:" that makes it one.
inline std::vector<std::string> ConnectionTexts() {
  std::vector<std::string> all;
  for (const std::string& attribute : Attributes()) {
    all.push_back("odbc:Driver=Keiner;Server=x;" + attribute + ";Database=lohn");
    all.push_back("ODBC:" + attribute);
    all.push_back("Driver=Keiner; " + attribute + ";UID=a");
  }
  return all;
}

}  // namespace tarvoni::passwords
