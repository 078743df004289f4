#include "platform/pages/printer.hpp"

#include "core/errors.hpp"
#include "support/files.hpp"
#include "support/ipp_printer.hpp"
#include "support/sample_page.hpp"
#include "support/shell.hpp"

#include <gtest/gtest.h>

namespace tolvex::testing {
namespace {

class NativePrinter : public ::testing::Test
{
protected:
    // Queues that this machine may have take no part.
    NativePrinter()
    {
        setenv("CUPS_SERVER", (folder_.path() / "none").c_str(), 1);
        unsetenv("PRINTER");
        unsetenv("LPDEST");
    }

    std::string text_of(const std::string& pdf) const
    {
        write_file(folder_.path() / "job.pdf", pdf);
        return run_in_shell("pdftotext job.pdf -", folder_.path()).output;
    }

    const std::vector<pages::Page> two_pages_ = {sample_page(), sample_page()};
    const TemporaryFolder folder_;
};

TEST_F(NativePrinter, takes_the_pages_with_title_and_copies)
{
    const IppPrinter printer;
    print_pages(two_pages_, {u"Factura Ñ 'A' 1", printer.address(), 3});
    const IppPrinter::Job job = printer.job(1);
    EXPECT_EQ(job.title, "Factura Ñ 'A' 1");
    EXPECT_EQ(job.copies, "3");
    const std::string text = text_of(job.document), words = "Señor Núñez: 1 € “así” – ¿ya?";
    EXPECT_NE(text.find(words), std::string::npos) << text;
    EXPECT_NE(text.find(words, text.find(words) + 1), std::string::npos) << "only one page";
}

struct Away
{
    Text printer, said;
};

TEST_F(NativePrinter, one_that_is_not_there_is_named_in_the_error)
{
    for (const Away& away : {Away{u"", u"no hay una impresora predeterminada"}, Away{u"Caja 9", u"Caja 9: "},
                             Away{u"ipp://localhost:1/ipp/print", u"localhost"}}) {
        try {
            print_pages(two_pages_, {u"", away.printer, 1});
            ADD_FAILURE() << "printed on " << to_utf8(away.printer);
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 482);
            EXPECT_TRUE(error.description().starts_with(u"Error de impresora: ")) << error.what();
            EXPECT_NE(error.description().find(away.said), Text::npos) << error.what();
        }
    }
}

TEST_F(NativePrinter, one_that_does_not_take_the_format_prints_nothing)
{
    const IppPrinter pictures_only("image/jpeg");
    EXPECT_THROW(print_pages(two_pages_, {u"", pictures_only.address(), 1}), Error);
    EXPECT_TRUE(pictures_only.has_no_job());
}

} // namespace
} // namespace tolvex::testing
