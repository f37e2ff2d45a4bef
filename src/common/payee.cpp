#include "src/common/payee.h"

#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"

namespace tarvoni {
namespace {

SqlText OfPerson(const SqlText& column, std::int32_t id) {
  return Compose("SELECT {} FROM PERSONAL WHERE ID_PERSONAL = {}", column, Id(id));
}

}  // namespace

Payee::Payee(const TvnVar_Dll& context, TextBox& name, TextBox* number)
    : context_(context), name_(name), number_(number) {}

void Payee::Show(std::int32_t id) {
  id_ = id;
  const auto read = [&](const SqlText& column) {
    return id == 0 ? std::string() : ReadText(DbOf(context_), OfPerson(column, id));
  };
  name_.SetText(read("KURZBEZEICHNUNG"));
  if (number_) number_->SetText(read("NUMMER"));
}

bool Payee::Pick() {
  bool chosen = false;
  const std::int32_t standard_client = GetOptionNumber("STANDARDMANDANTEN", DbOf(context_));
  const std::int32_t id = CurrentSuite().Persons().PickPayee(
      context_, -1, "2PLIEF", -1, chosen, "", "", "", "", standard_client, id_, context_.lngWaldortScope);
  if (chosen) Show(id);
  return chosen;
}

}  // namespace tarvoni
