#include "developer_console/console_form.hpp"

#include "developer_console/methods.hpp"
#include "platform/form_layout.hpp"
#include "platform/in_memory/forms_in_memory.hpp"
#include "support/text_io.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

namespace tolvex::developer_console {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

// Writes down what it is asked for; COM and its component are Windows'.
struct Recorder : Component
{
    Outcome call(const Call& call) override
    {
        made.push_back(to_utf8(call.method));
        Outcome outcome;
        if (call.gives_result) outcome.result = call.method == refused ? u"False" : u"True";
        if (call.method == refused) outcome.error = u"No existe";
        outcome.variable = u"42";
        return outcome;
    }

    std::vector<std::string> made;
    Text refused;
};

struct MemoryOfTest : FieldMemory
{
    std::optional<Text> recall(TextView field) override
    {
        const auto found = kept.find(field);
        return found == kept.end() ? std::nullopt : std::optional(found->second);
    }
    void keep(TextView field, const Text& value) override { kept[Text(field)] = value; }

    std::map<Text, Text, std::less<>> kept;
};

class DeveloperConsole : public ::testing::Test
{
protected:
    Surroundings surroundings()
    {
        return {recorder_, memory_, [this](const Text& text) { copied_ = to_utf8(text); }, u"C:\\demo",
                u"C:\\factura.rdl"};
    }

    Recorder recorder_;
    MemoryOfTest memory_;
    std::string copied_;
    ConsoleForm form_{surroundings()};
    FormInMemory view_{form_};
};

// Of "Class.Method(name type, …) result" in the hand-written list of the public surface.
struct Listed
{
    explicit Listed(const std::string& line)
        : name(line.substr(line.find('.') + 1, line.find('(') - line.find('.') - 1)),
          parameters(line.find("()") != std::string::npos ? 0
                                                          : std::count(line.begin(), line.end(), ',') + 1),
          gives_result(line.ends_with(" Boolean") || line.ends_with(") text"))
    {}
    std::string name;
    long parameters;
    bool gives_result;
};

TEST_F(DeveloperConsole, has_a_button_with_sample_arguments_for_every_public_method)
{
    std::ifstream surface(TOLVEX_SOURCE_DIR "/tests/windows/surface.txt");
    std::size_t found = 0;
    for (std::string line; std::getline(surface, line);) {
        if (line.empty() || line.starts_with('#')) continue;
        const Listed listed(line);
        SCOPED_TRACE(line);
        ++found;
        const Method& method = method_named(to_text(listed.name));
        EXPECT_EQ(line.substr(0, line.find('.')), to_utf8(method.class_name));
        EXPECT_EQ(method.gives_result, listed.gives_result);
        EXPECT_EQ(view_.kind(method.name), ControlKind::button);
        const auto calls = calls_of(method, view_);
        ASSERT_FALSE(calls.empty());
        for (const Call& call : calls) EXPECT_EQ(static_cast<long>(call.arguments.size()), listed.parameters);
    }
    EXPECT_EQ(found, methods().size());
}

TEST_F(DeveloperConsole, issues_in_the_calling_order_until_a_call_fails)
{
    view_.click(u"EmitirTodo");
    EXPECT_THAT(recorder_.made,
                ElementsAre("SetDatosConexion", "AbrirConexion", "SetDatosClientes", "GetDatosEmpresa",
                            "GetDatosSucursal", "GetDatosCertificado", "InicializaDetalleFactura",
                            "SetDetalleDocto", "SetDetalleDocto", "GeneraFacturaElectronica"));
    EXPECT_EQ(view_.text(u"Folio"), u"42");
    EXPECT_EQ(view_.text(u"Resultado"), u"Se emitió el folio 42.");

    recorder_.made.clear();
    recorder_.refused = u"GetDatosSucursal";
    view_.click(u"EmitirTodo");
    EXPECT_EQ(recorder_.made.back(), "GetDatosSucursal");
    EXPECT_EQ(view_.rows(u"Llamadas").back().at(4), u"No existe");
    EXPECT_EQ(view_.text(u"Resultado"), u"GetDatosSucursal no se logró. No existe");
}

TEST_F(DeveloperConsole, writes_its_calls_as_a_script)
{
    view_.type(u"Contraseña", u"secreta");
    view_.type(u"Nombre", u"El \"Güero\"");
    view_.type(u"FechaCancelacion", u"2011-03-15");
    view_.type(u"TasaDeIva", u"dieciséis");
    view_.type(u"Renglones", u"A|Café|-1.5|KG|1.|.5|1|1\r\n\r\n");
    for (const TextView method : {u"SetDatosConexion", u"SetDatosClientes", u"SetDetalleDocto",
                                  u"GeneraFacturaElectronica", u"CancelaFacturaElectronica"})
        view_.click(method);
    view_.click(u"Copiar");
    EXPECT_THAT(
        copied_,
        AllOf(
            HasSubstr("Set conexion = CreateObject(\"TOLVEX.ConfigFE\")\r\n"
                      "conexion.SetDatosConexion \"\", clave, \"C:\\demo\\tolvex.db\", \"sqlite:\"\r\n"),
            HasSubstr("cliente.SetDatosClientes \"PEGM-800101-AB1\", \"El \"\"Güero\"\"\", "),
            HasSubstr(", 1, \"1\", Now, \"C:\\demo\", 0, 0, \"PESOS\", 1, \"\", \"\", \"\"\r\n"),
            HasSubstr(
                "renglones.SetDetalleDocto \"1\", \"F\", \"A\", \"Café\", -1.5, \"KG\", \"1.\", \".5\", 1, 1\r\n"),
            HasSubstr(
                "folio = \"1\"\r\n"
                "WScript.Echo \"GeneraFacturaElectronica: \" & documento.GeneraFacturaElectronica(folio, "
                "True, \"ingreso\", \"dieciséis\", False)\r\n"
                "WScript.Echo \"folio: \" & folio\r\n"),
            HasSubstr("documento.CancelaFacturaElectronica(\"42\", CDate(\"2011-03-15\"), 1, 1, False)"),
            Not(HasSubstr("secreta"))));
    EXPECT_EQ(copied_.find("TOLVEX.GeneraDocto"), copied_.rfind("TOLVEX.GeneraDocto"))
        << "one object of a class";

    view_.click(u"Limpiar");
    EXPECT_TRUE(view_.rows(u"Llamadas").empty());
    view_.click(u"Copiar");
    EXPECT_THAT(copied_, Not(HasSubstr("CreateObject")));
}

TEST_F(DeveloperConsole, remembers_its_fields_but_no_password)
{
    view_.type(u"Servidor", u"caja,1433");
    view_.type(u"Contraseña", u"secreta");
    view_.pick(u"Tipo", u"egreso");
    view_.tick(u"CtrlFolioInterno", false);
    view_.click(u"Main"); // from here on they are kept: a call may end the process
    ConsoleForm next_day(surroundings());
    FormInMemory view(next_day);
    EXPECT_EQ(view.text(u"Servidor"), u"caja,1433");
    EXPECT_EQ(view.chosen(u"Tipo"), u"egreso");
    EXPECT_FALSE(view.checked(u"CtrlFolioInterno"));
    EXPECT_EQ(view.text(u"Contraseña"), u"");
    for (const auto& [field, value] : memory_.kept) EXPECT_NE(value, u"secreta");
}

TEST_F(DeveloperConsole, pages_share_a_place_between_their_tabs_and_the_log)
{
    const FormLayout least = lay_out(form_.description());
    for (const FormLayout& layout :
         {least, lay_out(form_.description(), {least.size.width + 50, least.size.height + 50})}) {
        const auto log = std::find_if(layout.controls.begin(), layout.controls.end(),
                                      [](const PlacedControl& c) { return c.control->name == u"Llamadas"; });
        EXPECT_EQ(layout.pages.size(), 6u);
        EXPECT_TRUE(log->page.empty());
        std::map<TextView, int> first_rows;
        for (const PlacedControl& control : layout.controls) {
            if (control.page.empty()) continue;
            EXPECT_GT(control.box.y, layout.tabs.bottom()) << to_utf8(control.control->name);
            EXPECT_LT(control.box.bottom(), log->box.y) << to_utf8(control.control->name);
            const int row = first_rows.try_emplace(control.page, control.box.y).first->second;
            EXPECT_NEAR(row, first_rows.begin()->second, 2) << to_utf8(control.page);
        }
        EXPECT_EQ(first_rows.size(), layout.pages.size());
    }
    EXPECT_LT(least.size.width, 600);
    EXPECT_LT(least.size.height, 350) << "the smallest screens of shops";
}

} // namespace
} // namespace tolvex::developer_console
