#include "maintenance/address_rows.hpp"

namespace tolvex {

namespace {

using enum ControlKind;

} // namespace

std::vector<Row> address_rows()
{
    return {
        {{text, u"txtCalle", u"Calle"}},
        {{text, u"txtNumExterior", u"Núm. exterior", 14}, {text, u"txtNumInterior", u"Núm. interior", 14}},
        {{text, u"txtColonia", u"Colonia"}},
        {{text, u"txtLocalidad", u"Localidad"}},
        {{text, u"txtMunicipio", u"Municipio"}},
        {{text, u"txtEstado", u"Estado"}},
        {{text, u"txtPais", u"País", 20}, {text, u"txtCP", u"Código postal", 10}},
        {{text, u"txtTelefono", u"Teléfono", 20}, {text, u"txtRFC", u"RFC", 18}}};
}

std::vector<ShownColumn> shown_address()
{
    return {{u"txtCalle", u"cCalle"},
            {u"txtNumExterior", u"cNumExterior"},
            {u"txtNumInterior", u"cNumInterior"},
            {u"txtColonia", u"cColonia"},
            {u"txtLocalidad", u"cLocalidad"},
            {u"txtMunicipio", u"cMunicipio"},
            {u"txtEstado", u"cEstado"},
            {u"txtPais", u"cPais"},
            {u"txtCP", u"cCodigoPostal"},
            {u"txtTelefono", u"cTelefono"},
            {u"txtRFC", u"cRfc"}};
}

std::vector<SavedColumn> saved_address()
{
    std::vector<SavedColumn> saved;
    for (const auto& [control, column] : shown_address()) saved.push_back({column, upper_text(control)});
    saved.push_back({u"cCurp", constant(u"")});
    return saved;
}

} // namespace tolvex
