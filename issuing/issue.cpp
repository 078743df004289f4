#include "issuing/issue.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "issuing/cfdi_document.hpp"
#include "issuing/document_rows.hpp"
#include "issuing/master_data.hpp"
#include "issuing/original_string.hpp"
#include "issuing/seal.hpp"
#include "issuing/stored_documents.hpp"
#include "platform/messages.hpp"

#include <cmath>

namespace tolvex {

namespace {

// One issue from the folio range to the XML file.
class Issue
{
public:
    Issue(Session& session, Text& vlnFactura, const IssueOptions& options)
        : session_(session), vlnFactura_(vlnFactura), options_(options)
    {}

    IssueResult run();

private:
    bool load_folio_range();
    bool take_folio();
    double folio_number() const;
    void seal();
    Text store();
    void remove_work_files();

    Connection& connection() { return shared_connection(session_); }
    bool fail(const Text& message, const Text& title, MessageIcon icon);

    Session& session_;
    Text& vlnFactura_;
    const IssueOptions& options_;
    DocumentValues document_;
};

IssueResult Issue::run()
{
    if (!load_folio_range()) return {};
    if (options_.CtrlFolioInterno && !take_folio()) return {};
    document_ = document_values(session_, folio_number(), options_);
    seal();
    const Text identifier = store();
    const Text xml_path = write_comprobante(session_, document_, identifier, options_.vlGeneraAddenda);
    if (xml_path.empty()) return {};
    remove_work_files();
    return {true, document_.sello, xml_path};
}

bool Issue::fail(const Text& message, const Text& title, MessageIcon icon)
{
    remember_error(message);
    show_message(message, title, icon);
    return false;
}

bool Issue::load_folio_range()
{
    if (fgCargaDatosFolio(session_, session_.gClaveFolio)) return true;
    return fail(u"No se pudo obtener los datos de los folios digitales para la empresa No " +
                    decimal(session_.gnEmpresa) + u" y el Registro No. " + session_.gClaveFolio,
                component_title, MessageIcon::none);
}

bool Issue::take_folio()
{
    vlnFactura_ = u"0";
    if (next_folio_of_range(session_, session_.gClaveFolio, vlnFactura_)) return true;
    connection().roll_back();
    return fail(u"No se pudo obtener folio de factura, favor de verificar", u"Facturación Electronica",
                MessageIcon::information);
}

// Deliberate: the number starts at the first "0" of a zero-padded folio, so A00123 is 123 and 120 is 0.
double Issue::folio_number() const
{
    const auto first_zero = vlnFactura_.find(u'0');
    return std::floor(to_number(first_zero == Text::npos ? vlnFactura_ : vlnFactura_.substr(first_zero)));
}

void Issue::seal()
{
    const Text& folder = session_.gRutaDeArchivos;
    const Text original = original_string(session_, document_);
    write_seal_batch(folder, digest_for(document_.DocFechaDate));
    document_.original_string = utf8_characters(original);
    write_original_string(folder, document_.original_string);
    document_.sello = clean_seal(run_seal_batch(folder));
}

// Deliberate: statement after statement without a transaction; a failure leaves what was stored before it.
Text Issue::store()
{
    WriteBurst burst(connection());
    DocumentRows rows(session_, document_, vlnFactura_);
    rows.store_header();
    const Text identifier = rows.read_identifier();
    rows.store_receiver(identifier);
    rows.store_lines(identifier);
    if (options_.CtrlFolioInterno) rows.advance_counter();
    burst.finish();
    return identifier;
}

// The document is issued: work files that stay behind do not undo that.
void Issue::remove_work_files()
{
    quietly([&] { remove_seal_files(session_.gRutaDeArchivos); });
}

} // namespace

IssueResult issue_document(Session& session, Text& vlnFactura, const IssueOptions& options)
{
    return trapping(IssueResult(), [&] { return Issue(session, vlnFactura, options).run(); });
}

} // namespace tolvex
