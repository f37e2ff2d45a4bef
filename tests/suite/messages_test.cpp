#include <gmock/gmock.h>

#include <map>
#include <set>

#include "src/context/controls/controls.h"
#include "src/context/controls/form.h"
#include "src/context/services/environment.h"
#include "suite/message_service.h"
#include "suite/message_texts.h"

namespace tarvoni::suite {
namespace {

std::string Message(std::int32_t number, Locale locale) {
  Environment environment{.locale = locale};
  const EnvironmentScope scope(environment);
  return MessageService().GetMessage(number, {});
}
std::string German(std::int32_t number) {
  return Message(number, Locale::German());
}
std::string English(std::int32_t number) {
  return Message(number, Locale::English());
}

// What the Screens do with their messages.
const std::set<std::int32_t> kSentences = {199,  220,  223,  232,  1713, 4452,
                                           4455, 4687, 5370, 5371, 5733, 5840};
const std::set<std::int32_t> kQuestions = {1181, 1429, 4443, 4688, 4744, 4941, 5732};
const std::set<std::int32_t> kPieces = {215, 247, 248, 859, 1214, 1427, 1428, 4446, 5599};
const std::set<std::int32_t> kCaptions = {54,   56,   178,  558,  594,  663,  664,  682,
                                          684,  686,  751,  1126, 1129, 1145, 1430, 1742,
                                          3442, 4680, 4689, 4756, 5463, 5623, 5730};

TEST(Messages, HaveTheFormOfTheirUse) {
  std::set<std::int32_t> numbers;
  for (const auto& [group, ending] :
       {std::pair{&kSentences, '.'}, {&kQuestions, '?'}, {&kPieces, '\0'}, {&kCaptions, '\0'}}) {
    for (const std::int32_t number : *group) {
      numbers.insert(number);
      const std::string german = German(number);
      const std::string english = English(number);
      ASSERT_FALSE(german.empty() || english.empty()) << number;
      if (ending != '\0') {
        EXPECT_EQ(german.back(), ending) << german;
        EXPECT_EQ(english.back(), ending) << english;
      }
      if (number != 4689) {
        EXPECT_NE(german, english) << number;
      }
      EXPECT_EQ(german.find("Meldung"), german.npos) << german;
    }
  }
  EXPECT_EQ(numbers.size(), kSentences.size() + kQuestions.size() + kPieces.size() + kCaptions.size());
  for (const MessageText& text : MessageTexts()) EXPECT_TRUE(numbers.contains(text.number)) << text.number;
}

TEST(Messages, JoinIntoSentences) {
  EXPECT_EQ(German(1427) + " Kostenart " + German(1214), "Die Angabe Kostenart ist nicht vorhanden.");
  EXPECT_EQ(English(1427) + " Kostenart " + English(1214), "The entry Kostenart does not exist.");
  EXPECT_EQ(German(1427) + " " + German(859) + " " + German(1428),
            "Die Angabe Nummer ist bereits vorhanden.");
  EXPECT_EQ(German(1427) + " " + German(5599) + " " + German(1428),
            "Die Angabe Plannummer ist bereits vorhanden.");
  EXPECT_EQ(German(247) + " " + German(859) + " '3' " + German(215) + " " + German(248),
            "Soll die Nummer '3' wirklich gelöscht werden?");
  EXPECT_EQ(English(247) + " " + English(859) + " '3' " + English(215) + " " + English(248),
            "Should Number '3' really be deleted?");
  EXPECT_EQ(German(859) + " '3' " + German(4446) + " 'H7'.",
            "Nummer '3' kann nicht storniert werden, weil noch Holzlisten zugeordnet sind: 'H7'.");
}

// Two headings stand as column names in brackets.
TEST(Messages, NeverCloseABracket) {
  for (const std::int32_t number : {1129, 1430}) {
    EXPECT_EQ((German(number) + English(number)).find_first_of("[]'"), std::string::npos) << number;
  }
}

TEST(Messages, NameANumberWithoutAText) {
  EXPECT_EQ(German(4711), "Es gibt keinen Text zur Meldung 4711.");
  EXPECT_EQ(English(-1), "There is no text for message -1.");
  EXPECT_EQ(German(99999), "Es gibt keinen Text zur Meldung 99999.");
}

struct MachineCosts : Form {
  MachineCosts() : Form("F_Probe") { lblAnschaff.SetCaption("Anschaffungskosten"); }
  layout::Node BuildLayout() override { return layout::Stack(); }

  Label lblAnschaff{*this, "lblAnschaff"};
  Label lblVK{*this, "lblVK"};
  Label lbOI{*this, "lbOI"};
  Label lblName{*this, "lblName"};
};

TEST(Messages, BindingNamesTheLabelsThatAScreenLeavesEmpty) {
  const auto captions = [](Locale locale, const char* own) {
    Environment environment{.locale = locale};
    const EnvironmentScope scope(environment);
    MachineCosts screen;
    screen.lbOI.SetCaption(own);
    MessageService().Bind({}, screen);
    return screen.lblAnschaff.Caption() + "|" + screen.lblVK.Caption() + "|" + screen.lbOI.Caption() + "|" +
           screen.lblName.Caption();
  };
  EXPECT_EQ(captions(Locale::German(), ""), "Anschaffungskosten|Treibstoff|Öl|");
  EXPECT_EQ(captions(Locale::English(), ""), "Anschaffungskosten|Fuel|Oil|");
  EXPECT_EQ(captions(Locale::German(), "Eigenes"), "Anschaffungskosten|Treibstoff|Eigenes|");
}

}  // namespace
}  // namespace tarvoni::suite
