#include "core/errors.hpp"
#include "tolvex/classes.hpp"

namespace tolvex {

void Maestros::MuestraEmpresas(const Text&, const Text&, const Text&, const Text&)
{
    throw not_available(u"El maestro de empresas");
}

void Maestros::MuestraSucursales(const Text&, const Text&, const Text&, const Text&, std::int16_t)
{
    throw not_available(u"El maestro de sucursales");
}

void Maestros::MuestraCertificados(const Text&, const Text&, const Text&, const Text&, std::int16_t)
{
    throw not_available(u"El maestro de certificados");
}

void Maestros::GeneraReporteDeFoliosUtilizados(const Text&, const Text&, const Text&, const Text&,
                                               const Text&)
{
    throw not_available(u"El reporte de folios utilizados");
}

void Maestros::MuestraSeriesyFolios(const Text&, const Text&, const Text&, const Text&, std::int16_t)
{
    throw not_available(u"El maestro de series y folios");
}

} // namespace tolvex
