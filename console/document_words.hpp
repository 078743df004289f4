// What stored documents are called.
#pragma once

#include "issuing/document_list.hpp"

namespace tolvex::console {

inline Text kind_in_words(const ListedDocument& document)
{
    return document.kind == u"N" ? u"nota de crédito" : u"factura";
}

inline Text status_in_words(const ListedDocument& document)
{
    if (document.status == u"A") return u"vigente";
    return document.status == u"C" ? u"cancelada" : document.status;
}

} // namespace tolvex::console
