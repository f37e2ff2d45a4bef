#include "src/schema/schema_parts.h"

namespace tarvoni::schema {

const std::string_view kFileIndexes = R"sql(
-- The tariff's row for a log: the marks are compared as ISNULL(mark,'')
CREATE INDEX TARIFTABELLE_MARKS ON TARIFTABELLE (HS_GRUPPE, HA_GRUPPE, ISNULL(RINDENZUST,''), ISNULL(RUECKEZUST,''),
  ISNULL(EST_MERKMAL,''), DM_VON, DM_BIS)
)sql";

}  // namespace tarvoni::schema
