// last_error() as a host reads it after a call.
#include "core/errors.hpp"
#include "support/station.hpp"

#include <type_traits>

namespace tolvex::testing {
namespace {

using LastError = Station;

TEST_F(LastError, is_empty_after_every_call_that_met_no_error)
{
    stage_document();
    ASSERT_TRUE(issue(u"A00123"));
    write_file(folder() / "ventas.txt", "# nada\n");
    Text folio = u"A00124";
    ConfigFE config;
    Addenda addenda;
    DetFacturas lines;
    GeneraDocto& documents = genera_docto;
    const Text database = database_path();
    const std::function<void()> calls[] = {
        [&] { config.SetDatosConexion(u"", u"", database, u"sqlite:"); },
        [&] { config.AbrirConexion(); },
        [&] { stage(); },
        [&] { lines.InicializaDetalleFactura(); },
        [&] { lines.SetDetalleDocto(folio, u"F", u"", u"Pan", 1, u"PZA", 10, 1.6, 10, 16); },
        [&] { addenda.InicializaAddenda(); },
        [&] { addenda.SetAddenda(u"AAA010101AAA", 1, 0); },
        [&] { addenda.SetAddendaDet(1, u"AAA010101AAA", 1, 0); },
        [&] { documents.GetDatosEmpresa(1); },
        [&] { documents.GetDatosSucursal(1, 1); },
        [&] { documents.GetDatosCertificado(1); },
        [&] { documents.GeneraFacturaElectronica(folio); },
        [&] { documents.Main(); },
        [&] { documents.fgObtenFolioFactura(u"2", folio); },
        [&] { write_xml(u"A00123", 1, 1, false, folder_text()); },
        [&] { verify_documents({.folder = folder_text()}, {}); }, // it finds a certificate that is none
        [&] { documents.CancelaFacturaElectronica(u"A00123", Date::of(2011, 3, 15), 1, 1); },
        [&] { documents.BorraFacturaElectronica(1, 1, u"A00123"); },
        [&] {
            documents.GeneraFacturaElectronicaDesdeArchivoPlano(folder_text(), u"ventas.txt", u"", u"",
                                                                u"sqlite:", database);
        },
        [&] { config.CierraConexion(); }};
    for (std::size_t i = 0; i < std::size(calls); ++i) {
        remember_error(u"de antes");
        calls[i]();
        EXPECT_EQ(last_error(), u"") << "call " << i;
    }
}

TEST_F(LastError, tells_what_does_not_exist_and_the_results_stay)
{
    load_issuer();
    const Date day = Date::of(2011, 3, 15);
    Text folio;
    const auto expect = [](bool result, bool expected, const Text& told) {
        EXPECT_EQ(result, expected) << to_utf8(told);
        EXPECT_EQ(last_error(), u"No existe " + told);
    };
    expect(genera_docto.GetDatosEmpresa(9), false, u"la empresa 9");
    expect(genera_docto.GetDatosSucursal(1, 9), false, u"la sucursal 9 de la empresa 1");
    expect(genera_docto.GetDatosCertificado(2), false, u"el certificado 1 de la empresa 2");
    expect(genera_docto.fgObtenFolioFactura(u"9", folio), false,
           u"el rango de folios 9, o ya no le quedan folios");
    expect(genera_docto.CancelaFacturaElectronica(u"99", day, 1, 2), true,
           u"la factura 99 de la empresa 1, sucursal 2");
    expect(genera_docto.CancelaFacturaElectronica(u"99", day, 1, 2, true), true,
           u"la nota de crédito 99 de la empresa 1, sucursal 2");
    expect(genera_docto.BorraFacturaElectronica(1, 2, u"99"), true,
           u"el documento 99 de la empresa 1, sucursal 2");
    EXPECT_TRUE(messages.empty());
}

TEST_F(LastError, of_a_statement_that_fails_is_the_databases_own)
{
    EXPECT_FALSE(genera_docto.BorraFacturaElectronica(1, 1, u"O'Hara"));
    EXPECT_FALSE(last_error().starts_with(u"No existe")) << to_utf8(last_error());
    EXPECT_NE(last_error(), u"");

    Receiver receiver;
    receiver.ClaveFolio = u"1'";
    stage_document(receiver);
    EXPECT_FALSE(issue());
    ASSERT_EQ(messages.size(), 2u); // the database's words, then the documented ones
    EXPECT_EQ(last_error(), messages[1].text + u": " + messages[0].text);
}

// What is moved from one object serves both: the classes hold nothing, an error gives its words away.
TEST(PublicClasses, serve_on_when_they_were_moved_from)
{
    static_assert(std::is_empty_v<ConfigFE> && std::is_empty_v<Cliente> && std::is_empty_v<DetFacturas> &&
                  std::is_empty_v<Addenda> && std::is_empty_v<GeneraDocto> && std::is_empty_v<Maestros>);
    Error error(5, u"ñ");
    const Error other = std::move(error);
    EXPECT_STREQ(other.what(), "ñ");
    EXPECT_EQ(to_text(error.what()), error.description());
}

} // namespace
} // namespace tolvex::testing
