#include "platform/in_memory/forms_in_memory.hpp"
#include "support/station.hpp"

namespace tolvex::testing {
namespace {

class Maintenance : public Station
{
protected:
    Maintenance() { use_toolkit(&toolkit_); }
    ~Maintenance() override { use_toolkit(nullptr); }

    ToolkitInMemory toolkit_;
};

TEST_F(Maintenance, a_company_is_added_and_listed)
{
    toolkit_.set_user(u"FrmCatEmpresas", [&](FormInMemory& form) {
        EXPECT_EQ(form.caption(), u"Alta de Empresas");
        form.type(u"txtNombre", u" ferretería ñandú ");
        form.type(u"txtRFC", u"fna010101aaa");
        form.click(u"Command1");
        EXPECT_FALSE(form.is_open());
    });
    Maestros().MuestraEmpresas(u"", u"", database_path(), u"sqlite:");
    FormInMemory& picker = toolkit_.open_form(u"FrmMuestraEmpresas");
    EXPECT_EQ(picker.rows(u"LstLQS3").size(), 1u);
    picker.click(u"Nuevo");
    EXPECT_EQ(picker.rows(u"LstLQS3").back(), (ListRow{u"2", u"FERRETERÍA ÑANDÚ", u"FNA010101AAA"}));
    EXPECT_EQ(messages.size(), 2u);
}

} // namespace
} // namespace tolvex::testing
