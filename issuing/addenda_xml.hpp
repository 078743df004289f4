// The receiver's own XML block (Addenda), laid out by the rows of the addenda control tables.
#pragma once

#include "issuing/document_values.hpp"
#include "platform/xml_document.hpp"

namespace tolvex {

// Adds the Addenda element to the root when the receiver has a layout; staged values win over the layout's
// own. Throws Error when a query fails, a name is no XML name, or the layout's nodes form a cycle.
void add_addenda(Session& session, const DocumentValues& document, XmlElement& comprobante);

} // namespace tolvex
