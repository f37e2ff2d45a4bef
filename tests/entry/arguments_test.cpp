#include "src/entry/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/values/call_error.h"
#include "src/entry/screen_runs.h"

namespace tarvoni {
namespace {

using enum ParameterKind;
using ::testing::ElementsAre;
using ::testing::Pair;

const std::vector<Parameter> kParameters = {
    {"text", kText}, {"long", kLong}, {"byte", kByte}, {"flag", kBoolean}, {"name", kText, true}};

TEST(Arguments, ReadByNameAndKind) {
  Arguments given(kParameters, {{"text", "a b"}, {"long", "-70000"}, {"byte", "255"}, {"flag", "true"}});
  EXPECT_EQ(given.Text("text"), "a b");
  EXPECT_EQ(given.Long("long"), -70000);
  EXPECT_EQ(given.Byte("byte"), 255);
  EXPECT_TRUE(given.Boolean("flag"));
  given.Reference("name") = "neu";
  given.Give("curId", -7);
  EXPECT_THAT(given.Results(), ElementsAre(Pair("curId", "-7"), Pair("name", "neu")));
}

TEST(Arguments, AreEmptyZeroOrFalseWhenNotGiven) {
  const Arguments none(kParameters, {});
  EXPECT_EQ(none.Text("text"), "");
  EXPECT_EQ(none.Long("long"), 0);
  EXPECT_FALSE(none.Boolean("flag"));
}

TEST(Arguments, RefuseWhatDoesNotFit) {
  const std::vector<std::pair<std::string, std::string>> wrong = {
      {"mode", "1"},   {"long", "1.5"}, {"long", "3000000000"}, {"long", ""},
      {"byte", "256"}, {"byte", "-1"},  {"flag", "ja"}};
  for (const auto& [name, value] : wrong) {
    EXPECT_THROW(Arguments(kParameters, {{name, value}}), CallError) << name << "=" << value;
  }
}

TEST(ScreenRuns, RefuseAScreenThatIsNotThere) {
  EXPECT_THROW(RunScreen("F_Nichts", {}, {}), CallError);
}

}  // namespace
}  // namespace tarvoni
