#include "console/issue_report.hpp"

#include "console/json.hpp"
#include "console/output.hpp"
#include "core/numbers.hpp"
#include "issuing/amount_patterns.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/terminal.hpp"

#include <algorithm>
#include <fmt/core.h>

namespace tolvex::console {

namespace {

double seconds(std::int64_t milliseconds) { return static_cast<double>(milliseconds) / 1000; }

std::string json(const Text& text) { return json_text(to_utf8(text)); }

std::string as_object(const IssuedDocument& document, const std::string& total, const std::string& path)
{
    return fmt::format(
        R"({{"serie":{},"folio":{},"nID":{},"total":{},"ruta":{},"segundos":{:.3f},"error":{}}})",
        json(document.series), json(document.folio), json_number(to_utf8(document.nID)), json_number(total),
        json_text(path), seconds(document.milliseconds), json(document.warning));
}

std::vector<LineFinding> in_order(const std::vector<LineFinding>& findings)
{
    std::vector<LineFinding> sorted = findings;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const LineFinding& a, const LineFinding& b) { return a.line < b.line; });
    return sorted;
}

} // namespace

IssueReport::IssueReport(bool as_json) : as_json_(as_json), progress_("línea"), start_(milliseconds_running())
{}

void IssueReport::issued(const IssuedDocument& document)
{
    ++count_;
    progress_.clear();
    const std::string path = to_utf8(files::native_path(document.xml_path));
    const std::string total = to_utf8(format(document.total, total_pattern));
    if (as_json_) return print_line(as_object(document, total, path));
    const std::string name = to_utf8(document.series + document.folio);
    print_line(fmt::format("{:<10} {:>14}  {}", name, total, path));
    if (!document.warning.empty()) say_warning(document.series + document.folio + u": " + document.warning);
}

void IssueReport::tell(const char* kind, const Text& file, const LineFinding& finding)
{
    progress_.clear();
    if (as_json_)
        return print_line(fmt::format(R"({{"archivo":{},"linea":{},"{}":{}}})", json(file), finding.line,
                                      kind, json(finding.text)));
    const Text words = file + u": " + finding.in_words();
    if (std::string_view(kind) == "aviso")
        say_warning(words);
    else
        say_error(to_utf8(words));
}

void IssueReport::found(const Text& file, const Review& review)
{
    for (const LineFinding& warning : in_order(review.warnings)) tell("aviso", file, warning);
    for (const LineFinding& fault : in_order(review.faults)) tell("error", file, fault);
    if (review.warning_count > review.warnings.size() && !as_json_)
        say_warning(file + u": y " +
                    decimal(static_cast<std::int64_t>(review.warning_count - review.warnings.size())) +
                    u" avisos más");
    if (review.fault_count == 0) return;
    const std::string count =
        review.fault_count == 1 ? "una falta" : std::to_string(review.fault_count) + " faltas";
    const std::string shown =
        review.fault_count > review.faults.size() ? fmt::format(" (se dicen {})", review.faults.size()) : "";
    if (!as_json_) say_error(to_utf8(file) + ": " + count + shown + "; no se emitió nada");
}

void IssueReport::stopped(const Text& file, const FlatFileResult& result)
{
    const std::string line = std::to_string(result.next_line);
    failed(file, result.failure);
    if (!as_json_)
        say_error(to_utf8(result.progress()) + ": tolvex emite " + to_utf8(file) + " --desde " + line);
}

void IssueReport::failed(const Text& file, const Text& reason)
{
    progress_.clear();
    if (as_json_)
        print_line(fmt::format(R"({{"archivo":{},"error":{}}})", json(file), json(reason)));
    else
        say_error(to_utf8(file + u": " + reason));
}

void IssueReport::summarize()
{
    progress_.clear();
    if (as_json_ || count_ == 0) return;
    const double passed = std::max(seconds(milliseconds_running() - start_), 0.001);
    terminal::print(stderr, fmt::format("{} en {:.1f} s ({:.1f} por segundo)\n",
                                        count_ == 1 ? "Un documento emitido"
                                                    : std::to_string(count_) + " documentos emitidos",
                                        passed, static_cast<double>(count_) / passed));
}

} // namespace tolvex::console
