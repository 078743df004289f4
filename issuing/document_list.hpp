// Stored documents as a list tells them: folio, day, receiver, amounts, whether they are cancelled.
#pragma once

#include "session/session.hpp"

#include <optional>

namespace tolvex {

// Which of them. What is 0, empty or not there leaves nothing out.
struct DocumentFilter
{
    std::int16_t company = 0, branch = 0;
    std::optional<Date> from = {}, to = {}; // days, both included
    Text serie = {}, folio = {};
    Text status = {};   // "A" in force, "C" cancelled
    Text receiver = {}; // a part of RFC or name, whatever its case and accents
};

// Texts without blanks at their ends; Null is the empty text. Amounts have two decimals.
struct ListedDocument
{
    Text company, branch;
    Text kind; // "F" invoice, "N" credit note
    Text serie, folio;
    Text date; // "yyyy-mm-dd hh:mm:ss"
    Text rfc, name;
    Text subtotal, tax, total, currency;
    Text status, cancelled_on; // "yyyy-mm-dd"
};

// In the order in which they were issued, as many at a time as take little memory. While it lives, its result
// set is open. All throw Error when the database fails.
class DocumentList
{
public:
    DocumentList(Session& session, const DocumentFilter& filter);

    // The next ones; none at the end.
    std::vector<ListedDocument> next();

private:
    bool is_for(const ListedDocument& document) const;

    const Text receiver_; // simplified
    Recordset rows_;
};

} // namespace tolvex
