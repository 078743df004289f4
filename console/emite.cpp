#include "console/command.hpp"
#include "console/output.hpp"
#include "console/progress_line.hpp"
#include "flat_file/flat_file.hpp"
#include "maintenance/certificate_expiry.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "tolvex/root_layout.hpp"

namespace tolvex::console {

namespace {

class Emite : public Command
{
public:
    const char* name() const override { return "emite"; }
    const char* purpose() const override
    {
        return "Emite los documentos de un archivo plano y escribe la ruta de cada XML, uno por línea";
    }

    void declare(Options& options) override
    {
        options.argument("ARCHIVO", file_, "Archivo plano (vea docs/archivo-plano.md)");
        options.flag("--raiz-extendida", extended_root_,
                     "Escribe en el XML la raíz extendida, con folio y método de pago");
    }

    int run(const Place& place) override
    {
        connect(place);
        set_root_layout(extended_root_ ? RootLayout::extended : RootLayout::standard);
        const FlatFileResult result = issue();
        warn_of_expiry();
        disconnect();
        if (!result.failure.empty()) return fail(to_text(file_) + u": " + result.failure);
        if (result.documents.empty()) return fail(to_text(file_) + u": no trae ningún registro EMITE");
        return 0;
    }

private:
    FlatFileResult issue() const
    {
        ProgressLine progress("línea");
        const auto issued = [&](const IssuedDocument& document) {
            progress.clear();
            print_line(files::native_path(document.xml_path));
            if (!document.warning.empty())
                say_warning(document.series + document.folio + u": " + document.warning);
        };
        const auto line_done = [&](std::size_t line, std::size_t lines) { progress.show(line, lines); };
        const FlatFileResult result =
            issue_flat_file_records(session(), files::absolute_path(to_text(file_)), {issued, line_done});
        progress.clear();
        return result;
    }

    // Of the certificate that the file's last issuer seals with.
    static void warn_of_expiry()
    {
        const Text warning =
            expiry_warning(session(), session().gnEmpresa, session().gnCertificado, local_now());
        if (!warning.empty()) say_warning(warning);
    }

    std::string file_;
    bool extended_root_ = false;
};

} // namespace

std::unique_ptr<Command> emite_command() { return std::make_unique<Emite>(); }

} // namespace tolvex::console
