#include "host/output.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <vector>

#include "host/display_width.h"

namespace tarvoni::host {
namespace {

using Row = std::vector<Value>;

std::vector<Row> AllRows(const Recordset& rows) {
  return rows.RecordCount() == 0 ? std::vector<Row>() : rows.Clone().GetRows();
}

bool IsNumber(FieldType type) {
  switch (type) {
    case FieldType::kBoolean:
    case FieldType::kSmallInt:
    case FieldType::kInteger:
    case FieldType::kBigInt:
    case FieldType::kUnsignedTinyInt:
    case FieldType::kSingle:
    case FieldType::kDouble:
    case FieldType::kCurrency:
    case FieldType::kNumeric:
      return true;
    default:
      return false;
  }
}

// A cell of a table stays on its line.
std::string OneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    if (c == '\n')
      line += "\\n";
    else if (c == '\t')
      line += "\\t";
    else if (c != '\r')
      line += c;
  }
  return line;
}

std::string CsvText(const std::string& text) {
  if (!text.empty() && text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return quoted + '"';
}

std::string CsvCell(const Value& value) {
  if (IsNull(value)) return {};
  if (const auto* text = std::get_if<std::string>(&value)) return CsvText(*text);
  return ToDisplayText(value);
}

std::string JsonText(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\')
      quoted += std::string{'\\', c};
    else if (c == '\n')
      quoted += "\\n";
    else if (c == '\t')
      quoted += "\\t";
    else if (static_cast<unsigned char>(c) < 0x20)
      quoted += fmt::format("\\u{:04x}", static_cast<unsigned char>(c));
    else
      quoted += c;
  }
  return quoted + '"';
}

struct JsonCell {
  std::string operator()(Null) const { return "null"; }
  std::string operator()(bool flag) const { return flag ? "true" : "false"; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return fmt::format("{}", number); }
  std::string operator()(const Decimal& number) const { return number.ToShortString(); }
  std::string operator()(const std::string& text) const { return JsonText(text); }
  std::string operator()(const DateTime& date) const { return JsonText(date.ToIso()); }
};

// The names of the columns, each once.
std::vector<std::string> DistinctNames(const std::vector<Column>& columns) {
  std::vector<std::string> names;
  for (const Column& column : columns) {
    const std::string base = column.name.empty() ? "Spalte" : column.name;
    std::string name = base;
    for (int number = 2; std::find(names.begin(), names.end(), name) != names.end(); ++number)
      name = fmt::format("{}_{}", base, number);
    names.push_back(name);
  }
  return names;
}

struct TextColumn {
  std::vector<std::string> cells;  // the name first
  int width = 0;
  bool number = false;
};

std::vector<TextColumn> TextColumns(const Recordset& rows) {
  std::vector<TextColumn> texts;
  const auto cells = AllRows(rows);
  for (std::size_t i = 0; i < rows.Columns().size(); ++i) {
    TextColumn text{{rows.Columns()[i].name}, 0, IsNumber(rows.Columns()[i].type)};
    for (const Row& row : cells) text.cells.push_back(OneLine(ToDisplayText(row[i])));
    for (const auto& cell : text.cells) text.width = std::max(text.width, DisplayWidth(cell));
    texts.push_back(std::move(text));
  }
  return texts;
}

std::string TableLine(const std::vector<TextColumn>& columns, std::size_t row) {
  std::string line;
  for (const TextColumn& column : columns) {
    if (&column != &columns.front()) line += " | ";
    line += Pad(column.cells[row], column.width, column.number);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

}  // namespace

std::string CountOfRows(long long count) {
  return count == 1 ? "1 Zeile" : fmt::format("{} Zeilen", count);
}

std::string FormatTable(const Recordset& rows) {
  const auto columns = TextColumns(rows);
  std::string table = TableLine(columns, 0);
  for (const TextColumn& column : columns) {
    if (&column != &columns.front()) table += "-+-";
    table.append(static_cast<std::size_t>(column.width), '-');
  }
  table += '\n';
  for (std::size_t row = 1; row <= rows.RecordCount(); ++row) table += TableLine(columns, row);
  return table + '(' + CountOfRows(static_cast<long long>(rows.RecordCount())) + ")\n";
}

std::string FormatCsv(const Recordset& rows) {
  std::string csv;
  const auto add_line = [&csv](const auto& cells, const auto& format) {
    for (const auto& cell : cells) csv += (&cell == &cells.front() ? "" : ",") + format(cell);
    csv += '\n';
  };
  add_line(rows.Columns(), [](const Column& column) { return CsvText(column.name); });
  for (const Row& row : AllRows(rows)) add_line(row, CsvCell);
  return csv;
}

std::string FormatJson(const Recordset& rows) {
  const auto names = DistinctNames(rows.Columns());
  std::string json = "[";
  for (const Row& row : AllRows(rows)) {
    json += json.size() == 1 ? "\n{" : ",\n{";
    for (std::size_t i = 0; i < row.size(); ++i)
      json += (i == 0 ? "" : ", ") + JsonText(names[i]) + ": " + std::visit(JsonCell{}, row[i]);
    json += '}';
  }
  return json + "\n]\n";
}

std::string FormatRows(const Recordset& rows, OutputFormat format) {
  switch (format) {
    case OutputFormat::kCsv:
      return FormatCsv(rows);
    case OutputFormat::kJson:
      return FormatJson(rows);
    case OutputFormat::kTable:
      break;
  }
  return FormatTable(rows);
}

}  // namespace tarvoni::host
