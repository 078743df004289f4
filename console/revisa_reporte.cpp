#include "console/command.hpp"
#include "console/output.hpp"
#include "platform/files.hpp"
#include "printing/rdl/review.hpp"

namespace tolvex::console {

namespace {

class RevisaReporte : public Command
{
public:
    const char* name() const override { return "revisa-reporte"; }
    const char* purpose() const override
    {
        return "Dice qué de un formato de impresión no se imprime como lo pide, y dónde";
    }
    const char* example() const override { return "tolvex revisa-reporte factura.rdl"; }

    void declare(Options& options) override { options.argument("REPORTE", report_, "Formato RDL"); }

    bool needs_database() const override { return false; }

    int run(const Place&) override
    {
        const printing::Layout layout = printing::read_layout(files::absolute_path(to_text(report_)));
        const std::vector<printing::Remark> remarks = printing::remarks_about(layout);
        for (const printing::Remark& remark : remarks) print_line(printing::in_words(remark));
        if (remarks.empty()) print_line(u"Todo lo que usa el formato se imprime");
        return 0;
    }

private:
    std::string report_;
};

} // namespace

std::unique_ptr<Command> revisa_reporte_command() { return std::make_unique<RevisaReporte>(); }

} // namespace tolvex::console
