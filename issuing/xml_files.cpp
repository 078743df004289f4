#include "issuing/xml_files.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/clock.hpp"
#include "platform/new_file.hpp"

namespace tolvex {

namespace {

constexpr TextView facturas = u"\\Facturas";

Text made_folder(const Text& folder)
{
    if (!files::folder_exists(folder)) files::create_folder(folder);
    return folder;
}

// As the document itself states it; today's for a file that is none of ours.
Text moment_of(const Text& path)
{
    constexpr std::string_view attribute = " fecha=\"", form = "yyyy-mm-ddThh:mm:ss";
    const std::string content = files::read(path);
    const auto found = content.find(attribute);
    const std::string moment =
        found == std::string::npos ? std::string() : content.substr(found + attribute.size(), form.size());
    if (moment.find_first_not_of("0123456789-:T") == std::string::npos && moment.size() == form.size())
        return to_text(moment);
    return format(local_now(), u"yyyy-mm-ddThh:mm:ss");
}

void keep_earlier(const Text& folder, const Text& stem)
{
    const Text path = folder + u"\\" + stem + u".xml";
    if (!files::exists_as_spelt(path)) return;
    const Text earlier = made_folder(folder + u"\\Anteriores"), moment = moment_of(path);
    for (int times = 1;; ++times)
        if (files::move_unless_taken(path, earlier + u"\\" + name_of_earlier(stem, moment, times))) return;
}

} // namespace

Text write_xml_file(const XmlDocument& xml, const Text& working_folder, const Text& series,
                    const Text& number)
{
    const Text folder = made_folder(working_folder + Text(facturas)), stem = trim(series) + trim(number);
    const Text path = folder + u"\\" + stem + u".xml";
    NewFile file(path);
    xml.save(file.path_beside());
    file.flush();
    keep_earlier(folder, stem);
    file.put_in_place();
    return path;
}

Text name_of_earlier(const Text& stem, const Text& moment, int times)
{
    return stem + u"_" + replace_all(moment, u":", u"-") + (times > 1 ? u"-" + decimal(times) : Text()) +
           u".xml";
}

void remove_unfinished_xml_files(const Text& working_folder)
{
    const Text folder = working_folder + Text(facturas);
    for (const Text& name : files::names_ending(folder, u".xml.tmp"))
        files::remove_if_there(folder + u"\\" + name);
}

} // namespace tolvex
