#include "console/command.hpp"
#include "console/output.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "database/literal.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/pages/printer.hpp"
#include "platform/pages/viewer.hpp"
#include "printing/default_layout.hpp"
#include "printing/document_report.hpp"
#include "rebuilding/issuers.hpp"

namespace tolvex::console {

namespace {

// The folder that the documents of a certificate are issued in, as its row tells; else the current one.
Text documents_folder(const ReportedDocument& document)
{
    const Recordset row = shared_connection(session()).query(
        u"Select c.cRutaArchivoSelloDigital as cCarpeta From FE_VENTAS_RESUMEN v"
        u" Inner Join FE_CERTIFICADOS c On c.nEmpresa=v.nEmpresa"
        u" And c.cSerie_Certificado=v.cSerie_Certificado Where v.cDocumento=" +
        literal(document.folio) + u" And v.nEmpresa=" + decimal(document.company));
    return working_folder(row.eof() ? Text() : row[u"cCarpeta"].text());
}

bool is_stored(const ReportedDocument& document)
{
    return shared_connection(session())
               .query(u"Select count(*) as n From FE_VENTAS_RESUMEN Where cDocumento=" +
                      literal(document.folio) + u" And nEmpresa=" + decimal(document.company))[u"n"]
               .int32() > 0;
}

class Imprime : public Command
{
public:
    const char* name() const override { return "imprime"; }
    const char* purpose() const override { return "Imprime un documento, o hace su PDF"; }
    const char* example() const override { return "tolvex imprime 15 --empresa 1 --pdf --bd tienda.db"; }

    void declare(Options& options) override
    {
        options.key("FOLIO", folio_, "Folio del documento, como se emitió");
        options.required("--empresa", company_, "Número de la empresa");
        options.option("--reporte", report_, "Formato RDL (si falta, el que trae el programa)");
        options.flag_or_value("--pdf", as_pdf_, pdf_, "Hace un PDF; sin nombre, FacturaElec_FOLIO.pdf");
        options.option("--copias", copies_, "Copias que se imprimen (si falta, 1)");
        options.option("--impresora", printer_, "Impresora (si falta, la predeterminada)");
        options.flag("--visor", in_viewer_, "Lo muestra en pantalla");
    }

    int run(const Place& place) override
    {
        const ReportedDocument document{to_text(folio_), company_};
        const printing::Layout layout = report_.empty()
                                            ? printing::parse_layout(layouts::factura)
                                            : printing::read_layout(files::absolute_path(to_text(report_)));
        connect(place);
        if (!is_stored(document))
            return fail(u"no existe el documento " + document.folio + u" de la empresa " +
                        decimal(document.company));
        if (as_pdf_) return export_pdf(layout, document);
        PageList list;
        tell(printing::compose(layout, report_parameters(document), shared_connection(session()), local_now(),
                               list));
        if (in_viewer_)
            show_pages(std::move(list.pages), report_properties(document));
        else
            print_pages(list.pages, {report_properties(document).title, to_text(printer_), copies_});
        return 0;
    }

private:
    static void tell(const std::vector<printing::Remark>& remarks)
    {
        for (const printing::Remark& remark : remarks) say_warning(printing::in_words(remark));
    }

    int export_pdf(const printing::Layout& layout, const ReportedDocument& document)
    {
        if (pdf_.empty()) session().gRutaDeArchivos = documents_folder(document);
        const Text path =
            pdf_.empty() ? report_pdf_path(session(), document.folio) : files::absolute_path(to_text(pdf_));
        tell(export_document(layout, shared_connection(session()), document, path));
        print_line(files::native_path(path));
        return 0;
    }

    std::string folio_, report_, pdf_, printer_;
    std::int16_t company_ = 0, copies_ = 1;
    bool as_pdf_ = false, in_viewer_ = false;
};

} // namespace

std::unique_ptr<Command> imprime_command() { return std::make_unique<Imprime>(); }

} // namespace tolvex::console
