// Issued documents printed through the public class.
#include "core/errors.hpp"
#include "printing/composing/composer.hpp"
#include "printing/default_layout.hpp"
#include "printing/document_report.hpp"
#include "printing/frm_gen_imprimir_en_crystal.hpp"
#include "support/shell.hpp"
#include "support/station.hpp"

#include <gmock/gmock.h>

namespace tolvex::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class PrintDocument : public Station
{
protected:
    PrintDocument()
    {
        stage_document();
        EXPECT_TRUE(issue(u"A00123"));
        stage_document();
        EXPECT_TRUE(issue(u"A00123", u"egreso")) << to_utf8(last_error());
        write("factura.rdl", layouts::factura);
        forget_error();
    }
    ~PrintDocument() override { printing_form().connection.close(); }

    void write(const std::string& name, const std::string& text) { write_file(folder() / name, text); }

    // To PDF; what the last error then is.
    std::string exported(const std::string& layout, const Text& folio = u"A00123", std::int16_t copies = 1)
    {
        forget_error();
        genera_docto.ImprimeDocuento(folio, 1, 1, false, folder_text() + u"\\" + to_text(layout), true,
                                     copies);
        return to_utf8(last_error());
    }

    std::string text_of(const std::string& pdf)
    {
        return run_in_shell("pdftotext -layout " + quoted(pdf) + " -", folder()).output;
    }
};

TEST_F(PrintDocument, the_layout_of_the_program_tells_all_of_both_documents_of_a_folio)
{
    EXPECT_EQ(report_pdf_path(session(), u" A00123 "), folder_text() + u"\\FacturaElec_A00123.pdf");
    EXPECT_EQ(exported("factura.rdl", u"A00123", 3), ""); // one file, whatever the copies
    const std::string text = text_of("FacturaElec_A00123.pdf");
    for (const char* told : {"FACTURA", "NOTA DE CRÉDITO", "María Peña", "PEGM800101AB1", "Café", "1,508.00",
                             "Página 1 de 1", "SELLO DIGITAL", "||3.0|"})
        EXPECT_THAT(text, HasSubstr(told));
    EXPECT_THAT(text, Not(HasSubstr("CANCELADO")));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 2);
    EXPECT_TRUE(printing_form().connection.is_open());

    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"A00123", Date::of(2011, 12, 31), 1, 1));
    EXPECT_EQ(exported("factura.rdl"), "");
    EXPECT_THAT(text_of("FacturaElec_A00123.pdf"), HasSubstr("CANCELADO"));
}

// Where every mark of an invoice and a credit note stands.
TEST_F(PrintDocument, the_layout_of_the_program_puts_its_marks_where_they_were_looked_at)
{
    struct Described : pages::PageSink
    {
        void take(pages::Page page) override { text += pages::described(page); }
        std::string text;
    } marks;
    printing::compose(printing::read_layout(folder_text() + u"\\factura.rdl"),
                      report_parameters({u"A00123", 1}), shared_connection(session()), Date::of(2011, 3, 15),
                      marks);
    EXPECT_EQ(marks.text, read_file(TOLVEX_SOURCE_DIR "/tests/golden/factura_impresa.txt"));
}

TEST_F(PrintDocument, what_fails_prints_nothing_and_is_kept_as_the_last_error)
{
    EXPECT_EQ(exported("factura.rdl"), "");
    const std::string before = content("FacturaElec_A00123.pdf");
    std::string other = layouts::factura;
    other.replace(other.find("FE_VENTAS_RESUMEN_DET"), 21, "FE_NO_HAY");
    write("otra_tabla.rdl", other);
    write("roto.rdl", "<Report");
    write("bomba.rdl", "<!DOCTYPE a [<!ENTITY b 'b'>]><Report>&b;</Report>");
    write("sin_parametros.rdl",
          "<Report xmlns='http://schemas.microsoft.com/sqlserver/reporting/2008/01/"
          "reportdefinition'><Body><Height>1in</Height></Body><Width>1in</Width><Page/></Report>");
    for (const auto& [layout, told] : {std::pair{"no_hay.rdl", "no_hay.rdl"},
                                       {"otra_tabla.rdl", "conjunto de datos «Ventas»"},
                                       {"roto.rdl", "ínea 1"},
                                       {"bomba.rdl", "DOCTYPE"},
                                       {"sin_parametros.rdl", "@cIndFactura"}})
        EXPECT_THAT(exported(layout), HasSubstr(told));
    EXPECT_EQ(content("FacturaElec_A00123.pdf"), before);

    session().gBd = folder_text() + u"/sin/carpeta.db";
    EXPECT_NE(exported("factura.rdl"), "");
    EXPECT_FALSE(printing_form().connection.is_open());
}

} // namespace
} // namespace tolvex::testing
