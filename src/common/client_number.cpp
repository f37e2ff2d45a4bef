#include "src/common/client_number.h"

#include "src/context/data/statement.h"

namespace tarvoni {

SqlText NumberOfClient(std::int32_t client) {
  return Compose("SELECT NUMMER FROM PERSONAL WHERE ID_PERSONAL = {}", Id(client));
}

}  // namespace tarvoni
