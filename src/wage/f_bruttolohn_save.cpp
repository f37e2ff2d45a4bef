#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "src/wage/f_bruttolohn.h"
#include "src/wage/f_bruttolohn_sql.h"

// Entering, saving, deleting and printing lines.
namespace tarvoni {

namespace sql = bruttolohn_sql;

void F_Bruttolohn::ConnectButtons() {
  btnSpeichern[0].Click = [this] { entry_.Save(); };
  btnSpeichern[1].Click = [this] {
    if (entry_.Save() && btnNeu.Enabled()) btnNeu.Press();
  };
  btnLoschen.Click = [this] {
    entry_.Delete([this](std::int32_t id) {
      summary_is_old_ = true;
      return sql::DeleteLine(id);
    });
  };
  btnAusdruck.Click = [this] {
    CurrentSuite().Reports().PrintGrid(Context(), "BRUTTO", std::to_string(curHeaderId), "", true);
  };
  CloseBy(btnClose);
}

RowEntry::Steps F_Bruttolohn::EntrySteps() {
  return {.set_view = [this](bool view) { SetViewState(view); },
          .fill = [this]() -> Control& { return FillNew(); },
          .first = [this]() -> Control& {
            ShowAmount();  // the list's amount is without the percentage
            return txtTag;
          },
          .save = [this] { return Save(); },
          .reload = [this] { Reload(); }};
}

// Month, paying month and cost assignment stay as they are, for the next line of the same work.
Control& F_Bruttolohn::FillNew() {
  SetSubject(Worker() + ", neue Zeile");
  priced_day_.reset();
  txtFWJ.SetText(curFwj);
  txtVerlohnungs[3].SetText(curFwj);
  txtTag.LostFocus();
  wage_type_.Clear();
  txtWert.SetText("");
  ClearRate();
  txtProzentsatz.SetText("");
  txtGesamtbetrag.SetText("");
  return txtTag;
}

// A year that is missing, or is none, makes its month incomplete.
bool F_Bruttolohn::TestEntry() {
  return Require(!txtFWJ.Empty(), lblFWJ, txtFWJ) &&
         Require(!txtVerlohnungs[1].Empty(), frmVerlohnungs, txtVerlohnungs[1]) &&
         Require(pay_month_.FirstDay().has_value(), frmVerlohnungs, txtVerlohnungs[3]) &&
         Require(!txtTag.Empty(), lblTag, txtTag) &&
         Require(!txtLohnart[0].Empty(), lblLohnart, txtLohnart[0]) &&
         Require(!txtAuszahlungsmonat[1].Empty(), lblAuszahlungsmonat, txtAuszahlungsmonat[1]) &&
         Require(paying_month_.FirstDay().has_value(), lblAuszahlungsmonat, txtAuszahlungsmonat[3]) &&
         Require(!txtWert.Empty(), lblWert, txtWert);
}

std::optional<std::int32_t> F_Bruttolohn::Save() {
  if (!TestEntry()) return std::nullopt;
  const std::int32_t id = entry_.IsNew() ? ReadNumber(sql::InsertLine(curHeaderId)) : curLineId;
  summary_is_old_ = true;
  if (!entry_.IsNew()) {
    WriteLine(id);
    return id;
  }
  OrUndo(
      [&] {
        Execute(sql::DeleteLeftover(id));
        WriteLine(id);
      },
      sql::DeleteLine(id));
  return id;
}

void F_Bruttolohn::WriteLine(std::int32_t id) const {
  ExecuteOnRow(sql::UpdateForestYear(curHeaderId, txtFWJ.Text()));
  ExecuteOnRow(sql::UpdateLine(id,
                               {.day = txtTag.Text(),
                                .wage_type = txtLohnart[0].Tag(),
                                .paying_month = paying_month_.FirstDay(),
                                .quantity = txtWert.Text(),
                                .pay_month = pay_month_.FirstDay(),
                                .percentage = txtProzentsatz.Text()},
                               Context().strSqlDateFormat));
  Execute(sql::InsertMissingPair(id));
  Execute(sql::UpdatePair(id, {.product_order = txtProduktauftragNr[0].Tag(),
                               .cost_centre = txtKostenstelle[0].Tag(),
                               .work_type = txtLeistungsart[0].Tag(),
                               .method = txtVerfahren[0].Tag(),
                               .object = txtObjekt[0].Tag()}));
}

void F_Bruttolohn::WriteListToFile() const {
  constexpr const char* kLine = "\r\n";
  std::string text = std::string(AdodcBruttoLohn.RecordSource().Text()) + kLine + kLine;
  Recordset rows = AdodcBruttoLohn.Recordset().Clone();
  for (const Column& column : rows.Columns()) {
    text += column.name + ";";
    if (column.name == "BETRAG") break;
  }
  text += kLine;
  for (const auto& cells : rows.GetRows()) {
    for (std::size_t i = 0; i < cells.size(); ++i) text += (i > 0 ? ";" : "") + ToText(cells[i]);
    text += kLine;
  }
  const std::filesystem::path file = std::filesystem::path(Context().strWorkDirectory) / "BruttoLohn.sql";
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << text).flush())
    throw std::runtime_error("Die Datei " + file.string() + " lässt sich nicht schreiben.");
  AppMsgBox(file.string());
}

}  // namespace tarvoni
