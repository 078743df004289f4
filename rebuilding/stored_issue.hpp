// Issued documents as their rows hold them, staged anew as a host staged them.
#pragma once

#include "issuing/cfdi_document.hpp"
#include "issuing/stored_documents.hpp"
#include "rebuilding/issuers.hpp"

namespace tolvex {

struct StoredIssue
{
    std::int64_t nID = 0;
    DocumentKey key;
    Text kind;  // "F", "N"
    Text serie; // trimmed
    double folio_number = 0;
    Text original_string, sello; // one character per byte
    const Issuer* issuer = nullptr;
    Session staged;                   // issuer, receiver, header and lines
    std::vector<Concepto> conceptos;  // the lines, as the XML shows them
    std::int32_t receivers = 0;       // rows in FE_ClienteFactura
    std::vector<Text> faults;         // what the rows lack to give a document
    std::vector<Text> contradictions; // between the copies that they hold
};

// Which documents: of one company or of all (0), of the days from one to another, both included.
struct StoredIssueFilter
{
    std::int16_t company = 0;
    std::optional<Date> from, to;
};

// Reads them by ascending nID, as many at a time as take little memory. All throw Error when the database
// fails.
class StoredIssues
{
public:
    StoredIssues(Session& session, Issuers& issuers, const StoredIssueFilter& filter);

    std::size_t count();
    // The next ones; none at the end.
    std::vector<StoredIssue> next();

private:
    Session& session_;
    Issuers& issuers_;
    const Text condition_;
    std::int64_t last_ = 0;
};

// The newest document of that kind with that key. Throws Error 5 when there is none.
StoredIssue read_stored_issue(Session& session, Issuers& issuers, const DocumentKey& key, const Text& kind);

} // namespace tolvex
