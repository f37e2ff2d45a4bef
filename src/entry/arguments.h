#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tarvoni {

enum class ParameterKind { kText, kLong, kByte, kBoolean };

struct Parameter {
  std::string name;
  ParameterKind kind = ParameterKind::kText;
  bool by_reference = false;  // a text that the call may change
};

// The arguments of a call by name, as scripts and forms give them; one that is not given is "", 0 or false.
class Arguments {
 public:
  using Values = std::map<std::string, std::string>;

  // A CallError for a name that is no parameter's, and for a value that does not suit its kind.
  Arguments(const std::vector<Parameter>& parameters, const Values& values);

  const std::string& Text(const std::string& name) const { return values_.at(name); }
  std::string& Reference(const std::string& name) { return values_.at(name); }
  std::int32_t Long(const std::string& name) const;
  std::uint8_t Byte(const std::string& name) const;
  bool Boolean(const std::string& name) const;

  // What the call gives besides its texts: a number by reference, a member of the Screen.
  void Give(const std::string& name, const std::string& value) { given_[name] = value; }
  void Give(const std::string& name, std::int32_t value) { Give(name, std::to_string(value)); }
  // The texts that the call may have changed, and what it gave.
  Values Results() const;

 private:
  const std::vector<Parameter>& parameters_;
  Values values_;
  Values given_;
};

}  // namespace tarvoni
