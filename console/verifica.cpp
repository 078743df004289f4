#include "console/command.hpp"
#include "console/given_day.hpp"
#include "console/output.hpp"
#include "console/progress_line.hpp"
#include "core/numbers.hpp"
#include "platform/files.hpp"
#include "tolvex/stored_documents.hpp"

namespace tolvex::console {

namespace {

// "serie A, folio 15, empresa 1, sucursal 1: falta su XML…; escríbalo de nuevo: tolvex xml 15 …"
Text in_words(const Finding& finding, const Text& options)
{
    Text place;
    if (!finding.serie.empty()) place += u"serie " + finding.serie + u", ";
    if (!finding.folio.empty())
        place += (finding.kind == u"N" ? u"nota de crédito " : u"folio ") + finding.folio + u", empresa " +
                 decimal(finding.company) + u", sucursal " + decimal(finding.branch) + u": ";
    return place + finding.what + u"; " + finding.remedy +
           (finding.command.empty() ? Text() : u": " + finding.command + options);
}

class Verifica : public Command
{
public:
    const char* name() const override { return "verifica"; }
    const char* purpose() const override
    {
        return "Revisa lo emitido: registros, sellos, archivos XML y folios; un renglón por lo que no esté bien";
    }
    const char* example() const override { return "tolvex verifica --bd tienda.db"; }

    void declare(Options& options) override
    {
        options.option("--empresa", company_, "Número de la empresa (si falta, todas)");
        options.option("--desde", from_, "Primer día, aaaa-mm-dd (si falta, desde el primer documento)");
        options.option("--hasta", to_, "Último día, aaaa-mm-dd (si falta, hasta el último documento)");
        options.option("--carpeta", folder_,
                       "Carpeta de trabajo, la de Facturas (si falta, la del certificado)");
    }

    int run(const Place& place) override
    {
        if (company_ != 0)
            connect(place, company_);
        else
            connect(place);
        const VerificationSummary summary = verify(place);
        print_line(u"Documentos revisados: " + decimal(summary.documents) + u"; no está bien: " +
                   decimal(summary.findings));
        if (summary.with_former_issuer > 0)
            say_warning(decimal(summary.with_former_issuer) +
                        u" documentos se emitieron con otros datos de la empresa que los de hoy");
        return summary.findings == 0 ? 0 : 1;
    }

private:
    VerificationSummary verify(const Place& place) const
    {
        const Text options = to_text(options_of(place) + (folder_.empty() ? "" : " --carpeta " + folder_));
        VerifiedRange range{company_, given_day("--desde", from_), given_day("--hasta", to_), u""};
        if (!folder_.empty()) range.folder = files::absolute_path(to_text(folder_));
        ProgressLine progress("documento");
        const auto found = [&](const Finding& finding) {
            progress.clear();
            print_line(in_words(finding, options));
        };
        const auto page_done = [&](std::size_t documents, std::size_t all) { progress.show(documents, all); };
        const VerificationSummary summary = verify_documents(range, {found, page_done});
        progress.clear();
        return summary;
    }

    std::int16_t company_ = 0;
    std::string from_, to_, folder_;
};

} // namespace

std::unique_ptr<Command> verifica_command() { return std::make_unique<Verifica>(); }

} // namespace tolvex::console
