#include "printing/frm_gen_imprimir_en_crystal.hpp"

#include "core/errors.hpp"
#include "platform/clock.hpp"
#include "platform/pages/pdf.hpp"
#include "platform/pages/printer.hpp"
#include "platform/pages/viewer.hpp"

namespace tolvex {

namespace {

// The tables that data sets name directly, as those of one database.
void locate_tables(printing::Layout& layout, const Text& database)
{
    for (printing::DataSet& data_set : layout.data_sets)
        if (data_set.whole_table)
            data_set.command = printing::Expression::of(database + u".dbo." + data_set.command.source());
}

ConnectionData logon_of(const Session& session)
{
    return {session.gUserBd, session.gPswBd, session.gBd, session.gServerBd};
}

} // namespace

void FrmGenImprimirEnCrystal::PasarParametros(std::vector<printing::GivenValue> parameters)
{
    parameters_ = std::move(parameters);
}

void FrmGenImprimirEnCrystal::PasarParametrosAuxiliares(std::vector<printing::GivenValue> parameters)
{
    auxiliary_ = std::move(parameters);
}

void FrmGenImprimirEnCrystal::pmImprimirVisor(const Text& report, const ConnectionData& logon)
{
    const printing::Layout layout = printing::read_layout(report);
    log_on(logon);
    show(layout);
}

void FrmGenImprimirEnCrystal::pmImprimirPDF(const Text& report, const ConnectionData& logon, std::int16_t,
                                            const Text& pdf)
{
    const printing::Layout layout = printing::read_layout(report);
    log_on(logon);
    pages::PdfFile file(pdf, properties(layout));
    compose(layout, file);
    file.finish();
}

void FrmGenImprimirEnCrystal::pmImprimirImpresora(const Text& report, const ConnectionData& logon,
                                                  std::int16_t copies)
{
    const printing::Layout layout = printing::read_layout(report);
    log_on(logon);
    print(layout, copies);
}

void FrmGenImprimirEnCrystal::pmImprimir_Con_Query(const Text& report, const ConnectionData& logon)
{
    printing::Layout layout = printing::read_layout(report);
    locate_tables(layout, logon.database);
    log_on(logon);
    show(layout);
}

void FrmGenImprimirEnCrystal::pmImprimir_Con_Query_Sin_Visor(const Text& report, const ConnectionData& logon,
                                                             std::int16_t copies)
{
    printing::Layout layout = printing::read_layout(report);
    locate_tables(layout, logon.database);
    log_on(logon);
    print(layout, copies);
}

// All data sources of a layout are this connection, which is opened anew only for another logon.
void FrmGenImprimirEnCrystal::log_on(const ConnectionData& logon)
{
    if (connection.is_open() && connection.connection_string == connection_string(logon)) return;
    open_connection(connection, logon);
}

void FrmGenImprimirEnCrystal::compose(const printing::Layout& layout, pages::PageSink& sink)
{
    std::vector<printing::GivenValue> all = parameters_;
    all.insert(all.end(), auxiliary_.begin(), auxiliary_.end());
    printing::compose(layout, all, connection, local_now(), sink);
}

void FrmGenImprimirEnCrystal::show(const printing::Layout& layout)
{
    PageList list;
    compose(layout, list);
    show_pages(std::move(list.pages), properties(layout));
}

void FrmGenImprimirEnCrystal::print(const printing::Layout& layout, std::int16_t copies)
{
    PageList list;
    compose(layout, list);
    print_pages(list.pages, {properties(layout).title, u"", copies});
}

// The title tells apart what is open or waits at the printer: the layout and the document that it is about.
pages::DocumentProperties FrmGenImprimirEnCrystal::properties(const printing::Layout& layout) const
{
    const Text document = parameters_.empty() ? Text() : u" " + parameters_.front().value.text();
    return {layout.name + document, layout.author};
}

FrmGenImprimirEnCrystal& printing_form()
{
    // Never destroyed: a driver must not be called while the module is being unloaded.
    static auto& form = *new FrmGenImprimirEnCrystal;
    return form;
}

namespace {

// The form with its connection opened anew and the document's parameters handed to it.
FrmGenImprimirEnCrystal& prepared_form(Session& session, const ReportedDocument& document)
{
    FrmGenImprimirEnCrystal& form = printing_form();
    form.connection.close();
    form.connection.command_timeout = Connection::default_timeout;
    open_connection(form.connection, logon_of(session));
    form.PasarParametros(report_parameters(document));
    return form;
}

} // namespace

void print_document(Session& session, const ReportedDocument& document, const Text& report, bool as_pdf,
                    std::int16_t copies)
{
    quietly([&] {
        FrmGenImprimirEnCrystal& form = prepared_form(session, document);
        if (as_pdf)
            form.pmImprimirPDF(report, logon_of(session), copies, report_pdf_path(session, document.folio));
        else
            form.pmImprimirImpresora(report, logon_of(session), copies);
        form.PasarParametros({});
    });
}

void show_document(Session& session, const ReportedDocument& document, const Text& report)
{
    quietly([&] {
        FrmGenImprimirEnCrystal& form = prepared_form(session, document);
        form.pmImprimirVisor(report, logon_of(session));
        form.PasarParametros({});
    });
}

} // namespace tolvex
