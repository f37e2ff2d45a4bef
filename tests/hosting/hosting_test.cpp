#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "include/tarvoni_lohn.h"

// The main of the example in docs/hosting.md.
int ExampleMain(int count, char** arguments);

// The function of the example about positions.
std::int32_t TakePosition(tarvoni::_c_Lohn& lohn, const tarvoni::TvnVar_Dll& tvnvar, std::int32_t client);

namespace tarvoni {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

// The library with its exports, loaded once.
struct Library {
  static Library& Get() {
    static Library library;
    return library;
  }

  void* handle = dlopen(TARVONI_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  decltype(&DllGetClassObject) get_class_object = Export<decltype(&DllGetClassObject)>("DllGetClassObject");
  decltype(&DllCanUnloadNow) can_unload = Export<decltype(&DllCanUnloadNow)>("DllCanUnloadNow");
  decltype(&TarvoniOpenDatabase) open = Export<decltype(&TarvoniOpenDatabase)>("TarvoniOpenDatabase");
  decltype(&TarvoniLastFailure) last_failure = Export<decltype(&TarvoniLastFailure)>("TarvoniLastFailure");

  template <typename Interface>
  Interface* Make(const Guid& class_id, const Guid& id) const {
    void *factory = nullptr, *object = nullptr;
    EXPECT_EQ(get_class_object(class_id, kInterfaceClassFactory, &factory), kResultOk);
    EXPECT_EQ(static_cast<ClassFactory*>(factory)->CreateInstance(nullptr, id, &object), kResultOk);
    static_cast<ClassFactory*>(factory)->Release();
    return static_cast<Interface*>(object);
  }

  Failure LastFailure() const {
    Failure failure;
    last_failure(failure);
    return failure;
  }

 private:
  template <typename Function>
  Function Export(const char* name) const {
    return reinterpret_cast<Function>(dlsym(handle, name));
  }
};

// The demo enterprise in a file of its own.
class DemoFile {
 public:
  DemoFile() {
    const std::string command = std::string(TARVONI_PROGRAM) + " demo " + path_.string() + " >/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
  }
  DemoFile(const DemoFile&) = delete;
  DemoFile& operator=(const DemoFile&) = delete;
  ~DemoFile() { std::filesystem::remove(path_); }
  std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("tarvoni_hosting_" + std::to_string(getpid()) + ".db");
};

// Closes the first modal window that opens, as its close button does, and keeps its title.
class WindowCloser {
 public:
  WindowCloser() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      QWidget* const window = QApplication::activeModalWidget();
      if (!window) return;
      title = window->windowTitle().toStdString();
      window->close();
    });
    timer_.start(20);
  }
  std::string title;

 private:
  QTimer timer_;
};

// Presses these buttons, each in another modal window as soon as that is on top.
class ButtonPresser {
 public:
  explicit ButtonPresser(QStringList captions) : captions_(std::move(captions)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { PressNext(); });
    timer_.start(20);
  }

 private:
  void PressNext() {
    QWidget* const window = QApplication::activeModalWidget();
    // A window that is on its way to close would take the next press too.
    if (!window || window == pressed_ || captions_.isEmpty()) return;
    for (QPushButton* button : window->findChildren<QPushButton*>()) {
      if (button->text().remove('&') != captions_.first() || !button->isEnabled() || !button->isVisible())
        continue;
      captions_.removeFirst();
      pressed_ = window;
      // From an event of its own: the timer rests while its own is at work.
      return QTimer::singleShot(0, button, &QPushButton::click);
    }
  }

  QStringList captions_;
  QPointer<QWidget> pressed_;
  QTimer timer_;
};

TEST(Library, ShowsItsExportsAndNothingElse) {
  std::FILE* const pipe = popen("nm -D --defined-only -f just-symbols " TARVONI_LIBRARY, "r");
  std::vector<std::string> symbols;
  char line[256];
  while (std::fgets(line, sizeof line, pipe)) symbols.emplace_back(line, std::string_view(line).find('\n'));
  EXPECT_EQ(pclose(pipe), 0);
  EXPECT_THAT(symbols,
              UnorderedElementsAre("DllGetClassObject", "DllCanUnloadNow", "DllRegisterServer",
                                   "DllUnregisterServer", "TarvoniOpenDatabase", "TarvoniLastFailure"));
}

TEST(Library, IsNamedAfterItsVersion) {
  EXPECT_EQ(std::filesystem::path(TARVONI_LIBRARY).filename(), "libTarvoni_Lohn.so.2.0.0.0");
  auto* const version = Library::Get().Make<C_Version>(kClass_C_Version, kInterface_C_Version);
  std::string text;
  EXPECT_EQ(version->DLL_Version(text), kResultOk);
  EXPECT_EQ(text, "2.0");
  EXPECT_EQ(Library::Get().can_unload(), kResultFalse);
  version->Release();
  EXPECT_EQ(Library::Get().can_unload(), kResultOk);
}

TEST(Library, TellsWhyADatabaseDoesNotOpen) {
  TvnVar_Dll tvnvar;
  EXPECT_EQ(Library::Get().open("/nirgends/lohn.db", tvnvar), kResultFail);
  EXPECT_EQ(tvnvar.dbAdo, nullptr);
  EXPECT_THAT(Library::Get().LastFailure().text, HasSubstr("/nirgends/lohn.db"));
  EXPECT_EQ(Library::Get().LastFailure().interface, "TarvoniOpenDatabase");
}

TEST(Library, OpensAScreenOnTheHostsApplicationAndReturnsWhenItIsClosed) {
  const DemoFile demo;
  TvnVar_Dll tvnvar;
  ASSERT_EQ(Library::Get().open(demo.Path().c_str(), tvnvar), kResultOk);
  EXPECT_EQ(tvnvar.strConString, demo.Path());
  auto* const lohn = Library::Get().Make<_c_Lohn>(kClass_c_Lohn, kInterface_c_Lohn);
  const WindowCloser closer;
  EXPECT_EQ(lohn->MaschineStamm(tvnvar), kResultOk) << Library::Get().LastFailure().text;
  EXPECT_EQ(closer.title, "Maschine-Stammdaten – Kostenarten der Maschinen");
  EXPECT_EQ(tvnvar.dbAdo.use_count(), 1);
  lohn->Release();
}

TEST(Library, FailsWithoutADatabaseAndSaysWhere) {
  auto* const lohn = Library::Get().Make<_c_Lohn>(kClass_c_Lohn, kInterface_c_Lohn);
  EXPECT_EQ(lohn->MaschineStamm({}), kResultFail);
  EXPECT_NE(Library::Get().LastFailure().text, "");
  EXPECT_EQ(Library::Get().LastFailure().screen, "F_MaschineStamm");
  EXPECT_EQ(Library::Get().LastFailure().interface, "_c_Lohn");
  lohn->Release();
}

TEST(Example, OpensAScreenAndEndsWithZero) {
  const DemoFile demo;
  std::string program = "host", database = demo.Path();
  char* arguments[] = {program.data(), database.data(), nullptr};
  const WindowCloser closer;
  EXPECT_EQ(ExampleMain(2, arguments), 0);
  EXPECT_EQ(closer.title, "Maschine-Stammdaten – Kostenarten der Maschinen");
}

TEST(Example, TakesThePositionThatTheUserSets) {
  const DemoFile demo;
  TvnVar_Dll tvnvar;
  ASSERT_EQ(Library::Get().open(demo.Path().c_str(), tvnvar), kResultOk);
  auto* const lohn = Library::Get().Make<_c_Lohn>(kClass_c_Lohn, kInterface_c_Lohn);
  {
    const ButtonPresser user({"Positionen", "Set"});
    EXPECT_EQ(TakePosition(*lohn, tvnvar, 1), 1);
  }
  const ButtonPresser user({"Positionen", "Schließen", "Schließen"});
  EXPECT_EQ(TakePosition(*lohn, tvnvar, 1), 0);
  lohn->Release();
}

TEST(Example, ShowsAFailure) {
  std::string program = "host", database = "/nirgends/lohn.db";
  char* arguments[] = {program.data(), database.data(), nullptr};
  testing::internal::CaptureStderr();
  EXPECT_EQ(ExampleMain(2, arguments), 1);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("/nirgends/lohn.db"));
}

}  // namespace
}  // namespace tarvoni

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
