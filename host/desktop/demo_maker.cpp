#include "host/desktop/demo_maker.h"

#include <QProgressDialog>
#include <stdexcept>

#include "host/demo_database.h"
#include "host/desktop/new_file.h"
#include "host/desktop/report.h"
#include "platform/qt/public/text.h"

namespace tarvoni::host {
namespace {

constexpr int kSteps = 1000;

struct Cancelled {};

}  // namespace

QString MakeDemoFile(QWidget* parent) {
  const QString file = ChooseNewFile(parent, "Musterbetrieb anlegen", "musterbetrieb");
  if (file.isEmpty()) return {};
  QProgressDialog progress("Der Musterbetrieb wird angelegt …", "&Abbrechen", 0, kSteps, parent);
  progress.setWindowTitle("Musterbetrieb");
  progress.setWindowModality(Qt::WindowModal);
  bool made = false;
  try {
    made = Reported(parent, [&] {
      const auto show = [&progress](double done) {
        progress.setValue(static_cast<int>(done * kSteps));
        if (progress.wasCanceled()) throw Cancelled();
      };
      MakeDemoDatabase(qt::FromQt(file), {.scale = 1, .progress = show});
    });
  } catch (const Cancelled&) {
    return {};
  }
  return made ? file : QString();
}

}  // namespace tarvoni::host
