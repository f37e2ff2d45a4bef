#include "src/orders/f_new_rechnung_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::new_rechnung_sql {

SqlText Clients() {
  return "SELECT NUMMER,KURZBEZEICHNUNG AS SHORT FROM PERSONAL WHERE MANDANTEN = 1";
}

SqlText FindClient(std::string_view number) {
  return Compose("SELECT ID_PERSONAL,NUMMER FROM PERSONAL WHERE MANDANTEN = 1 AND NUMMER = 0{}",
                 Digits(number));
}

SqlText StandardCategory() {
  return "SELECT NUMMER FROM T_KATEGORIE WHERE ISNULL(DISABLE,0) = 0 AND STANDART = 1";
}

}  // namespace tarvoni::new_rechnung_sql
