// The rows of one document: header, receiver's copy, lines, and the counter that they advance.
#pragma once

#include "issuing/document_values.hpp"

namespace tolvex {

// Each step is one statement or a few, in the order that hosts rely on; all throw Error with the driver's
// description. Deliberate: text values go between quotes as they are; a quote in one of them breaks the
// statement.
class DocumentRows
{
public:
    DocumentRows(Session& session, const DocumentValues& document, const Text& vlnFactura)
        : session_(session), document_(document), vlnFactura_(vlnFactura)
    {}

    void store_header();
    // The document's nID, as text.
    Text read_identifier();
    void store_receiver(const Text& identifier);
    void store_lines(const Text& identifier);
    void advance_counter();

private:
    Text amount_in_words();
    void insert_receiver(const Text& identifier);
    void insert_line(const Text& identifier, std::int32_t number);
    Connection& connection() { return shared_connection(session_); }

    Session& session_;
    const DocumentValues& document_;
    const Text& vlnFactura_;
};

} // namespace tolvex
