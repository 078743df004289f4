#include "console/command.hpp"
#include "console/drop_folder.hpp"
#include "console/issue_report.hpp"
#include "console/output.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "maintenance/certificate_expiry.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/terminal.hpp"
#include "tolvex/root_layout.hpp"
#include "tolvex/sealing.hpp"

#include <algorithm>

namespace tolvex::console {

namespace {

constexpr std::pair<const char*, Encoding> encodings[] = {
    {"utf-8", Encoding::utf8}, {"windows-1252", Encoding::windows_1252}, {"cp850", Encoding::code_page_850}};

const std::string standard_input = "-";

// A file as the user named it; those of a folder in the order of their names.
std::vector<Text> files_of(const std::string& given)
{
    const Text path = to_text(given);
    if (given == standard_input || !files::folder_exists(path)) return {path};
    std::vector<Text> names = files::names_ending(path, u".txt");
    std::sort(names.begin(), names.end());
    for (Text& name : names) name.insert(0, path + u"\\");
    if (names.empty()) throw invalid_call(path + u": la carpeta no tiene archivos .txt");
    return names;
}

class Emite : public Command
{
public:
    const char* name() const override { return "emite"; }
    const char* purpose() const override { return "Revisa y emite los documentos de archivos planos"; }
    const char* example() const override { return "tolvex emite ventas.txt --bd tienda.db"; }

    void declare(Options& options) override
    {
        options.arguments(
            "ARCHIVO", given_,
            "Archivos planos (docs/archivo-plano.md), carpetas con archivos .txt, o - para la entrada "
            "estándar");
        options.flag("--revisa", only_reviews_, "Sólo revisa: dice todo lo que impediría emitir");
        options.option("--desde", options_.from_line, "Renglón en que sigue un archivo que se detuvo");
        options.flag(
            "--translitera", options_.plain_text,
            "Escribe en forma sencilla los signos – — “ ” ‘ ’ … •, con los que el sello no se comprueba");
        options.option("--codificacion", encoding_, {"utf-8", "windows-1252", "cp850"},
                       "Cómo leer las letras; si no se dice, se averigua");
        options.option(
            "--vigila", watched_,
            "Carpeta cuyos archivos .txt se emiten conforme llegan; pasan a procesados o rechazados, con un "
            "reporte al lado. Ctrl-C termina");
        options.flag("--json", as_json_, "Un objeto JSON por renglón: cada documento, cada falta");
        options.flag("--raiz-extendida", extended_root_,
                     "Escribe en el XML la raíz extendida, con folio y método de pago");
        options.flag("--sello-interno", seals_in_process_,
                     "Calcula los sellos sin el programa openssl: los mismos, y varias veces más rápido");
    }

    int run(const Place& place) override
    {
        terminal::is_interrupted(); // noticed from here on
        set_root_layout(extended_root_ ? RootLayout::extended : RootLayout::standard);
        set_sealing(seals_in_process_ ? Sealing::in_process : Sealing::openssl_program);
        IssueReport report(as_json_);
        return watched_.empty() ? issue_all(place, report) : watch(place, report);
    }

private:
    int watch(const Place& place, IssueReport& report) const
    {
        if (!given_.empty()) throw WrongOrder("--vigila no lleva ARCHIVO");
        DropFolder(place, files::absolute_path(to_text(watched_)), options_, encoding(), report).run();
        report.summarize();
        return 0;
    }

    int issue_all(const Place& place, IssueReport& report) const
    {
        const std::vector<Text> names = all_files();
        connect(place);
        bool all_well = true;
        for (const Text& name : names) {
            all_well = issue(name, report) && all_well;
            if (terminal::is_interrupted()) break;
        }
        report.summarize();
        warn_of_expiry();
        disconnect();
        return all_well ? 0 : 1;
    }

    std::vector<Text> all_files() const
    {
        if (given_.empty()) throw WrongOrder("falta ARCHIVO");
        std::vector<Text> names;
        for (const std::string& each : given_)
            for (const Text& name : files_of(each)) names.push_back(name);
        if (options_.from_line > 1 && names.size() > 1)
            throw WrongOrder("--desde vale para un solo archivo, y hay " + std::to_string(names.size()));
        return names;
    }

    // Whether all of it was issued. What is wrong with one file leaves the others alone.
    bool issue(const Text& name, IssueReport& report) const
    {
        const Text shown = files::native_path(name);
        try {
            const Lines lines(content(name), encoding());
            FlatFileOptions options = options_;
            options.folder = folder_of(name);
            const Review review = review_flat_file(session(), lines, options);
            report.found(shown, review);
            if (review.fault_count > 0) return false;
            if (review.document_count == 0) throw invalid_call(u"no trae ningún registro EMITE");
            return only_reviews_ ? tell_review(shown, review) : issue_lines(name, lines, options, report);
        } catch (const Error& error) {
            report.failed(shown, error.description());
            return false;
        }
    }

    // Of standard input the current one.
    static Text folder_of(const Text& name)
    {
        const Text path = files::absolute_path(name);
        return path.substr(0, path.find_last_of(u"\\/"));
    }

    static std::string content(const Text& name)
    {
        return name == to_text(standard_input) ? terminal::input() : files::read(name);
    }

    std::optional<Encoding> encoding() const
    {
        for (const auto& [name, value] : encodings)
            if (encoding_ == name) return value;
        return {};
    }

    static bool tell_review(const Text& name, const Review& review)
    {
        const auto count = static_cast<std::int64_t>(review.document_count);
        print_line(name + u": " + (count == 1 ? Text(u"un documento") : decimal(count) + u" documentos") +
                   u"; se puede emitir");
        return true;
    }

    bool issue_lines(const Text& name, const Lines& lines, const FlatFileOptions& options,
                     IssueReport& report) const
    {
        const FlatFileEvents events = {
            {},
            [&](const IssuedDocument& document) { report.issued(document); },
            [&](std::size_t line, std::size_t all) { report.line_done(line, all); },
            terminal::is_interrupted};
        const FlatFileResult result = issue_flat_file_records(session(), lines, options, events);
        if (!result.failure.empty()) report.stopped(files::native_path(name), result);
        return result.failure.empty();
    }

    // Of the certificate that the last issuer seals with.
    static void warn_of_expiry()
    {
        const Text warning =
            expiry_warning(session(), session().gnEmpresa, session().gnCertificado, local_now());
        if (!warning.empty()) say_warning(warning);
    }

    std::vector<std::string> given_;
    FlatFileOptions options_;
    std::string encoding_, watched_;
    bool only_reviews_ = false, as_json_ = false, extended_root_ = false, seals_in_process_ = false;
};

} // namespace

std::unique_ptr<Command> emite_command() { return std::make_unique<Emite>(); }

} // namespace tolvex::console
