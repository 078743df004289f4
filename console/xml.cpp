#include "console/named_document.hpp"
#include "console/output.hpp"
#include "platform/files.hpp"
#include "tolvex/root_layout.hpp"
#include "tolvex/stored_documents.hpp"

namespace tolvex::console {

namespace {

class Xml : public Command
{
public:
    const char* name() const override { return "xml"; }
    const char* purpose() const override
    {
        return "Escribe de nuevo el XML de un documento guardado y dice su ruta";
    }
    const char* example() const override { return "tolvex xml 15 --empresa 1 --sucursal 1 --bd tienda.db"; }

    void declare(Options& options) override
    {
        document_.declare(options);
        options.flag("--nota-de-credito", credit_note_, "El documento es una nota de crédito");
        options.option("--carpeta", folder_,
                       "Carpeta de trabajo, la de Facturas (si falta, la del certificado)");
        options.flag("--raiz-extendida", extended_root_,
                     "Escribe en el XML la raíz extendida, con folio y método de pago");
    }

    int run(const Place& place) override
    {
        connect(place);
        set_root_layout(extended_root_ ? RootLayout::extended : RootLayout::standard);
        const Text folder = folder_.empty() ? Text() : files::absolute_path(to_text(folder_));
        const DocumentKey key = document_.key();
        const RewrittenXml xml = write_xml(key.folio, key.company, key.branch, credit_note_, folder);
        print_line(files::native_path(xml.path));
        if (xml.was_there) say_warning(u"ya estaba y dice lo que se guardó; no se tocó");
        if (xml.without_addenda)
            say_warning(u"el receptor lleva addenda, cuyos valores no se guardan: este XML quedó sin ella");
        return 0;
    }

private:
    NamedDocument document_;
    std::string folder_;
    bool credit_note_ = false, extended_root_ = false;
};

} // namespace

std::unique_ptr<Command> xml_command() { return std::make_unique<Xml>(); }

} // namespace tolvex::console
