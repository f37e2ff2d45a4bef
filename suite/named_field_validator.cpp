#include "suite/named_field_validator.h"

#include "src/context/services/toolkit.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

// "" for a box without a label.
std::string CaptionOf(const TextBox& box) {
  std::string name = box.Name();
  if (!name.starts_with("txt")) return {};
  name.replace(0, 3, "lbl");
  const Form& form = box.OwnerForm();
  const auto* label = dynamic_cast<const Label*>(form.Find(name));
  if (!label && name.ends_with('N'))
    label = dynamic_cast<const Label*>(form.Find(name.substr(0, name.size() - 1)));
  std::string caption = label ? label->Caption() : std::string();
  std::erase(caption, '&');
  return caption;
}

void ReportMissing(const TvnVar_Dll& context, const TextBox& code) {
  MessageService& messages = CurrentSuite().Messages();
  const std::string caption = CaptionOf(code);
  const std::string field = (caption.empty() ? "" : caption + " ") + "'" + code.Text() + "'";
  CurrentToolkit().MessageBox(
      messages.GetMessage(1427, context) + " " + field + " " + messages.GetMessage(1214, context),
      kBoxWarning, "Tarvoni");
}

void Fill(const Recordset& rows, TextBox* code, TextBox* id_box, const std::string& name_column,
          TextBox* name_box) {
  const FieldList row = rows.Fields();
  const std::string id = TextOf(row[0]);
  if (code) {
    code->SetTag(id);
    if (row.Count() > 1) code->SetText(TextOf(row[1]));
  }
  if (id_box) id_box->SetText(id);
  if (name_box && !name_column.empty()) name_box->SetText(TextOf(row[name_column]));
}

}  // namespace

bool NamedFieldValidator::Validate(const TvnVar_Dll& context, bool report_missing, const SqlText& sql,
                                   TextBox* code, TextBox* id_box, const std::string& name_column,
                                   TextBox* name_box, const std::string&) {
  const Recordset rows = DatabaseOf(context).Open(sql);
  if (!rows.EndOfFile()) {
    Fill(rows, code, id_box, name_column, name_box);
    return true;
  }
  if (report_missing && code) ReportMissing(context, *code);
  for (TextBox* box : {code, id_box, name_box}) {
    if (box) box->Clear();
  }
  return false;
}

Value NamedFieldValidator::ReadColumn(const TvnVar_Dll& context, const SqlText& sql,
                                      const std::string& column) {
  const Recordset rows = DatabaseOf(context).Open(sql);
  return rows.EndOfFile() ? Value(Null{}) : rows.Fields()[column].Value();
}

}  // namespace tarvoni::suite
