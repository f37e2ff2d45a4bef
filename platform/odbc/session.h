#pragma once

#include <string_view>

namespace tarvoni::odbc {

// What a T-SQL server is told on connecting, so that every login and every database sees the statements
// alike. ANSI_WARNINGS makes a division by zero and a cut text errors; ARITHABORT and XACT_ABORT stay off so
// that the batch goes on after them. Dates are read as mdy because that is what the suite's own options
// expect.
inline constexpr std::string_view kSessionBatch = R"(SET LANGUAGE us_english
SET DATEFORMAT mdy
SET ANSI_NULLS ON
SET ANSI_NULL_DFLT_ON ON
SET ANSI_PADDING ON
SET ANSI_WARNINGS ON
SET CONCAT_NULL_YIELDS_NULL ON
SET QUOTED_IDENTIFIER ON
SET ARITHABORT OFF
SET NUMERIC_ROUNDABORT OFF
SET XACT_ABORT OFF
SET IMPLICIT_TRANSACTIONS OFF
SET NOCOUNT OFF
SET TEXTSIZE 2147483647)";

}  // namespace tarvoni::odbc
