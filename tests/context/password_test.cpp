#include "src/context/data/password.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/data/database_error.h"
#include "src/context/data/error_text.h"
#include "tests/support/passwords.h"

namespace tarvoni {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(WithoutPassword, HidesEveryFormOfIt) {
  EXPECT_EQ(WithoutPassword("Server=x;PWD=geheim;Database=lohn"), "Server=x;PWD=***;Database=lohn");
  EXPECT_EQ(WithoutPassword("Password = ge heim=1 ;Port=1"), "Password =***;Port=1");
  EXPECT_EQ(WithoutPassword("pwd={ge;he}}im};UID=a"), "pwd=***;UID=a");
  EXPECT_EQ(WithoutPassword("PWD= {a;b};UID=a;Old_Password='x;''y';Port=1"),
            "PWD=***;UID=a;Old_Password=***;Port=1");
  EXPECT_EQ(WithoutPassword("UID=a;PWD="), "UID=a;PWD=***");
  EXPECT_EQ(WithoutPassword("PWD={nie geschlossen;Server=x"), "PWD=***");
  EXPECT_EQ(WithoutPassword("UPDATE P SET [PASSWORD] = 'a;b' WHERE ID=1"), "UPDATE P SET [PASSWORD] =***");
  EXPECT_EQ(WithoutPassword("Kennwort=Tür;Passwort=Öl;"), "Kennwort=***;Passwort=***;");
}

// Behind a closing brace or a semicolon only what a connection text knows is shown again.
TEST(WithoutPassword, TakesRatherTooMuch) {
  EXPECT_EQ(WithoutPassword("PWD={a}b;c};Server=x"), "PWD=***;Server=x");
  EXPECT_EQ(WithoutPassword("PWD={a};b};Server=x"), "PWD=***;Server=x");
  EXPECT_EQ(WithoutPassword("PWD=Fichte;47;a=b; server =x"), "PWD=***; server =x");
}

TEST(WithoutPassword, GivesItsOwnAnswerAgain) {
  for (const char* text :
       {"odbc:PWD=***;UID=a", "„odbc:UID=a;PWD=***“ ist nicht leer.", "a PWD=***\nb", "PWD=***"})
    EXPECT_EQ(WithoutPassword(text), text);
  for (const char* text : {"PWD=***geheim", "PWD=*** geheim", "PWD=***;geheim"})
    EXPECT_EQ(WithoutPassword(text), "PWD=***");
}

TEST(WithoutPassword, LeavesEverythingElse) {
  for (const char* text :
       {"", "=", "Server=x;UID=sa;Größe=5", "SELECT PWD, PASSWORD FROM P WHERE ID = 7", "PWDX=1;a=b"}) {
    EXPECT_EQ(WithoutPassword(text), text);
    EXPECT_FALSE(HoldsPassword(text)) << text;
  }
}

// A driver may repeat a password without its name.
TEST(WithoutPassword, KnowsThoseOfTheConnection) {
  const auto passwords = PasswordsIn("odbc:UID=sa;PWD={Fich}}te;47};Password=ab");
  EXPECT_THAT(passwords, ElementsAre("{Fich}}te;47}", "Fich}te;47", "{Fich}}te", "ab"));
  EXPECT_EQ(WithoutPassword("cannot read {Fich}}te at 'Fich}te;47' (ab), abend", passwords),
            "cannot read *** at '***' (***), abend");
}

TEST(ErrorText, ShowsNoPassword) {
  for (const std::string& text : passwords::ConnectionTexts()) {
    for (const int number : {102, kErrorConnection})
      EXPECT_THAT(ErrorText(DatabaseError(number, "Nicht geöffnet: " + text)),
                  Not(HasSubstr(passwords::kSecret)))
          << text;
  }
}

}  // namespace
}  // namespace tarvoni
