// The shop of a host in C++; its forms are those in memory.
#include "trials/shop.hpp"

#include "core/numbers.hpp"
#include "platform/in_memory/forms_in_memory.hpp"
#include "tolvex/tolvex.hpp"

namespace tolvex::trials {

namespace {

void require(bool done, const Text& what)
{
    if (!done) throw Error(0, what + u": " + last_error());
}

class NativeShop : public Shop
{
public:
    explicit NativeShop(const Text& folder) : folder_(folder), database_(folder + u"/tolvex.db")
    {
        use_toolkit(&toolkit_);
        ConfigFE connection;
        connection.SetDatosConexion(u"", u"", database_, u"sqlite:");
        connection.AbrirConexion();
        require(documents_.GetDatosEmpresa(1) && documents_.GetDatosSucursal(1, 1), u"emisor");
        NativeShop::load_certificate();
        NativeShop::issue(-1); // names the folder that files go to
    }

    ~NativeShop() override { use_toolkit(nullptr); }

    int documents() const override { return 20'000; }

    void load_certificate() override { require(documents_.GetDatosCertificado(1), u"certificado"); }

    void export_pdf() override
    {
        documents_.ImprimeDocuento(u"2", 1, 1, false, folder_ + u"\\factura.rdl", true);
    }

    void open_forms() override
    {
        Maestros().MuestraEmpresas(u"", u"", database_, u"sqlite:");
        toolkit_.open_form(u"FrmMuestraEmpresas").click(u"Nuevo");
    }

    void issue(int number) override
    {
        Cliente().SetDatosClientes(u"PEGM800101AB1", u"María Peña Güemes", u"Niños Héroes", u"120", u"",
                                   u"Del Valle", u"", u"Distrito Federal", u"Benito Juárez", u"México",
                                   u"03100", u"300.00", u"0.00", u"48.00", u"348.00", 1, u"1",
                                   Date::of(2011, 3, 15, 14, 5, 9), folder_);
        DetFacturas lines;
        lines.InicializaDetalleFactura();
        for (int line = 0; line < 3; ++line)
            lines.SetDetalleDocto(u"1", u"F", u"CAF-01", u"Café de altura, 1 kg", 1, u"KG", 100, 16, 100, 16);
        Text folio = u"0" + decimal(100'000 + number); // one name each
        require(documents_.GeneraFacturaElectronica(folio), u"factura");
    }

private:
    const Text folder_, database_;
    ToolkitInMemory toolkit_;
    GeneraDocto documents_;
};

} // namespace

std::unique_ptr<Shop> open_shop(const std::string& folder)
{
    return std::make_unique<NativeShop>(to_text(folder));
}

} // namespace tolvex::trials
