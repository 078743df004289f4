#include "platform/forms.hpp"

#include "core/errors.hpp"

namespace tolvex {

Toolkit& native_toolkit()
{
    throw not_available(u"Las ventanas de mantenimiento: use las órdenes maestros, certificado, lista y "
                        u"reporte del programa tolvex; en ventanas, esto");
}

} // namespace tolvex
