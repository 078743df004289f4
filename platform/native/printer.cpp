// Printers by CUPS, which takes the pages as a PDF file.
#include "platform/pages/printer.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "platform/native/temporary_pdf.hpp"

#include <cups/cups.h>

namespace tolvex {

namespace {

class Options
{
public:
    ~Options() { cupsFreeOptions(count_, options_); }
    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    void add(const char* name, const std::string& value)
    {
        count_ = cupsAddOption(name, value.c_str(), count_, &options_);
    }
    int count() const { return count_; }
    cups_option_t* get() const { return options_; }

private:
    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

std::string chosen_printer(const Text& name)
{
    if (!name.empty()) return to_utf8(name);
    const char* standard = cupsGetDefault();
    if (!standard)
        throw printer_error(u"no hay una impresora predeterminada; elija una con «lpadmin -d IMPRESORA»");
    return standard;
}

} // namespace

void print_pages(const std::vector<pages::Page>& pages, const PrintJob& job)
{
    const std::string printer = chosen_printer(job.printer);
    const TemporaryPdf pdf(pages, {job.title, u""});
    Options options;
    options.add("copies", std::to_string(std::max(job.copies, 1)));
    if (cupsPrintFile(printer.c_str(), pdf.path().c_str(), to_utf8(job.title).c_str(), options.count(),
                      options.get()) == 0)
        throw printer_error(to_text(printer) + u": " + to_text(cupsLastErrorString()));
}

} // namespace tolvex
