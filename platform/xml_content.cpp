#include "platform/xml_content.hpp"

#include "core/errors.hpp"
#include "platform/new_file.hpp"
#include "platform/xml_document.hpp"

#include <algorithm>

namespace tolvex {

namespace {

bool is_forbidden(char16_t c)
{
    const bool white_space = c == u'\t' || c == u'\n' || c == u'\r';
    return (c < 0x20 && !white_space) || c == 0xFFFE || c == 0xFFFF;
}

} // namespace

Error xml_error(const Text& description) { return {numbers::invalid_call, u"Documento XML: " + description}; }

const Text& allowed_xml_content(const Text& value)
{
    if (std::any_of(value.begin(), value.end(), is_forbidden))
        throw xml_error(u"el valor \"" + value + u"\" lleva un carácter de control que XML no admite");
    return value;
}

void XmlDocument::save(TextView path) const
{
    const std::string content = as_bytes();
    NewFile file(path);
    files::write(file.path_beside(), content);
    file.put_in_place();
}

} // namespace tolvex
