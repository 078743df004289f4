// The monthly report of used folios that an issuer hands to the tax authority: one line for every document of
// a company and month, cancelled ones included.
#pragma once

#include "session/session.hpp"

namespace tolvex {

struct ReportedMonth
{
    std::int16_t company;
    Text year, month; // "2012", "03"
};

// Tax identity of a company, for the report's name; Null when there is none of that number.
Value company_rfc(Session& session, const Text& company);

// Where the report is written: "C:\R\1AAA010101AAA032012.TXT".
Text plCreaNombreArchivo(const Text& folder, const Text& rfc, const Text& month, const Text& year);

Text report_query(const ReportedMonth& month);

// The line of the query's current row, with its line end.
Text report_line(const Recordset& row);

// Writes the report in Windows code page 1252; false, and no file, when there is no document. A character
// that the code page lacks is Error 5, which names it and its document, and an older file stays. After any
// other error the file is there as far as it was written. Throws Error with the driver's description, 57 and
// 75.
bool write_monthly_report(Connection& connection, const ReportedMonth& month, const Text& path);

} // namespace tolvex
