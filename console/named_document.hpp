// The document that a command is about.
#pragma once

#include "console/command.hpp"
#include "core/numbers.hpp"
#include "issuing/stored_documents.hpp"

namespace tolvex::console {

struct NamedDocument
{
    std::string folio;
    std::int16_t company = 0, branch = 0;

    void declare(Options& options)
    {
        options.key("FOLIO", folio, "Folio del documento, como se emitió");
        options.required("--empresa", company, "Número de la empresa");
        options.required("--sucursal", branch, "Número de la sucursal");
    }

    DocumentKey key() const { return {to_text(folio), company, branch}; }

    // "15 de la empresa 1, sucursal 1"
    Text described() const
    {
        return to_text(folio) + u" de la empresa " + decimal(company) + u", sucursal " + decimal(branch);
    }
};

} // namespace tolvex::console
