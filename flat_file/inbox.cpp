#include "flat_file/inbox.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"

#include <algorithm>

namespace tolvex {

namespace {

constexpr TextView begun = u"comienza ", done = u"emitido ";

std::vector<Text> flat_files(const Text& folder)
{
    std::vector<Text> names = files::names_ending(folder, u".txt");
    std::sort(names.begin(), names.end());
    return names;
}

std::size_t line_in(const Text& entry, TextView word)
{
    return static_cast<std::size_t>(leading_number(TextView(entry).substr(word.size())));
}

} // namespace

Inbox::Inbox(const Text& folder) : folder_(folder)
{
    for (const TextView name : {u"\\en_proceso", u"\\procesados", u"\\rechazados"})
        if (!files::folder_exists(folder_ + Text(name))) files::create_folder(folder_ + Text(name));
    turn_ = FileTurn::take(folder_ + u"\\en_proceso\\vigilante");
    if (!turn_) throw invalid_call(u"otro programa vigila ya la carpeta " + files::native_path(folder_));
}

std::optional<Inbox::File> Inbox::take()
{
    for (const Text& name : flat_files(folder_ + u"\\en_proceso")) return with_journal(name);
    for (const Text& name : flat_files(folder_)) {
        if (!is_complete(name)) continue;
        // Windows refuses to move what a program has open.
        const bool is_ours = trapping(
            false, [&] { return files::move_unless_taken(folder_ + u"\\" + name, in_process(name)); });
        if (is_ours) return File{name, in_process(name)};
    }
    return {};
}

bool Inbox::is_complete(const Text& name)
{
    constexpr std::int64_t rest = 1000; // milliseconds
    const std::uint64_t size =
        trapping(std::uint64_t{0}, [&] { return files::size(folder_ + u"\\" + name); });
    const std::int64_t now = milliseconds_running();
    Look& look = looks_.try_emplace(name, Look{size, now}).first->second;
    if (look.size != size) look = {size, now};
    const bool is_complete = size > 0 && now - look.moment >= rest;
    if (is_complete) looks_.erase(name);
    return is_complete;
}

Inbox::File Inbox::with_journal(const Text& name) const
{
    File file{name, in_process(name)};
    if (!files::exists(journal_of(name))) return file;
    for (const Text& entry : split(to_text(files::read(journal_of(name))), u'\n')) {
        if (entry.starts_with(begun)) file.in_doubt = line_in(entry, begun);
        if (!entry.starts_with(done)) continue;
        file.next_line = line_in(entry, done) + 1;
        file.in_doubt = 0;
    }
    return file;
}

void Inbox::begin(const File& file, std::size_t line)
{
    files::append(journal_of(file.name),
                  to_utf8(Text(begun) + decimal(static_cast<std::int64_t>(line))) + "\n");
}

void Inbox::issued(const File& file, std::size_t line, const IssuedDocument& document)
{
    files::append(journal_of(file.name), to_utf8(Text(done) + decimal(static_cast<std::int64_t>(line)) +
                                                 u" " + document.series + document.folio) +
                                             "\n");
}

Text Inbox::free_name(const Text& folder, const Text& name) const
{
    const std::size_t dot = name.rfind(u'.');
    Text candidate = name;
    for (int i = 2; files::exists(folder + candidate); ++i)
        candidate = Text(name).insert(dot, u"-" + decimal(i));
    return candidate;
}

// The report first: a file that is still in process is looked at again.
void Inbox::settle(const File& file, bool is_processed, const Text& report)
{
    const Text folder = folder_ + (is_processed ? u"\\procesados\\" : u"\\rechazados\\");
    const Text name = free_name(folder, file.name);
    files::write(folder + name.substr(0, name.rfind(u'.')) + u".reporte.txt", to_utf8(report));
    files::move_unless_taken(file.path, folder + name);
    files::remove_if_there(journal_of(file.name));
}

} // namespace tolvex
