#include "src/schema/schema_parts.h"

namespace tarvoni::schema {

const std::string_view kMachines = R"sql(
-- Cost types of the machine cost groups ABS, ANS, EIG, OI, STE, UNT, VK (LABEL).
CREATE TABLE MASCHINE_STAMM (
  ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY,
  LABEL NVARCHAR(10),
  KOSTENART_ID INT
)

CREATE INDEX MASCHINE_STAMM_LABEL ON MASCHINE_STAMM (LABEL)

-- Machines; the number is given by the caller, the costs are those booked on the cost object.
CREATE TABLE MASCHINENBUCH (
  NUMMER INT NOT NULL PRIMARY KEY,
  BEZEICHNUNG NVARCHAR(100),
  ANSCHAFF_JAHR SMALLINT,
  NUTZUNGSDAUER DECIMAL(9,2),
  FAHRGEST_NUM NVARCHAR(50),
  POLIZ_KENNZ NVARCHAR(20),
  OBJEKT_ID INT
)
)sql";

}  // namespace tarvoni::schema
