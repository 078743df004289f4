#include "platform/native/reason_of.hpp"

#include "core/numbers.hpp"

#include <cerrno>

namespace tolvex {

Text reason_of(int error)
{
    switch (error) {
    case ENOENT:
        return u"no existe la carpeta";
    case ENOTDIR:
        return u"una parte de la ruta no es una carpeta";
    case EISDIR:
        return u"es una carpeta";
    case EEXIST:
        return u"ya existe";
    case ENOTEMPTY:
        return u"la carpeta no está vacía";
    case EACCES:
    case EPERM:
        return u"no hay permiso";
    case EROFS:
        return u"el disco es de sólo lectura";
    case ENOSPC:
    case EDQUOT:
        return u"el disco está lleno";
    case EFBIG:
        return u"el archivo es demasiado grande";
    case ENAMETOOLONG:
        return u"el nombre es demasiado largo";
    case ELOOP:
        return u"la ruta pasa por un enlace que no se sigue";
    case EXDEV:
        return u"está en otro disco";
    case EBUSY:
    case ETXTBSY:
        return u"otro programa lo está usando";
    case EMFILE:
    case ENFILE:
        return u"hay demasiados archivos abiertos";
    case EIO:
        return u"falló el disco o la red";
    case ENOMEM:
        return u"no hay memoria suficiente";
    default:
        return u"error " + decimal(error) + u" del sistema";
    }
}

} // namespace tolvex
