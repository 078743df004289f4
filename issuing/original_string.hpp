// The original string (cadena original): the text that the seal signs.
#pragma once

#include "issuing/document_values.hpp"

namespace tolvex {

// Fills date, payment condition, approval number and the receiver's values from the staged document.
void prepare_document_values(const Session& session, DocumentValues& document);
void copy_issuer_address(const Session& session, DocumentValues& document);

// Header piece, from the first "|" to the issuer's postal code. Also sets the document's date and its
// amounts. An error in a staged value gives the empty text and leaves what was set until then.
Text header_piece(Session& session, DocumentValues& document, bool EsNotaCredito);

// The whole string: header, receiver, concepts and taxes. Throws Error 13 when a staged amount is no number.
Text original_string(Session& session, DocumentValues& document);

} // namespace tolvex
