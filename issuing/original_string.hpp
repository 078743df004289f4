// The original string (cadena original): the text that the seal signs.
#pragma once

#include "issuing/document_values.hpp"

namespace tolvex {

// Header piece, from the first "|" to the issuer's postal code; the document's date and amounts are read with
// it. An error in a staged value gives the empty text and leaves what was read until then.
Text header_piece(Session& session, DocumentValues& document);

// The whole string: header, receiver, concepts and taxes. Throws Error 13 when a staged amount is no number.
Text original_string(Session& session, DocumentValues& document);

} // namespace tolvex
