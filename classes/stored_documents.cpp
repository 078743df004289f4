#include "tolvex/stored_documents.hpp"

#include "classes/call.hpp"
#include "core/errors.hpp"
#include "rebuilding/stored_xml.hpp"
#include "verification/verification.hpp"

namespace tolvex {

namespace {

// What was met on the way is in the report itself, and no last error.
template <class Report>
Report reported(Report report)
{
    forget_error();
    return report;
}

} // namespace

RewrittenXml write_xml(const Text& FolioDocto, std::int16_t Empresa, std::int16_t Sucursal,
                       bool NotadeCredito, const Text& folder)
{
    return reported(
        write_stored_xml(begin_call(), {FolioDocto, Empresa, Sucursal}, NotadeCredito ? u"N" : u"F", folder));
}

VerificationSummary verify_documents(const VerifiedRange& range, const VerificationEvents& events)
{
    return reported(verify_documents(begin_call(), range, events));
}

} // namespace tolvex
