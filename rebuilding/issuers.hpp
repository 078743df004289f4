// Who issued stored documents: company and certificate, loaded once for all their documents.
#pragma once

#include "platform/signature.hpp"
#include "session/session.hpp"

#include <map>
#include <optional>

namespace tolvex {

struct Issuer
{
    Session session; // company and certificate loaded, on the shared connection
    Text fault;      // what keeps documents of this issuer from being built anew; empty when nothing does
    Text seal_folder;
    std::shared_ptr<const Certificate> certificate; // null when it cannot be read
};

// What keeps a company from being loaded whole into the session; empty when nothing does.
Text company_fault(Session& session, std::int16_t company);

class Issuers
{
public:
    explicit Issuers(const Session& session) : connection_(session.gConexion) {}

    // The issuer of a company's certificate with that number. Throws Error when the database fails.
    const Issuer& find(std::int16_t company, const Text& certificate_number);

private:
    std::shared_ptr<Connection> connection_;
    std::map<std::pair<std::int16_t, Text>, Issuer> found_;
};

// Where a certificate's documents are issued, as its row tells; else the current folder.
Text working_folder(const Text& seal_folder);

} // namespace tolvex
