// What can be done with documents that were issued already, over the shared connection: their XML written
// anew, all of them verified.
#pragma once

#include "tolvex/types.hpp"

#include <functional>
#include <optional>

namespace tolvex {

struct RewrittenXml
{
    Text path;                    // of the file, with backslashes
    bool was_there = false;       // the right file was there and was left as it is
    bool without_addenda = false; // the receiver has an addenda, whose staged values are stored nowhere
};

// Writes the XML of a stored document anew from its rows, in the layout of set_root_layout; of several
// documents with that folio the newest. An empty folder means the one that the document's certificate was
// registered with, or the current one. Throws Error 5, which tells what differs, when the rows do not give
// the stored original string, and writes nothing then; other errors when database or disk fail.
TOLVEX_API RewrittenXml write_xml(const Text& FolioDocto, std::int16_t Empresa, std::int16_t Sucursal,
                                  bool NotadeCredito = false, const Text& folder = u"");

// What a verification goes over: one company or all (0), the days from one to another, both included.
struct VerifiedRange
{
    std::int16_t company = 0;
    std::optional<Date> from = {}, to = {};
    Text folder = {}; // where Facturas is; empty as for write_xml
};

enum class Fault
{
    rows,     // missing, or they do not give the stored original string
    seal,     // not that of the original string under the certificate
    xml,      // missing, or it says something else
    folio,    // a gap, a folio twice, a counter that went astray
    leftover, // a file of an interrupted issue
};

// One thing that is not right. Where it is about no single document, serie and folio say as much as is known.
struct Finding
{
    Fault fault = Fault::rows;
    Text serie, folio, kind; // "F" invoice, "N" credit note
    std::int16_t company = 0, branch = 0;
    Text what, remedy; // in Spanish, for the user
    Text command;      // that repairs it, without its connection: "tolvex xml 15 …"; may be empty
};

struct VerificationEvents
{
    std::function<void(const Finding&)> found;
    std::function<void(std::size_t documents, std::size_t all)> progress;
};

struct VerificationSummary
{
    std::size_t documents = 0;
    std::size_t findings = 0;
    // Right, but issued with other data of the company than today's.
    std::size_t with_former_issuer = 0;
};

// Goes over stored documents: rows, seals, XML files, folios. Changes nothing. Throws Error when the database
// fails.
TOLVEX_API VerificationSummary verify_documents(const VerifiedRange& range, const VerificationEvents& events);

} // namespace tolvex
