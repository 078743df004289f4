#include "core/errors.hpp"

#include <new>

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

Error invalid_call() { return {numbers::invalid_call, u"Llamada a procedimiento o argumento no válidos"}; }

Error invalid_call(TextView reason) { return {numbers::invalid_call, Text(reason)}; }

Error overflow() { return {numbers::overflow, u"Desbordamiento"}; }

Error type_mismatch() { return {numbers::type_mismatch, u"No coinciden los tipos"}; }

Error file_not_found(TextView path)
{
    return {numbers::file_not_found, u"No se encontró el archivo: " + Text(path)};
}

Error device_error(TextView path, TextView reason)
{
    return {numbers::device_error, u"Error de E/S en " + Text(path) + u": " + Text(reason)};
}

Error path_error(TextView path, TextView reason)
{
    return {numbers::path_error,
            u"Error de acceso a la ruta o al archivo " + Text(path) + u": " + Text(reason)};
}

Error object_not_set() { return {numbers::object_not_set, u"Variable de objeto no establecida"}; }

Error invalid_use_of_null() { return {numbers::invalid_use_of_null, u"Uso no válido de Null"}; }

Error printer_error(TextView reason)
{
    return {numbers::printer_error, u"Error de impresora: " + Text(reason)};
}

Error not_available(TextView operation)
{
    return {numbers::not_available,
            Text(operation) + u" todavía no está disponible en esta edición de TOLVEX"};
}

Error with_detail(const Error& error, TextView detail)
{
    return {error.number(), error.description() + u": " + Text(detail)};
}

Text words_of(const std::exception& error)
{
    if (dynamic_cast<const std::bad_alloc*>(&error)) return u"No hay memoria suficiente";
    return to_text(error.what());
}

void remember_error(const Text& description) { last_description() = description; }

void forget_error() { last_description().clear(); }

Text last_error() { return last_description(); }

} // namespace tolvex
