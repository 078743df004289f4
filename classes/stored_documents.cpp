#include "tolvex/stored_documents.hpp"

#include "rebuilding/stored_xml.hpp"
#include "verification/verification.hpp"

namespace tolvex {

RewrittenXml write_xml(const Text& FolioDocto, std::int16_t Empresa, std::int16_t Sucursal,
                       bool NotadeCredito, const Text& folder)
{
    return write_stored_xml(session(), {FolioDocto, Empresa, Sucursal}, NotadeCredito ? u"N" : u"F", folder);
}

VerificationSummary verify_documents(const VerifiedRange& range, const VerificationEvents& events)
{
    return verify_documents(session(), range, events);
}

} // namespace tolvex
