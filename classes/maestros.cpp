#include "classes/call.hpp"
#include "maintenance/maintenance.hpp"
#include "reports/report_form.hpp"
#include "tolvex/classes.hpp"

namespace tolvex {

void Maestros::MuestraEmpresas(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd)
{
    show_companies(begin_call(), {UserBd, PswBd, Bd, ServerBd});
}

void Maestros::MuestraSucursales(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd,
                                 std::int16_t Empresa)
{
    show_branches(begin_call(), {UserBd, PswBd, Bd, ServerBd}, Empresa);
}

void Maestros::MuestraCertificados(const Text& UserBd, const Text& PswBd, const Text& Bd,
                                   const Text& ServerBd, std::int16_t Empresa)
{
    show_certificates(begin_call(), {UserBd, PswBd, Bd, ServerBd}, Empresa);
}

void Maestros::GeneraReporteDeFoliosUtilizados(const Text& UserBd, const Text& PswBd, const Text& Bd,
                                               const Text& ServerBd, const Text& vlRutaDelReporte)
{
    show_report(begin_call(), {UserBd, PswBd, Bd, ServerBd}, vlRutaDelReporte);
}

void Maestros::MuestraSeriesyFolios(const Text& UserBd, const Text& PswBd, const Text& Bd,
                                    const Text& ServerBd, std::int16_t Empresa)
{
    show_folios(begin_call(), {UserBd, PswBd, Bd, ServerBd}, Empresa);
}

} // namespace tolvex
