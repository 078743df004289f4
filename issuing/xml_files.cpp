#include "issuing/xml_files.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/clock.hpp"
#include "platform/new_file.hpp"

namespace tolvex {

namespace {

Text anteriores_path(const Text& working_folder) { return facturas_path(working_folder) + u"\\Anteriores"; }

void make_folder(const Text& folder)
{
    if (!files::folder_exists(folder)) files::create_folder(folder);
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

// The first number that is not taken: they are given one after the other, and a file of thousands of
// documents may have one moment for all.
template <class Taken>
int first_free(Taken taken)
{
    int free = 1;
    while (taken(free)) free *= 2;
    for (int last = free / 2; free - last > 1;) {
        const int middle = last + (free - last) / 2;
        (taken(middle) ? last : free) = middle;
    }
    return free;
}

void keep_earlier(const Text& working_folder, const Text& name)
{
    const Text path = xml_path(working_folder, name);
    if (!files::exists_as_spelt(path)) return;
    make_folder(anteriores_path(working_folder));
    const Text moment = moment_of(path);
    const auto earlier = [&](int times) { return earlier_xml_path(working_folder, name, moment, times); };
    int times = first_free([&](int each) { return files::exists_as_spelt(earlier(each)); });
    while (!files::move_unless_taken(path, earlier(times))) ++times;
}

} // namespace

Text facturas_path(const Text& working_folder) { return working_folder + u"\\Facturas"; }

Text xml_path(const Text& working_folder, const Text& name)
{
    return facturas_path(working_folder) + u"\\" + name + u".xml";
}

Text earlier_xml_path(const Text& working_folder, const Text& name, const Text& moment, int times)
{
    return anteriores_path(working_folder) + u"\\" + name + u"_" + replace_all(moment, u":", u"-") +
           (times > 1 ? u"-" + decimal(times) : Text()) + u".xml";
}

Text write_xml_file(const XmlDocument& xml, const Text& working_folder, const Text& name)
{
    make_folder(facturas_path(working_folder));
    const Text path = xml_path(working_folder, name);
    NewFile file(path);
    files::write(file.path_beside(), xml.as_bytes());
    file.flush();
    keep_earlier(working_folder, name);
    file.put_in_place();
    return path;
}

void remove_unfinished_xml_files(const Text& working_folder)
{
    const Text within = facturas_path(working_folder) + u"\\";
    for (const Text& name : files::names_ending(facturas_path(working_folder), u".xml.tmp"))
        files::remove_if_there(within + name);
}

} // namespace tolvex
