#include "maintenance/certificates_form.hpp"

#include "core/errors.hpp"

namespace tolvex {

const FormDescription& FrmCatCertificados::description() const { throw not_available(u"Certificados"); }

EditPattern FrmCatCertificados::pattern() const { throw not_available(u"Certificados"); }

} // namespace tolvex
