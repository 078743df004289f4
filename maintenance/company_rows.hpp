// The rows that name the company and the record in the forms of what belongs to a company.
#pragma once

#include "platform/forms.hpp"

namespace tolvex {

// txtId and txtNombreEmpresa.
inline Row company_row()
{
    return {
        {.kind = ControlKind::text,
         .name = u"txtId",
         .caption = u"Id Empresa",
         .width = 8,
         .read_only = true},
        {.kind = ControlKind::text, .name = u"txtNombreEmpresa", .caption = u"Nombre", .read_only = true}};
}

// The record's number, empty while it is new.
inline Row number_row(TextView name, TextView caption)
{
    return {{.kind = ControlKind::text, .name = name, .caption = caption, .width = 8, .read_only = true},
            {.kind = ControlKind::label, .name = u"lblNuevo", .caption = u"Nuevo"}};
}

} // namespace tolvex
