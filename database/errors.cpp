#include "database/errors.hpp"

namespace tolvex {

Error no_current_row()
{
    return {numbers::no_current_row, u"El conjunto de resultados no tiene un registro actual"};
}

Error no_such_column(TextView name)
{
    return {numbers::no_such_column, u"No existe la columna " + Text(name) + u" en el resultado"};
}

Error no_rows_returned() { return {numbers::no_rows_returned, u"La instrucción no devuelve registros"}; }

Error connection_closed()
{
    return {numbers::connection_closed,
            u"La conexión con la base de datos está cerrada: llame antes a AbrirConexion"};
}

} // namespace tolvex
