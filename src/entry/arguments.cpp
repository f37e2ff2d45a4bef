#include "src/entry/arguments.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

#include "src/context/values/call_error.h"

namespace tarvoni {
namespace {

std::optional<std::int32_t> WholeNumber(const std::string& text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<bool> Truth(const std::string& text) {
  if (text == "true" || text == "1") return true;
  if (text == "false" || text == "0") return false;
  return std::nullopt;
}

const char* Default(ParameterKind kind) {
  return kind == ParameterKind::kText ? "" : "0";
}

bool Suits(ParameterKind kind, const std::string& value) {
  const auto number = WholeNumber(value);
  switch (kind) {
    case ParameterKind::kLong:
      return number.has_value();
    case ParameterKind::kByte:
      return number && *number >= 0 && *number <= std::numeric_limits<std::uint8_t>::max();
    case ParameterKind::kBoolean:
      return Truth(value).has_value();
    default:
      return true;
  }
}

[[noreturn]] void RefuseValue(const std::string& name, const std::string& value) {
  throw CallError("\"" + value + "\" passt nicht für das Argument " + name + ".");
}

}  // namespace

Arguments::Arguments(const std::vector<Parameter>& parameters, const Values& values)
    : parameters_(parameters) {
  for (const Parameter& parameter : parameters) values_[parameter.name] = Default(parameter.kind);
  for (const auto& [name, value] : values) {
    const auto parameter = std::ranges::find(parameters, name, &Parameter::name);
    if (parameter == parameters.end()) throw CallError("Das Argument " + name + " gibt es hier nicht.");
    if (!Suits(parameter->kind, value)) RefuseValue(name, value);
    values_[name] = value;
  }
}

std::int32_t Arguments::Long(const std::string& name) const {
  return WholeNumber(values_.at(name)).value_or(0);
}

std::uint8_t Arguments::Byte(const std::string& name) const {
  return static_cast<std::uint8_t>(Long(name));
}

bool Arguments::Boolean(const std::string& name) const {
  return Truth(values_.at(name)).value_or(false);
}

Arguments::Values Arguments::Results() const {
  Values results = given_;
  for (const Parameter& parameter : parameters_) {
    if (parameter.by_reference) results[parameter.name] = values_.at(parameter.name);
  }
  return results;
}

}  // namespace tarvoni
