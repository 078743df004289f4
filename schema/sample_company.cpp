#include "schema/sample_company.hpp"

#include "core/text.hpp"
#include "schema/schema.hpp"
#include "schema/scripts.hpp"

namespace tolvex {

bool has_another_company(Connection& connection, const Text& rfc)
{
    const Recordset rows = connection.query(u"Select cRfc From FE_EMPRESAS(nolock) Where nEmpresa=1");
    return !rows.eof() && trim(rows[u"cRfc"].text()) != rfc;
}

void store_sample_company(Connection& connection, const SampleCompany& company)
{
    Text script = to_text(schema::sample_company);
    for (const auto& [mark, value] : {std::pair{u"{RFC}", company.rfc},
                                      {u"{CARPETA}", company.folder},
                                      {u"{NUMERO}", company.certificate_number},
                                      {u"{SERIAL}", company.certificate_serial},
                                      {u"{CERTIFICADO}", company.certificate_body},
                                      {u"{DESDE}", company.valid_from},
                                      {u"{HASTA}", company.valid_until}})
        script = replace_all(script, mark, value);
    for (const Text& batch : batches(script)) connection.execute(batch);
}

} // namespace tolvex
