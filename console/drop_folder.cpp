#include "console/drop_folder.hpp"

#include "console/output.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/folder_watch.hpp"
#include "platform/terminal.hpp"

namespace tolvex::console {

namespace {

constexpr int a_second = 1000;

Text line_in_words(std::size_t line) { return decimal(static_cast<std::int64_t>(line)); }

// A person has to look: it may be issued already, and must not be issued twice.
Text doubt_in_words(const Inbox::File& file)
{
    return u"El programa se cortó al emitir el documento que termina en la línea " +
           line_in_words(file.in_doubt) +
           u". Vea con «tolvex documentos» si quedó emitido; si quedó, siga desde la línea " +
           line_in_words(file.in_doubt + 1) + u", y si no, desde la línea " + line_in_words(file.next_line) +
           u".\n";
}

Text faults_in_words(const Review& review)
{
    Text words;
    for (const LineFinding& fault : review.faults) words += fault.in_words() + u"\n";
    return words + u"No se emitió nada.\n";
}

Text documents_in_words(const FlatFileResult& result)
{
    Text words;
    for (const IssuedDocument& document : result.documents)
        words += document.series + document.folio + u"  " + document.total + u"  " +
                 files::native_path(document.xml_path) + u"\n";
    if (!result.failure.empty()) words += result.failure + u"\n" + result.progress() + u"\n";
    return words;
}

} // namespace

DropFolder::DropFolder(const Place& place, const Text& folder, const FlatFileOptions& options,
                       std::optional<Encoding> encoding, IssueReport& report)
    : place_(place), folder_(folder), options_(options), encoding_(encoding), report_(report), inbox_(folder)
{
    options_.folder = folder;
    options_.from_line = 1;
}

void DropFolder::run()
{
    const auto changes = FolderWatch::of(folder_);
    print_line(u"Vigilando " + files::native_path(folder_) + u"; Ctrl-C termina");
    while (!terminal::is_interrupted()) {
        if (const auto file = inbox_.take())
            process(*file);
        else
            changes->wait(a_second);
    }
}

void DropFolder::process(const Inbox::File& file)
{
    if (file.in_doubt > 0) {
        report_.failed(file.name, doubt_in_words(file));
        return inbox_.settle(file, false, doubt_in_words(file));
    }
    if (!reaches_database()) return pause(5 * a_second);
    review_and_issue(file);
    disconnect();
}

bool DropFolder::reaches_database()
{
    try {
        connect(place_);
        is_out_of_reach_ = false;
    } catch (const Error& error) {
        if (!is_out_of_reach_) say_error("los archivos esperan: " + to_utf8(error.description()));
        is_out_of_reach_ = true;
    }
    return !is_out_of_reach_;
}

void DropFolder::review_and_issue(const Inbox::File& file)
{
    try {
        const Lines lines(files::read(file.path), encoding_);
        FlatFileOptions options = options_;
        options.from_line = file.next_line;
        const Review review = review_flat_file(session(), lines, options);
        report_.found(file.name, review);
        if (review.fault_count > 0) return inbox_.settle(file, false, faults_in_words(review));
        issue(file, lines, options);
    } catch (const Error& error) {
        report_.failed(file.name, error.description());
        inbox_.settle(file, false, error.description() + u"\n");
    }
}

// One that is interrupted stays in process, and goes on when the folder is watched again.
void DropFolder::issue(const Inbox::File& file, const Lines& lines, const FlatFileOptions& options)
{
    const FlatFileEvents events = {[&](std::size_t line) { inbox_.begin(file, line); },
                                   [&](const IssuedDocument& document) {
                                       inbox_.issued(file, document.line, document);
                                       report_.issued(document);
                                   },
                                   [&](std::size_t line, std::size_t all) { report_.line_done(line, all); },
                                   terminal::is_interrupted};
    const FlatFileResult result = issue_flat_file_records(session(), lines, options, events);
    if (!result.failure.empty()) report_.failed(file.name, result.failure);
    if (!terminal::is_interrupted() || result.failure.empty())
        inbox_.settle(file, result.failure.empty(), documents_in_words(result));
}

} // namespace tolvex::console
