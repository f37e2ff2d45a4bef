#include "platform/qt/file_export.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QSaveFile>
#include <QStandardPaths>
#include <stdexcept>

#include "platform/qt/dialogs/message_dialog.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/public/text.h"
#include "platform/qt/table_text.h"
#include "platform/qt/xlsx_file.h"
#include "src/context/services/environment.h"
#include "src/context/services/toolkit.h"

namespace tarvoni::qt {
namespace {

struct Kind {
  const char* caption;
  const char* filter;
  const char* suffix;
};

constexpr Kind KindOf(FileKind kind) {
  if (kind == FileKind::kCsv) return {"Als CSV-Datei speichern", "CSV-Dateien (*.csv)", "csv"};
  return {"Als Excel-Datei speichern", "Excel-Dateien (*.xlsx)", "xlsx"};
}

void WriteCsv(const TableSource& table, const std::filesystem::path& file) {
  const std::string text = CsvText(table);
  QSaveFile saved(ToQt(file.string()));
  const bool written =
      saved.open(QIODevice::WriteOnly) &&
      saved.write(text.data(), static_cast<qint64>(text.size())) == static_cast<qint64>(text.size()) &&
      saved.commit();
  if (!written) {
    throw std::runtime_error("Die CSV-Datei lässt sich nicht schreiben: " + FromQt(saved.errorString()));
  }
}

// A title as the name of a file.
QString FileName(const std::string& title, const std::string& suffix) {
  QString name = ToQt(title).simplified();
  for (QChar& c : name) {
    if (QString("/\\:*?\"<>|").contains(c)) c = '_';
  }
  return (name.isEmpty() ? QString("Tabelle") : name) + '.' + ToQt(suffix);
}

bool MayReplace(QWidget* parent, const QString& file) {
  const std::string name = FromQt(QFileInfo(file).fileName());
  return ShowMessageBox(parent, "Die Datei " + name + " gibt es schon. Soll sie ersetzt werden?",
                        kBoxYesNo | kBoxQuestion | kBoxSecondIsDefault, "Speichern") == kAnswerYes;
}

}  // namespace

void WriteTableFile(const TableSource& table, FileKind kind, const std::filesystem::path& file) {
  kind == FileKind::kCsv ? WriteCsv(table, file) : WriteXlsx(table, file);
}

std::optional<std::filesystem::path> AskSaveFile(QWidget* parent, const std::string& caption,
                                                 const std::string& title, const std::string& filter,
                                                 const std::string& suffix) {
  Modal dialog(new QFileDialog(parent, ToQt(caption),
                               QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                               ToQt(filter)));
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(ToQt(suffix));
  // The columns of its details, like its question, would be in English where Qt's translations are missing.
  dialog->setViewMode(QFileDialog::List);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setLabelText(QFileDialog::LookIn, "Suchen in:");
  dialog->setLabelText(QFileDialog::FileName, "&Dateiname:");
  dialog->setLabelText(QFileDialog::FileType, "Dateityp:");
  dialog->setLabelText(QFileDialog::Accept, "&Speichern");
  dialog->setLabelText(QFileDialog::Reject, "Abbrechen");
  dialog->selectFile(FileName(title, suffix));
  while (dialog.Run()) {
    const QString file = dialog->selectedFiles().value(0);
    if (!QFileInfo::exists(file) || MayReplace(parent, file)) return FromQt(file);
  }
  return std::nullopt;
}

void ExportTable(QWidget* parent, const TableSource& table, const std::string& title, FileKind kind) {
  const Kind shown = KindOf(kind);
  const auto file = AskSaveFile(parent, shown.caption, title, shown.filter, shown.suffix);
  if (!file) return;
  RunExport(parent, [&] {
    WriteTableFile(table, kind, *file);
    const int rows = table.RowCount();
    CurrentToolkit().Tell(std::to_string(rows) + (rows == 1 ? " Zeile" : " Zeilen") + " in „" +
                          file->string() + "“ gespeichert.");
  });
}

void RunExport(QWidget* parent, const std::function<void()>& write) {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  std::string failure;
  try {
    write();
  } catch (const std::exception& error) {
    failure = error.what();
  }
  QGuiApplication::restoreOverrideCursor();
  if (!failure.empty()) ShowMessageBox(parent, failure, kBoxOk | kBoxWarning, "Speichern");
}

}  // namespace tarvoni::qt
