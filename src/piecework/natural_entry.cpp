#include "src/piecework/natural_entry.h"

#include <initializer_list>
#include <stdexcept>
#include <utility>

#include "src/common/box_rules.h"
#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"

namespace tarvoni {
namespace {

constexpr const char* kHeightKeys = "-00000000000000000000";
constexpr const char* kHeightShown = "-####################";

// A sign alone or an empty box is no number.
SqlText NumberIfAny(const TextBox& box) {
  return IsNumeric(box.Text(), CurrentLocale()) ? Number(box.Text()) : NumberOrNull("");
}

}  // namespace

NaturalEntry::NaturalEntry(Form& form, const TvnVar_Dll& context, Guard& loading, Shape shape)
    : lblNutzungsart(form, "lblNutzungsart"),
      txtNutzungsart(form, "txtNutzungsart"),
      lblBestandeszieltyp(form, "lblBestandeszieltyp"),
      txtBestandeszieltyp(form, "txtBestandeszieltyp"),
      lblHerkunft(form, "lblHerkunft"),
      txtBundesland(form, "txtBundesland"),
      txtLandesstelle(form, "txtLandesstelle"),
      txtBaum_Herk(form, "txtBaum_Herk"),
      txtLFD_Nummer(form, "txtLFD_Nummer"),
      txtKategorie(form, "txtKategorie"),
      txtHerkunft(form, "txtHerkunft"),
      lblAstungshohe(form, "lblAstungshohe"),
      txtAstungshohe(form, shape.height_box),
      chkZaunbau(form, "chkZaunbau"),
      lblWaldort(form, "lblWaldort"),
      ListWaldort(form, "ListWaldort"),
      btnWaldortEinfugen(form, shape.add_button),
      btnWaldortLoschen(form, shape.remove_button),
      context_(context),
      loading_(loading),
      shape_(std::move(shape)),
      mark_(context, loading, txtNutzungsart[0], &txtNutzungsart[1], MarkRule()),
      stand_type_(context, loading, txtBestandeszieltyp[0], &txtBestandeszieltyp[1], StandTypeRule()),
      state_(context, loading, txtBundesland, nullptr, OriginRule(txtBundesland, "BUNDESLAND", "Bundesland")),
      origin_(context, loading, txtBaum_Herk, nullptr,
              OriginRule(txtBaum_Herk, "BAUM_HERK_GEB", "Baumart+Herkunftsgebiet")),
      category_(context, loading, txtKategorie, nullptr,
                OriginRule(txtKategorie, "HERK_KATEGORIE", "Kategorie")) {
  Connect();
}

// A wrong mark gives way to the one before.
CodeField::Rule NaturalEntry::MarkRule() {
  auto rule = NamedCode(context_, txtNutzungsart[0], lblNutzungsart, "NUTZUNGSART_LEISTUNGSART", "NA_LANG",
                        [this] { return NamedValues{Given(shape_.activity().Text())}; });
  rule.keeps_tag = true;
  return rule;
}

CodeField::Rule NaturalEntry::StandTypeRule() {
  auto rule = NamedCode(context_, txtBestandeszieltyp[0], lblBestandeszieltyp, "BZT", "LONG",
                        [] { return NamedValues{}; });
  if (shape_.stand_types) rule.offered = shape_.stand_types;
  return rule;
}

CodeField::Rule NaturalEntry::OriginRule(const TextBox& box, const std::string& stem,
                                         const std::string& caption) {
  auto rule = NamedCode(context_, box, lblHerkunft, stem, "", [] { return NamedValues{}; });
  rule.caption = [caption] { return caption; };
  return rule;
}

void NaturalEntry::Connect() {
  mark_.Changed = [this] { mark_changed_ = true; };
  Rules(txtNutzungsart[0]).Code(mark_).Left([this] { MarkLeft(); });
  Rules(txtBestandeszieltyp[0]).Code(stand_type_);
  Rules(txtBundesland).Code(state_);
  Rules(txtLandesstelle).Keys("0");
  Rules(txtBaum_Herk).Code(origin_);
  Rules(txtLFD_Nummer).Keys("000");
  Rules(txtKategorie).Code(category_);
  Rules(txtAstungshohe).Number(kHeightKeys, kHeightShown);
  btnWaldortEinfugen.Click = [this] { locations.Pick(context_); };
  btnWaldortLoschen.Click = [this] { locations.RemoveChosen(); };
}

void NaturalEntry::MarkLeft() {
  if (std::exchange(mark_changed_, false) || loading_) ApplyExecutionMarkRules();
}

void NaturalEntry::Propose(const std::string& mark) {
  txtNutzungsart[0].Clear();
  txtNutzungsart[0].SetText(mark);
  const auto hold = loading_.Hold();
  txtNutzungsart[0].LostFocus();
}

void NaturalEntry::Clear() {
  mark_.Clear();
  ApplyExecutionMarkRules();
}

void NaturalEntry::ShowData(const CurrentRow& row) {
  row.ShowCode("ID_T_BUNDESLAND", "BUNDESLANDSHORT", txtBundesland);
  row.Show("LANDESSTELLE", txtLandesstelle);
  row.ShowCode("ID_T_BAUM_HERK_GEB", "BAUM_HERK_GEBSHORT", txtBaum_Herk);
  row.Show("LFDNUMMER", txtLFD_Nummer);
  row.ShowCode("ID_T_HERK_KATEGORIE", "HERK_KATEGORIESHORT", txtKategorie);
  row.Show("HERK", txtHerkunft);
  row.Show("ASTH", txtAstungshohe);
  chkZaunbau.SetChecked(row.Flag("ZAUNBAU"));
}

void NaturalEntry::ApplyExecutionMarkRules() {
  const std::string& mark = txtNutzungsart[0].Text();
  if (mark.empty()) {
    Demand(false, false, false, false);
    locations.Clear();
  } else {
    const Recordset rows = DbOf(context_).Open(natural_sql::Demands(mark, shape_.activity()));
    if (!rows.EndOfFile()) {
      const FieldList flag = rows.Fields();
      Demand(ToFlag(flag["BZT_NV_KLR"].Value()), ToFlag(flag["HERK_NV_KLR"].Value()),
             ToFlag(flag["AST_NV_KLR"].Value()), ToFlag(flag["ZAUN_NV_KLR"].Value()));
    }
  }
  for (Button* button : {&btnWaldortEinfugen, &btnWaldortLoschen}) button->SetEnabled(HasMark());
}

// The origin goes with its ids. The target type is only hidden: its Tag, and with it the id of the row, stays.
void NaturalEntry::Demand(bool stand_type, bool origin, bool height, bool fence) {
  const auto open = [](bool demanded, std::initializer_list<TextBox*> boxes) {
    for (TextBox* box : boxes) {
      if (!demanded) box->SetText("");
      SetTextBoxLocked(!demanded, *box);
    }
  };
  open(stand_type, {&txtBestandeszieltyp[0]});
  if (!stand_type) txtBestandeszieltyp[1].SetText("");
  open(origin,
       {&txtBundesland, &txtLandesstelle, &txtBaum_Herk, &txtLFD_Nummer, &txtKategorie, &txtHerkunft});
  if (!origin) {
    for (CodeField* code : {&state_, &origin_, &category_}) code->Clear();
  }
  open(height, {&txtAstungshohe});
  if (!fence) chkZaunbau.SetChecked(false);
  chkZaunbau.SetEnabled(fence);
}

void NaturalEntry::RequireStill(std::int32_t id, Recordset owned) {
  bool still = id == 0 && owned.EndOfFile();
  for (; !owned.EndOfFile(); owned.MoveNext()) still = still || ToLong(owned.Fields()[0].Value()) == id;
  if (still) return;
  throw std::runtime_error(
      "Der Naturalvollzug wurde inzwischen an einem anderen Arbeitsplatz geändert. Bitte brechen Sie ab und "
      "beginnen Sie von vorn.");
}

natural_sql::Values NaturalEntry::Values() const {
  return {.mark = IdOrNull(txtNutzungsart[0].Tag()),
          .stand_type = IdOrNull(txtBestandeszieltyp[0].Tag()),
          .state = IdOrNull(txtBundesland.Tag()),
          .office = NumberOrNull(txtLandesstelle.Text()),
          .origin = IdOrNull(txtBaum_Herk.Tag()),
          .number = NumberOrNull(txtLFD_Nummer.Text()),
          .category = IdOrNull(txtKategorie.Tag()),
          .note = TextOrNull(txtHerkunft.Text()),
          .height = NumberIfAny(txtAstungshohe),
          .fence = Flag(chkZaunbau.Checked())};
}

}  // namespace tarvoni
