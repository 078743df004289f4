// What can be done with documents already stored: count, read, cancel, delete; and ask a range for its next
// folio.
#pragma once

#include "session/session.hpp"

namespace tolvex {

struct DocumentKey
{
    Text folio; // as it was issued
    std::int16_t company = 0, branch = 0;
};

// How many documents have that key; of the kind "F" or "N", or of both when it is empty. Throws Error.
std::int32_t count_documents(Session& session, const DocumentKey& key, const Text& kind = u"");

// What is stored of a document besides its amounts.
struct StoredDocument
{
    Text original_string, sello; // one character per byte
    Text amount_in_words;
};
// The newest document of that kind ("F", "N") with that key. Throws Error when there is none.
StoredDocument read_document(Session& session, const DocumentKey& key, const Text& kind);

// True when the statement ran, whether or not a document has that folio. NotadeCredito chooses the kind.
bool cancel_document(Session& session, const DocumentKey& key, Date FechaCancelacion, bool NotadeCredito);
// Deletes the documents with that folio, whatever their kind, receiver and lines first.
bool delete_document(Session& session, const DocumentKey& key);
// Next folio of the range numbered Caja into FolioFactura; "0" and false when it is used up or missing. Reads
// the counter without advancing it. Throws Error when the database fails.
bool next_folio_of_range(Session& session, const Text& Caja, Text& FolioFactura);

} // namespace tolvex
