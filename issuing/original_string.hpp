// The original string (cadena original): the text that the seal signs.
#pragma once

#include "issuing/document_values.hpp"

namespace tolvex {

// One value of the string; each stands after a "|". Its name is what a person calls it.
struct OriginalPiece
{
    enum class Of
    {
        header,
        issuer,
        receiver,
        line,
        taxes
    };
    Of of;
    TextView name;
    Text value;
    std::int32_t line = 0; // of the document, from 1; 0 outside the lines
};
using OriginalPieces = std::vector<OriginalPiece>;

// Header piece, from the first "|" to the issuer's postal code; the document's date and amounts are read with
// it. An error in a staged value gives the empty text and leaves what was read until then.
Text header_piece(Session& session, DocumentValues& document);

// Every value: header, issuer, receiver, lines and taxes. Throws Error 13 when a staged amount is no number.
OriginalPieces original_pieces(Session& session, DocumentValues& document);

// The whole string. Throws as original_pieces does.
Text original_string(Session& session, DocumentValues& document);

} // namespace tolvex
