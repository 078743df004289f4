// emite_com SERVIDOR BASE CARPETA [USUARIO CONTRASEÑA]: una factura desde C++, con enlace temprano.
//
// TOLVEX.hpp acompaña a la DLL. Todos los argumentos van por referencia, también los opcionales:
//   x86_64-w64-mingw32-g++ -municode emite_com.cpp -lole32 -loleaut32 -luuid
#include "TOLVEX.hpp"

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

// Lo que dice el componente de un error.
void check(HRESULT outcome)
{
    if (SUCCEEDED(outcome)) return;
    IErrorInfo* information = nullptr;
    BSTR description = nullptr;
    if (GetErrorInfo(0, &information) == S_OK) {
        information->GetDescription(&description);
        information->Release();
    }
    std::fprintf(stderr, "%ls\n", description ? description : L"error sin descripción");
    SysFreeString(description);
    throw std::runtime_error("TOLVEX");
}

struct Release
{
    void operator()(IUnknown* object) const { object->Release(); }
};

template <class Class, class Interface>
std::unique_ptr<Interface, Release> create()
{
    Interface* made = nullptr;
    check(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                           reinterpret_cast<void**>(&made)));
    return std::unique_ptr<Interface, Release>(made);
}

// Un texto para el componente, que puede cambiarlo.
class Bstr
{
public:
    Bstr(const wchar_t* text) : text_(SysAllocString(text)) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    operator BSTR*() { return &text_; }
    const wchar_t* c_str() const { return text_; }

private:
    BSTR text_;
};

CY amount(double units)
{
    CY value;
    VarCyFromR8(units, &value);
    return value;
}

DATE now()
{
    SYSTEMTIME local;
    DATE date = 0;
    GetLocalTime(&local);
    SystemTimeToVariantTime(&local, &date);
    return date;
}

void issue(int count, wchar_t** arguments)
{
    const auto connection = create<TOLVEX::ConfigFE, TOLVEX::_ConfigFE>();
    const auto receiver = create<TOLVEX::Cliente, TOLVEX::_Cliente>();
    const auto lines = create<TOLVEX::DetFacturas, TOLVEX::_DetFacturas>();
    const auto document = create<TOLVEX::GeneraDocto, TOLVEX::_GeneraDocto>();

    Bstr user(count > 5 ? arguments[4] : L""), password(count > 5 ? arguments[5] : L"");
    Bstr server(arguments[1]), database(arguments[2]), folder(arguments[3]);
    VARIANT nothing;
    VARIANT_BOOL done = VARIANT_FALSE;
    check(connection->SetDatosConexion(user, password, database, server, &nothing));
    check(connection->AbrirConexion(&done));

    SHORT one = 1, rate = 16;
    check(document->GetDatosEmpresa(&one, &done));
    check(document->GetDatosSucursal(&one, &one, &done));
    check(document->GetDatosCertificado(&one, &done));

    DATE date = now();
    CY none = amount(0), parity = amount(1);
    check(receiver->SetDatosClientes(
        Bstr(L"PEGM800101AB1"), Bstr(L"María Peña Güemes"), Bstr(L"Avenida Niños Héroes"), Bstr(L"120"),
        Bstr(L"4 B"), Bstr(L"Del Valle"), Bstr(L"Ciudad de México"), Bstr(L"Distrito Federal"),
        Bstr(L"Benito Juárez"), Bstr(L"México"), Bstr(L"03100"), Bstr(L"200.00"), Bstr(L"0.00"),
        Bstr(L"32.00"), Bstr(L"232.00"), &one, Bstr(L"1"), &date, folder, &none, &none, Bstr(L"PESOS"),
        &parity, Bstr(L""), Bstr(L""), Bstr(L""), &nothing));

    CY quantity = amount(20), price = amount(10), vat = amount(32), total = amount(200), percent = amount(16);
    check(lines->InicializaDetalleFactura(&nothing));
    check(lines->SetDetalleDocto(Bstr(L"1"), Bstr(L"F"), Bstr(L"PAN-07"), Bstr(L"Pan"), &quantity,
                                 Bstr(L"PZA"), &price, &vat, &total, &percent, &nothing));

    Bstr folio(L"");
    VARIANT_BOOL take_folio = VARIANT_TRUE, with_addenda = VARIANT_TRUE;
    check(document->GeneraFacturaElectronica(folio, &take_folio, Bstr(L"ingreso"), &rate, &with_addenda,
                                             &done));
    if (!done) throw std::runtime_error("No se emitió la factura");
    std::printf("Factura %ls en %ls\\Facturas\n", folio.c_str(), arguments[3]);
    check(connection->CierraConexion(&done));
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count < 4) return 2;
    CoInitialize(nullptr);
    int status = 0;
    try {
        issue(count, arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        status = 1;
    }
    CoUninitialize();
    return status;
}
