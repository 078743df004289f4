#include "verification/seal_check.hpp"

#include "core/base64.hpp"
#include "core/code_pages.hpp"
#include "core/dates.hpp"
#include "core/errors.hpp"
#include "issuing/seal.hpp"

namespace tolvex {

Text seal_fault(const StoredIssue& issue)
{
    const Session& staged = issue.staged;
    if (staged.gFechaHoraDocto.empty())
        return {}; // without a date its digest is not known; the rows tell that
    if (issue.sello.empty()) return u"se guardó sin sello";
    const auto signature = from_base64(issue.sello);
    if (!signature) return u"su sello no es base64";
    const Certificate* certificate = issue.issuer->certificate.get();
    if (!certificate)
        return u"el certificado «" + staged.gSerieCertificado + u"» de FE_CERTIFICADOS no está o no se lee";
    return trapping(Text(u"su sello no se pudo revisar"), [&] {
        const Digest digest = digest_for(to_date(staged.gFechaHoraDocto));
        const std::string original = bytes_of_text(issue.original_string);
        if (certificate->verifies(digest, original, *signature)) return Text();
        return u"su sello no es el de la cadena original guardada con el certificado «" +
               staged.gSerieCertificado + u"»";
    });
}

} // namespace tolvex
