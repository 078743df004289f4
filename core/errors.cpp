#include "core/errors.hpp"

#include "tolvex/tolvex.hpp"

namespace tolvex {

namespace {

Text& last_description()
{
    static Text description;
    return description;
}

} // namespace

Error::Error(std::int32_t number, Text description)
    : number_(number), description_(std::move(description)), what_(to_utf8(description_))
{}

Error invalid_call() { return {5, u"Llamada a procedimiento o argumento no válidos"}; }

Error overflow() { return {6, u"Desbordamiento"}; }

Error type_mismatch() { return {13, u"No coinciden los tipos"}; }

Error file_not_found(TextView path) { return {53, u"No se encontró el archivo: " + Text(path)}; }

Error device_error(TextView path, TextView reason)
{
    return {57, u"Error de E/S en " + Text(path) + u": " + Text(reason)};
}

Error path_error(TextView path, TextView reason)
{
    return {75, u"Error de acceso a la ruta o al archivo " + Text(path) + u": " + Text(reason)};
}

Error invalid_use_of_null() { return {94, u"Uso no válido de Null"}; }

Error not_available(TextView operation)
{
    return {445, Text(operation) + u" todavía no está disponible en esta edición de TOLVEX"};
}

void remember_error(const Text& description) { last_description() = description; }

void forget_error() { last_description().clear(); }

Text last_error() { return last_description(); }

} // namespace tolvex
