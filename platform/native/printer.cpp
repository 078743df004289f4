// Printers by CUPS, which takes the pages as a PDF file: the queues of this machine, and any printer that
// speaks IPP by its address (ipp://caja.local/ipp/print).
#include "platform/pages/printer.hpp"

#include "core/errors.hpp"
#include "platform/files.hpp"
#include "platform/native/temporary_pdf.hpp"

#include <cups/cups.h>

#include <algorithm>
#include <memory>

namespace tolvex {

namespace {

struct FreeDestination
{
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;

struct FreeDestinationInfo
{
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
using DestinationInfo = std::unique_ptr<cups_dinfo_t, FreeDestinationInfo>;

struct CloseConnection
{
    void operator()(http_t* connection) const { httpClose(connection); }
};
using HttpConnection = std::unique_ptr<http_t, CloseConnection>;

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

Error last_printer_error(TextView printer)
{
    return printer_error(Text(printer) + u": " + to_text(cupsLastErrorString()));
}

bool is_address(TextView printer) { return printer.find(u"://") != TextView::npos; }

// By its name or address; the default one without.
Destination find_printer(const Text& wanted)
{
    const std::string name = to_utf8(wanted);
    Destination found(is_address(wanted) ? cupsGetDestWithURI(nullptr, name.c_str())
                                         : cupsGetNamedDest(CUPS_HTTP_DEFAULT,
                                                            name.empty() ? nullptr : name.c_str(), nullptr));
    if (found) return found;
    if (!name.empty()) throw printer_error(wanted + u": no hay una impresora con ese nombre");
    throw printer_error(u"no hay una impresora predeterminada; elija una con «lpadmin -d IMPRESORA»");
}

// With the printer of an address itself; for a queue none, which stands for the spooler of this machine.
HttpConnection connect(cups_dest_t& printer, TextView wanted)
{
    constexpr int patience = 30'000; // milliseconds
    if (!is_address(wanted)) return nullptr;
    HttpConnection made(
        cupsConnectDest(&printer, CUPS_DEST_FLAGS_DEVICE, patience, nullptr, nullptr, 0, nullptr, nullptr));
    if (!made) throw last_printer_error(wanted);
    return made;
}

// A printer that has been reached.
class Printer
{
public:
    explicit Printer(const Text& wanted)
        : destination_(find_printer(wanted)), name_(to_text(destination_->name)),
          connection_(connect(*destination_, wanted)),
          info_(cupsCopyDestInfo(connection_.get(), destination_.get()))
    {
        if (!info_) throw last_printer_error(name_);
    }

    // The whole file is one job, or none.
    void print(const std::string& pdf, const std::string& title, const Options& options) const
    {
        int job = 0;
        check(cupsCreateDestJob(connection_.get(), destination_.get(), info_.get(), &job, title.c_str(),
                                options.count(), options.get()) <= IPP_STATUS_OK_EVENTS_COMPLETE);
        try {
            send(job, pdf, title);
        } catch (const Error&) {
            cupsCancelDestJob(connection_.get(), destination_.get(), job);
            throw;
        }
    }

private:
    void send(int job, const std::string& pdf, const std::string& title) const
    {
        check(cupsStartDestDocument(connection_.get(), destination_.get(), info_.get(), job, title.c_str(),
                                    CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE);
        check(cupsWriteRequestData(connection_.get(), pdf.data(), pdf.size()) == HTTP_STATUS_CONTINUE);
        check(cupsFinishDestDocument(connection_.get(), destination_.get(), info_.get()) <=
              IPP_STATUS_OK_EVENTS_COMPLETE);
    }

    void check(bool done) const
    {
        if (!done) throw last_printer_error(name_);
    }

    const Destination destination_;
    const Text name_;
    const HttpConnection connection_;
    const DestinationInfo info_;
};

} // namespace

void print_pages(const std::vector<pages::Page>& pages, const PrintJob& job)
{
    const Printer printer(job.printer);
    const TemporaryPdf pdf(pages, {job.title, u""});
    Options options;
    options.add(CUPS_COPIES, std::to_string(std::max(job.copies, 1)));
    printer.print(files::read(to_text(pdf.path())), to_utf8(job.title), options);
}

} // namespace tolvex
