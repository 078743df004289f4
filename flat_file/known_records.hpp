// What a flat file's documents need of the database: whether it is there. Each is asked once.
#pragma once

#include "session/session.hpp"

#include <map>
#include <set>

namespace tolvex {

class KnownRecords
{
public:
    // Looks over the session's connection; the session itself stays as it is.
    explicit KnownRecords(const Session& session);

    // What lacks of a company, its branch or the branch's certificate; empty when all is there.
    const Text& fault_of_issuer(std::int16_t nEmpresa, std::int16_t nSucursal);

    struct FolioRange
    {
        std::int16_t company = 0; // 0 when there is no such range
        Text kind;
    };
    // Throws Error.
    const FolioRange& folio_range(std::int32_t number);

    // Whether the receiver's addenda has such a node; of lines or of the header. Throws Error.
    bool has_node(const Text& rfc, bool of_lines, std::int16_t nRama, std::int16_t nPadre);

private:
    using Nodes = std::set<std::pair<std::int16_t, std::int16_t>>;
    const Nodes& nodes(const Text& rfc, bool of_lines);

    Session session_; // of its own, on the same connection
    std::map<std::pair<std::int16_t, std::int16_t>, Text> issuers_;
    std::map<std::int32_t, FolioRange> folio_ranges_;
    std::map<std::pair<Text, bool>, Nodes> nodes_;
};

// Loads the issuer into the session: company, branch and its certificate. Throws Error 5 for what lacks; a
// load that met an error half-way counts as lacking.
void load_issuer(Session& session, std::int16_t nEmpresa, std::int16_t nSucursal);

} // namespace tolvex
