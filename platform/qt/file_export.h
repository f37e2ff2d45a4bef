#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "platform/qt/table_source.h"

namespace tarvoni::qt {

enum class FileKind { kCsv, kXlsx };

// Writes the table to a file. Throws std::runtime_error with a sentence for the user; a file of that name is then as
// it was.
void WriteTableFile(const TableSource& table, FileKind kind, const std::filesystem::path& file);

// Asks for a file, by default one named after the title, and writes it; the user is told what failed.
void ExportTable(QWidget* parent, const TableSource& table, const std::string& title, FileKind kind);

// Runs what writes a file; the user is told what failed.
void RunExport(QWidget* parent, const std::function<void()>& write);

// Asks where to save, by default under a title; adds the suffix, and asks before it replaces a file. Nothing on
// cancel.
std::optional<std::filesystem::path> AskSaveFile(QWidget* parent, const std::string& caption,
                                                 const std::string& title, const std::string& filter,
                                                 const std::string& suffix);

}  // namespace tarvoni::qt
