#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "include/tarvoni_lohn.h"
#include "src/entry/arguments.h"

namespace tarvoni::host {

// A method of c_Lohn as scripts and forms call it; the record is passed apart from the other arguments.
struct Method {
  std::string name;
  std::string title;    // for a menu
  std::string purpose;  // in a sentence
  std::vector<Parameter> parameters;
  Result (*call)(_c_Lohn& lohn, Arguments& arguments, const TvnVar_Dll& tvnvar);
  // The by-reference argument that a user wants to know, and what it is called; "" if there is none.
  std::string result = {};
  std::string result_label = {};
};

// The ten methods in slot order.
const std::vector<Method>& Methods();
// A CallError if there is none of that name.
const Method& MethodNamed(const std::string& name);

// Why a method failed.
class MethodError : public std::runtime_error {
 public:
  MethodError(Result code, const Failure& failure)
      : std::runtime_error(failure.text), code_(code), source_(failure.interface + " " + failure.screen) {}
  Result Code() const { return code_; }
  // "_c_Lohn F_ARA"
  const std::string& Source() const { return source_; }

 private:
  Result code_;
  std::string source_;
};

// Calls a method through the component's class factory, as any host does, and gives the by-reference arguments. A
// failed result becomes a MethodError.
Arguments::Values CallMethod(const Method& method, const Arguments::Values& arguments,
                             const TvnVar_Dll& tvnvar);

}  // namespace tarvoni::host
