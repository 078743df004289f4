// The company that the demonstration issues documents for.
#pragma once

#include "database/connection.hpp"

namespace tolvex {

struct SampleCompany
{
    Text rfc;
    Text folder; // of certificate, key and seal
    Text certificate_number, certificate_serial, certificate_body;
    Text valid_from, valid_until; // yyyy-mm-dd
};

// Whether company 1 of the database is another one than the sample.
bool has_another_company(Connection& connection, const Text& rfc);

// Writes it as company 1, with branch 1, certificate 1 and folio ranges 1 and 2. Throws Error.
void store_sample_company(Connection& connection, const SampleCompany& company);

} // namespace tolvex
