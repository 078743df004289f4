// The shop of a host that calls the automation component late bound, as scripts do; its forms are windows on
// the screen.
#include "trials/shop.hpp"

#include "tests/windows/client.hpp"
#include "tests/windows/forms/played_user.hpp"

#include <filesystem>

namespace tolvex::trials {

namespace {

std::string narrow(const std::wstring& text) { return std::filesystem::path(text).string(); }

// An object of the component or the system: each call looks its method up by name.
class Object
{
public:
    explicit Object(const wchar_t* program_id) : object_(create<IDispatch>(program_id)) {}

    // The result; throws its words when the call fails.
    Variant call(const wchar_t* method, std::initializer_list<VARIANT> arguments) const
    {
        auto* name = const_cast<wchar_t*>(method);
        DISPID id = DISPID_UNKNOWN;
        object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
        Answer answer = invoke(object_.Get(), id, {std::rbegin(arguments), std::rend(arguments)});
        if (FAILED(answer.outcome))
            throw std::runtime_error(narrow(method + (L": " + answer.description.str())));
        return std::move(answer.result);
    }

    void require(const wchar_t* method, std::initializer_list<VARIANT> arguments) const
    {
        if (call(method, arguments).boolVal == VARIANT_FALSE)
            throw std::runtime_error(narrow(method) + ": false");
    }

private:
    ComPtr<IDispatch> object_;
};

Variant text(const std::wstring& value) { return Variant(value.c_str()); }

Variant number(double value) { return Variant(value); }

VARIANT truth(bool value)
{
    VARIANT made = of_type(VT_BOOL, nullptr);
    made.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

VARIANT date(double days)
{
    VARIANT made = of_type(VT_DATE, nullptr);
    made.date = days;
    return made;
}

class WindowsShop : public Shop
{
public:
    explicit WindowsShop(const std::wstring& folder) : folder_(folder)
    {
        const Object connection(L"TOLVEX.ConfigFE");
        connection.call(L"SetDatosConexion", {text(L""), text(L""), text(database()), text(L"sqlite:")});
        connection.require(L"AbrirConexion", {});
        const Object documents(L"TOLVEX.GeneraDocto");
        documents.require(L"GetDatosEmpresa", {number(1)});
        documents.require(L"GetDatosSucursal", {number(1), number(1)});
        WindowsShop::load_certificate();
        WindowsShop::issue(-1); // names the folder that files go to
    }

    // Fewer than natively: under Wine a document with its two runs of openssl takes most of a second.
    int documents() const override { return 2'000; }

    void load_certificate() override
    {
        Object(L"TOLVEX.GeneraDocto").require(L"GetDatosCertificado", {number(1)});
    }

    void export_pdf() override
    {
        Object(L"TOLVEX.GeneraDocto")
            .call(L"ImprimeDocuento", {text(L"2"), number(1), number(1), truth(false),
                                       text(folder_ + L"\\factura.rdl"), truth(true)});
    }

    // Wine 8 never frees what a caption of the common controls' version 6 keeps of its font: with those of
    // these windows 0.6 MiB in a thousand rounds, 0.4 with 32 bits.
    void open_forms() override
    {
        using namespace played_user;
        Object(L"TOLVEX.Maestros")
            .call(L"MuestraEmpresas", {text(L""), text(L""), text(database()), text(L"sqlite:")});
        if (!play({presses_new, closes(form_title), closes(picker_title)}).all_taken || !nothing_is_open())
            throw std::runtime_error("the windows of the companies stay");
    }

    void issue(int number_of_document) override
    {
        Object(L"TOLVEX.Cliente")
            .call(L"SetDatosClientes",
                  {text(L"PEGM800101AB1"), text(L"María Peña Güemes"), text(L"Niños Héroes"), text(L"120"),
                   text(L""), text(L"Del Valle"), text(L""), text(L"Distrito Federal"),
                   text(L"Benito Juárez"), text(L"México"), text(L"03100"), text(L"300.00"), text(L"0.00"),
                   text(L"48.00"), text(L"348.00"), number(1), text(L"1"), date(40617.5868), text(folder_)});
        const Object lines(L"TOLVEX.DetFacturas");
        lines.call(L"InicializaDetalleFactura", {});
        for (int line = 0; line < 3; ++line)
            lines.call(L"SetDetalleDocto",
                       {text(L"1"), text(L"F"), text(L"CAF-01"), text(L"Café de altura, 1 kg"), number(1),
                        text(L"KG"), number(100), number(16), number(100), number(16)});
        Variant folio = text(L"0" + std::to_wstring(100'000 + number_of_document)); // one name each
        Object(L"TOLVEX.GeneraDocto").require(L"GeneraFacturaElectronica", {reference(VT_VARIANT, &folio)});
    }

private:
    std::wstring database() const { return folder_ + L"\\tolvex.db"; }

    const Apartment apartment_;
    const std::wstring folder_;
};

} // namespace

std::unique_ptr<Shop> open_shop(const std::string& folder)
{
    return std::make_unique<WindowsShop>(std::filesystem::path(folder).wstring());
}

} // namespace tolvex::trials
