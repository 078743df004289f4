// Prints on the printers of run_printing.sh: "Caja" and the default one, "Mostrador".
#include "platform/pages/printer.hpp"

#include "components.hpp"
#include "core/errors.hpp"
#include "platform/pages/pdf.hpp"
#include "support/sample_page.hpp"

namespace tolvex::testing {
namespace {

std::vector<pages::Page> report_of_two_pages()
{
    pages::Page lying = sample_page();
    std::swap(lying.width, lying.height);
    return {sample_page(), lying};
}

// The number and the words of the error; zero when it was printed.
std::pair<std::int32_t, Text> outcome(const std::vector<pages::Page>& pages, const PrintJob& job)
{
    try {
        print_pages(pages, job);
    } catch (const Error& error) {
        return {error.number(), error.description()};
    }
    return {0, u""};
}

// The paper is compared with the file.
TEST(Printing, the_default_printer_takes_the_pages_with_their_title)
{
    pages::PdfFile pdf(u"papel.pdf", {});
    for (const pages::Page& page : report_of_two_pages()) pdf.take(page);
    pdf.finish();
    EXPECT_EQ(outcome(report_of_two_pages(), {u"Factura Ñ 1", u"", 1}).first, 0);
}

TEST(Printing, copies_are_the_printers_work)
{
    EXPECT_EQ(outcome({sample_page()}, {u"Tres copias", u"Caja", 3}).first, 0);
}

TEST(Printing, a_printer_that_is_not_there_is_named_in_the_error)
{
    const auto [number, words] = outcome({sample_page()}, {u"Nada", u"Impresora que no hay", 1});
    EXPECT_EQ(number, 482);
    EXPECT_TRUE(words.starts_with(u"Error de impresora: Impresora que no hay: ")) << to_utf8(words);
}

// A page whose last picture is damaged: nothing of it may reach the printer.
TEST(Printing, a_damaged_picture_takes_the_whole_job_back)
{
    pages::Picture damaged = *sample_picture("logo.png");
    damaged.bytes.resize(60);
    pages::Page page = sample_page();
    page.marks.push_back(
        pages::PictureMark{{40, 500, 64, 48}, {40, 500, 64, 48}, std::make_shared<pages::Picture>(damaged)});
    EXPECT_EQ(outcome({page}, {u"Dañada", u"Caja", 1}).first, 5);
}

} // namespace
} // namespace tolvex::testing
