// Writes a page with a mark of every kind: as hoja.pdf, which pages_test.sh reads, and over a file in use.
#include "platform/pages/pdf.hpp"

#include "components.hpp"
#include "core/errors.hpp"
#include "platform/files.hpp"
#include "support/sample_page.hpp"

namespace tolvex::testing {
namespace {

void write_sample(TextView path)
{
    pages::PdfFile pdf(path, {u"Factura “A1”", u"José Peña"});
    pdf.take(sample_page());
    pdf.finish();
}

TEST(Pages, are_written) { write_sample(u"hoja.pdf"); }

TEST(Pages, a_file_that_another_program_has_open_stays_and_the_user_is_told)
{
    files::write(u"abierto ñ.pdf", "antes");
    const HANDLE reader =
        CreateFileW(L"abierto ñ.pdf", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    try {
        write_sample(u"abierto ñ.pdf");
        ADD_FAILURE() << "it was replaced";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_NE(error.description().find(u"otro programa lo tiene abierto"), Text::npos) << error.what();
    }
    CloseHandle(reader);
    EXPECT_EQ(files::read(u"abierto ñ.pdf"), "antes");
    EXPECT_FALSE(files::exists(u"abierto ñ.pdf.tmp"));
    write_sample(u"abierto ñ.pdf");
}

} // namespace
} // namespace tolvex::testing
