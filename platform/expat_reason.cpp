#include "platform/expat_reason.hpp"

#include "core/numbers.hpp"

namespace tolvex {

Text expat_reason(XML_Error error)
{
    switch (error) {
    case XML_ERROR_SYNTAX:
        return u"error de sintaxis";
    case XML_ERROR_INVALID_TOKEN:
        return u"hay un carácter que ahí no se admite";
    case XML_ERROR_NO_ELEMENTS:
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_PARTIAL_CHAR:
        return u"el texto termina antes de tiempo";
    case XML_ERROR_TAG_MISMATCH:
        return u"la etiqueta de cierre no es la del elemento abierto";
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
        return u"hay un atributo repetido";
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
        return u"hay algo después del último elemento";
    case XML_ERROR_UNDEFINED_ENTITY:
        return u"se usa una entidad que XML no define";
    case XML_ERROR_UNBOUND_PREFIX:
        return u"se usa un prefijo sin espacio de nombres";
    case XML_ERROR_UNKNOWN_ENCODING:
    case XML_ERROR_INCORRECT_ENCODING:
        return u"la codificación declarada no se conoce o no es la del archivo";
    default:
        return u"error " + decimal(error) + u" del lector de XML";
    }
}

} // namespace tolvex
