// Any bytes may be handed over as a report layout: composed over a few rows and painted they give pages, or a
// message.
#include "core/errors.hpp"
#include "platform/pages/pdf.hpp"
#include "printing/composing/composer.hpp"
#include "support/schema_change.hpp"
#include "support/temporary_folder.hpp"
#include "trials/fuzz/require.hpp"

namespace {

using namespace tolvex;
using namespace tolvex::printing;

// The rows that layouts of the tests are made for; statements of the layout itself never reach the database.
class FewRows
{
public:
    FewRows()
    {
        connection.connection_string = u"server=sqlite:;database=" + folder_.file("ventas.db");
        connection.open();
        testing::change_schema(connection,
                               u"create table ventas (cZona nvarchar(20), cArticulo nvarchar(40), nAnno int,"
                               u" nImporte decimal(19,4), dFecha datetime)");
        connection.execute(u"Insert Into ventas Values ('Sur', 'Pan', 2010, 10, '2010-03-15 10:00:00'),"
                           u" ('Norte', 'Café de altura', 2010, 20, '2010-04-15 10:00:00'),"
                           u" ('Sur', 'Azúcar', 2011, 30, Null), ('Norte', Null, 2011, 40.5, '2011-03-15')");
    }

    Connection connection;

private:
    TemporaryFolder folder_;
};

// All pages are composed, a few painted.
class FirstPages : public pages::PageSink
{
public:
    explicit FirstPages(pages::PageSink& sink) : sink_(sink) {}
    void take(pages::Page page) override
    {
        if (++count_ <= 10) sink_.take(std::move(page));
    }

private:
    pages::PageSink& sink_;
    int count_ = 0;
};

void run_on_few_rows(Layout& layout)
{
    for (DataSet& data_set : layout.data_sets) {
        data_set.command = Expression::of(u"Select * From ventas");
        data_set.stored_procedure = data_set.whole_table = false;
        data_set.parameters.clear();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static FewRows rows;
    static const TemporaryFolder folder;
    try {
        Layout layout = parse_layout({reinterpret_cast<const char*>(bytes), size});
        run_on_few_rows(layout);
        pages::PdfFile file(folder.file("informe.pdf"), {});
        FirstPages first(file);
        compose(layout, {}, rows.connection, Date{40'000}, first);
        file.finish();
    } catch (const Error& error) {
        require(!error.description().empty());
    }
    return 0;
}
