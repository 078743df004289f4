// Emite una factura con tres renglones desde C++, con las interfaces duales de TOLVEX (enlace temprano).
//
//   factura CARPETA [BASE SERVIDOR [USUARIO CLAVE]]
//
// CARPETA es la carpeta de trabajo: ahí están openssl.exe y pkey.key.pem, y ahí aparece Facturas\*.xml. Sin
// más argumentos usa la base de datos CARPETA\tolvex.db. TOLVEX.hpp viene junto con TOLVEX.dll. Compilación:
//
//   x86_64-w64-mingw32-g++ -municode -static factura.cpp -o factura.exe -lole32 -loleaut32
//   cl /utf-8 /EHsc factura.cpp ole32.lib oleaut32.lib
#include "TOLVEX.hpp"

#include <clocale>
#include <iostream>
#include <string>

namespace {

// Todo argumento va por referencia; un texto es un BSTR.
class Texto
{
public:
    Texto(const std::wstring& texto)
        : texto_(SysAllocStringLen(texto.data(), static_cast<UINT>(texto.size())))
    {}
    Texto(const wchar_t* texto) : Texto(std::wstring(texto)) {}
    ~Texto() { SysFreeString(texto_); }
    Texto(const Texto&) = delete;
    BSTR* ref() { return &texto_; }
    std::wstring valor() const { return {texto_, SysStringLen(texto_)}; }

private:
    BSTR texto_;
};

// Lo mismo para los demás tipos: ref(SHORT{1}) vive hasta que termina la llamada.
template <class Valor>
Valor* ref(Valor&& valor)
{
    return &valor;
}

// Los importes son enteros de 64 bits con cuatro decimales.
CY importe(double valor)
{
    CY convertido;
    VarCyFromR8(valor, &convertido);
    return convertido;
}

// Lo que el componente dice del último error.
std::wstring ultimo_error()
{
    IErrorInfo* informacion = nullptr;
    if (GetErrorInfo(0, &informacion) != S_OK) return L"sin descripción";
    Texto descripcion(L"");
    informacion->GetDescription(descripcion.ref());
    informacion->Release();
    return descripcion.valor();
}

void exige(bool cumple, const std::wstring& mensaje)
{
    if (!cumple) throw mensaje + L": " + ultimo_error();
}

// Un objeto del componente; se suelta solo.
template <class Clase, class Interfaz>
class Objeto
{
public:
    Objeto()
    {
        const HRESULT resultado = CoCreateInstance(__uuidof(Clase), nullptr, CLSCTX_INPROC_SERVER,
                                                   __uuidof(Interfaz), reinterpret_cast<void**>(&objeto_));
        if (FAILED(resultado)) throw std::wstring(L"Registre el TOLVEX.dll de los bits de este programa");
    }
    ~Objeto() { objeto_->Release(); }
    Objeto(const Objeto&) = delete;
    Interfaz* operator->() { return objeto_; }

private:
    Interfaz* objeto_ = nullptr;
};

struct Conexion
{
    std::wstring base, servidor, usuario, clave;
};

void abre(const Conexion& datos)
{
    Objeto<TOLVEX::ConfigFE, TOLVEX::_ConfigFE> conexion;
    Texto usuario(datos.usuario), clave(datos.clave), base(datos.base), servidor(datos.servidor);
    VARIANT nada;
    VARIANT_BOOL abierta;
    conexion->SetDatosConexion(usuario.ref(), clave.ref(), base.ref(), servidor.ref(), &nada);
    exige(SUCCEEDED(conexion->AbrirConexion(&abierta)),
          L"No se pudo establecer conexión con la base de datos");
}

// El receptor, los totales y el encabezado. Los totales son textos con punto decimal; lo opcional se da
// completo.
void da_receptor(const std::wstring& carpeta)
{
    SYSTEMTIME ahora;
    DATE fecha;
    GetLocalTime(&ahora);
    SystemTimeToVariantTime(&ahora, &fecha);

    Objeto<TOLVEX::Cliente, TOLVEX::_Cliente> cliente;
    VARIANT nada;
    const HRESULT resultado = cliente->SetDatosClientes(
        Texto(L"PEGM-800101-AB1").ref(), Texto(L"María Peña Güemes").ref(),
        Texto(L"Avenida Niños Héroes").ref(), Texto(L"120").ref(), Texto(L"4 B").ref(),
        Texto(L"Del Valle").ref(), Texto(L"Ciudad de México").ref(), Texto(L"Distrito Federal").ref(),
        Texto(L"Benito Juárez").ref(), Texto(L"México").ref(), Texto(L"03100").ref(), Texto(L"1370.00").ref(),
        Texto(L"0.00").ref(), Texto(L"219.20").ref(), Texto(L"1589.20").ref(), ref(SHORT{1}),
        Texto(L"1").ref(), &fecha, Texto(carpeta).ref(), ref(importe(0)), ref(importe(0)),
        Texto(L"PESOS").ref(), ref(importe(1)), Texto(L"").ref(), Texto(L"").ref(), Texto(L"").ref(), &nada);
    exige(SUCCEEDED(resultado), L"No se aceptaron los datos del receptor");
}

void da_renglon(const wchar_t* clave, const wchar_t* producto, double cantidad, const wchar_t* unidad,
                double precio, double iva, double total)
{
    Objeto<TOLVEX::DetFacturas, TOLVEX::_DetFacturas> renglones;
    VARIANT nada;
    const HRESULT resultado = renglones->SetDetalleDocto(
        Texto(L"1").ref(), Texto(L"F").ref(), Texto(clave).ref(), Texto(producto).ref(),
        ref(importe(cantidad)), Texto(unidad).ref(), ref(importe(precio)), ref(importe(iva)),
        ref(importe(total)), ref(importe(16)), &nada);
    exige(SUCCEEDED(resultado), L"No se aceptó el renglón");
}

void da_renglones()
{
    Objeto<TOLVEX::DetFacturas, TOLVEX::_DetFacturas> renglones;
    VARIANT nada;
    renglones->InicializaDetalleFactura(&nada);
    da_renglon(L"CAF-01", L"Café de altura, 1 kg", 5, L"KG", 180, 144, 900);
    da_renglon(L"PAN-07", L"Pan de muerto \"tradicional\"", 20, L"PZA", 12.5, 40, 250);
    da_renglon(L"JAB-33", L"Jabón líquido & suavizante", 4, L"PZA", 55, 35.2, 220);
}

// Carga el emisor y emite; el folio que se tomó del rango.
std::wstring emite()
{
    Objeto<TOLVEX::GeneraDocto, TOLVEX::_GeneraDocto> documento;
    SHORT empresa = 1, sucursal = 1;
    VARIANT_BOOL bien = VARIANT_FALSE;
    documento->GetDatosEmpresa(&empresa, &bien);
    exige(bien, L"No existe la empresa");
    documento->GetDatosSucursal(&empresa, &sucursal, &bien);
    exige(bien, L"No existe la sucursal");
    documento->GetDatosCertificado(&empresa, &bien); // el de la sucursal: por eso va después
    exige(bien, L"La sucursal no tiene certificado");

    Texto folio(L"0");
    documento->GeneraFacturaElectronica(folio.ref(), ref(VARIANT_BOOL{VARIANT_TRUE}), Texto(L"ingreso").ref(),
                                        ref(SHORT{16}), ref(VARIANT_BOOL{VARIANT_FALSE}), &bien);
    exige(bien, L"No se pudo emitir");
    return folio.valor();
}

} // namespace

int wmain(int cuantos, wchar_t** argumentos)
{
    const auto argumento = [=](int posicion, const std::wstring& de_omision) {
        return cuantos > posicion ? std::wstring(argumentos[posicion]) : de_omision;
    };
    const std::wstring carpeta = argumento(1, L".");
    int codigo = 0;
    std::setlocale(LC_ALL, ""); // los acentos de la consola
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    try {
        abre({argumento(2, carpeta + L"\\tolvex.db"), argumento(3, L"sqlite:"), argumento(4, L""),
              argumento(5, L"")});
        da_receptor(carpeta);
        da_renglones();
        std::wcout << L"Folio: " << emite() << std::endl;
        std::wcout << L"Carpeta: " << carpeta << L"\\Facturas" << std::endl;
    } catch (const std::wstring& mensaje) {
        std::wcerr << mensaje << std::endl;
        codigo = 1;
    }
    CoUninitialize();
    return codigo;
}
