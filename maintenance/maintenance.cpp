#include "maintenance/maintenance.hpp"

#include "maintenance/pickers.hpp"
#include "maintenance/records.hpp"
#include "platform/messages.hpp"

namespace tolvex {

namespace {

void show_of_company(Session& session, const ConnectionData& data, std::int16_t company,
                     std::unique_ptr<Form> (*picker)(Session&, std::int16_t))
{
    replace_shared_connection(session, data);
    if (ExisteEmpresa(session, company)) return toolkit().show(picker(session, company));
    show_message(u"Ocurrio un error al conectar la empresa, verifique", u"Atención", MessageIcon::critical);
}

} // namespace

void show_companies(Session& session, const ConnectionData& data)
{
    replace_shared_connection(session, data);
    toolkit().show(companies_picker(session));
}

void show_branches(Session& session, const ConnectionData& data, std::int16_t company)
{
    show_of_company(session, data, company, branches_picker);
}

void show_certificates(Session& session, const ConnectionData& data, std::int16_t company)
{
    show_of_company(session, data, company, certificates_picker);
}

void show_folios(Session& session, const ConnectionData& data, std::int16_t company)
{
    show_of_company(session, data, company, folios_picker);
}

} // namespace tolvex
