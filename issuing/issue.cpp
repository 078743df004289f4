#include "issuing/issue.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "issuing/cfdi_document.hpp"
#include "issuing/document_rows.hpp"
#include "issuing/master_data.hpp"
#include "issuing/original_string.hpp"
#include "issuing/seal.hpp"
#include "issuing/stored_documents.hpp"
#include "issuing/turn.hpp"
#include "issuing/xml_files.hpp"
#include "platform/messages.hpp"

#include <cmath>
#include <optional>

namespace tolvex {

namespace {

constexpr TextView without_a_turn =
    u"El documento se emitió sin esperar más su turno: otra estación ocupa desde hace 15 segundos la base de datos "
    u"o la carpeta de trabajo. Revise que sus documentos no se hayan mezclado (tolvex verifica)";

// One issue from the folio range to the XML file.
class Issue
{
public:
    Issue(Session& session, Text& vlnFactura, const IssueOptions& options)
        : session_(session), vlnFactura_(vlnFactura), options_(options)
    {}

    IssueResult run();
    Stored stored() const { return stored_; }
    // What became of a document that was not issued whole: the last error with what it means for its rows.
    Text failure(const Text& reason) const;

private:
    bool load_folio_range();
    void take_turn();
    bool take_folio();
    void seal();
    Text store();
    void remove_work_files();

    Connection& connection() { return shared_connection(session_); }
    bool fail(const Text& message, const Text& reason, const Text& title, MessageIcon icon);

    Session& session_;
    Text& vlnFactura_;
    const IssueOptions& options_;
    DocumentValues document_;
    std::optional<Turn> turn_;
    Stored stored_ = Stored::nothing;
};

IssueResult Issue::run()
{
    if (!load_folio_range()) return {};
    take_turn();
    if (options_.CtrlFolioInterno && !take_folio()) return {};
    document_ = document_values(session_, folio_number(vlnFactura_), options_);
    seal();
    const Text identifier = store();
    const Text xml_path = write_comprobante(session_, document_, identifier, options_.vlGeneraAddenda);
    if (xml_path.empty()) return {};
    remove_work_files();
    if (turn_->waited_in_vain()) remember_error(Text(without_a_turn));
    return {true, document_.sello, identifier, xml_path, stored_};
}

// The message is the documented one; the last error tells the reason too.
bool Issue::fail(const Text& message, const Text& reason, const Text& title, MessageIcon icon)
{
    turn_.reset(); // nobody else has to wait until the message is read
    remember_error(message + u": " + reason);
    show_message(message, title, icon);
    return false;
}

bool Issue::load_folio_range()
{
    const Text& range = session_.gClaveFolio;
    if (fgCargaDatosFolio(session_, range)) return true;
    const Text reason = last_error(); // none when there is no such range
    return fail(u"No se pudo obtener los datos de los folios digitales para la empresa No " +
                    decimal(session_.gnEmpresa) + u" y el Registro No. " + range,
                reason.empty() ? u"no existe el rango de folios " + range : reason, component_title,
                MessageIcon::none);
}

void Issue::take_turn()
{
    const Text& folder = session_.gRutaDeArchivos;
    turn_.emplace(connection(), folder);
    if (discard_old_batch(folder)) remove_unfinished_xml_files(folder);
    if (options_.discards_old_work_files) remove_seal_files(folder);
}

bool Issue::take_folio()
{
    vlnFactura_ = u"0";
    if (next_folio_of_range(session_, session_.gClaveFolio, vlnFactura_)) return true;
    connection().roll_back();
    return fail(u"No se pudo obtener folio de factura, favor de verificar",
                u"al rango de folios " + session_.gClaveFolio + u" ya no le quedan folios",
                u"Facturación Electronica", MessageIcon::information);
}

void Issue::seal()
{
    const Text& folder = session_.gRutaDeArchivos;
    const Text original = original_string(session_, document_);
    const Digest digest = digest_for(document_.DocFechaDate);
    write_seal_batch(folder, digest);
    document_.original_string = utf8_characters(original);
    write_original_string(folder, document_.original_string);
    document_.sello =
        clean_seal(seals_in_process() ? seal_in_process(folder, digest, document_.original_string)
                                      : run_seal_batch(folder));
}

// Deliberate: statement after statement without a transaction; a failure leaves what was stored before it.
Text Issue::store()
{
    WriteBurst burst(connection());
    DocumentRows rows(session_, document_, vlnFactura_);
    rows.store_header();
    stored_ = Stored::partly;
    const Text identifier = rows.read_identifier();
    rows.store_receiver(identifier);
    rows.store_lines(identifier);
    if (options_.CtrlFolioInterno) rows.advance_counter();
    stored_ = Stored::wholly;
    burst.finish();
    return identifier;
}

// The document is issued: work files that stay behind do not undo that.
void Issue::remove_work_files()
{
    quietly([&] { remove_seal_files(session_.gRutaDeArchivos); });
}

Text Issue::failure(const Text& reason) const
{
    const Text document = u" con el folio " + vlnFactura_ + u" de la empresa " + decimal(session_.gnEmpresa) +
                          u", sucursal " + decimal(session_.gnSucursal);
    switch (stored_) {
    case Stored::nothing:
        return reason;
    case Stored::partly:
        return u"El documento quedó a medias" + document +
               u". Bórrelo con \"tolvex borra\" antes de emitirlo otra vez. " + reason;
    case Stored::wholly:
        return u"El documento quedó guardado" + document +
               u"; falta el XML. No lo emita otra vez: escriba el XML con \"tolvex xml\". " + reason;
    }
    return reason;
}

} // namespace

double folio_number(TextView folio)
{
    const auto first_zero = folio.find(u'0');
    return std::floor(to_number(first_zero == TextView::npos ? folio : folio.substr(first_zero)));
}

IssueResult issue_document(Session& session, Text& vlnFactura, const IssueOptions& options)
{
    Issue issue(session, vlnFactura, options);
    const IssueResult result = trapping(IssueResult(), [&] { return issue.run(); });
    if (result.issued) return result;
    remember_error(issue.failure(last_error()));
    return {false, {}, {}, {}, issue.stored()};
}

} // namespace tolvex
