#include "support/authority_check.hpp"

#include "core/base64.hpp"
#include "platform/signature.hpp"

#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace tolvex::testing {

namespace {

// Elements below the root and their attributes, in the order of annex 20. An attribute with "?" has a place
// only where it is there.
struct Place
{
    const char *element, *attributes;
};
constexpr char address[] = "calle? noExterior? noInterior? colonia? localidad? referencia? municipio? "
                           "estado? pais codigoPostal?";
constexpr Place places[] = {
    {"", "version fecha tipoDeComprobante formaDePago condicionesDePago? subTotal descuento? TipoCambio? "
         "Moneda? total"},
    {"/c:Emisor", "rfc nombre"},
    {"/c:Emisor/c:DomicilioFiscal", "calle noExterior? noInterior? colonia? localidad? referencia? "
                                    "municipio estado pais codigoPostal"},
    {"/c:Emisor/c:ExpedidoEn", address},
    {"/c:Receptor", "rfc nombre?"},
    {"/c:Receptor/c:Domicilio", address},
    {"/c:Conceptos/c:Concepto", "cantidad unidad? noIdentificacion? descripcion valorUnitario importe"},
    {"/c:Impuestos/c:Retenciones/c:Retencion", "impuesto importe"},
    {"/c:Impuestos", "totalImpuestosRetenidos?"},
    {"/c:Impuestos/c:Traslados/c:Traslado", "impuesto tasa importe"},
    {"/c:Impuestos", "totalImpuestosTrasladados?"},
};
constexpr char with_places_of_their_own[] = "/c:Complemento | /c:Comprobante/c:Conceptos/c:Concepto/*";

const xmlChar* bytes(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

struct Free
{
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
    void operator()(xmlXPathObject* object) const { xmlXPathFreeObject(object); }
    void operator()(xmlChar* text) const { xmlFree(text); }
};
template <class Resource>
using Owned = std::unique_ptr<Resource, Free>;

class Document
{
public:
    explicit Document(const std::string& xml)
        : document_(xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, 0)),
          context_(xmlXPathNewContext(document_.get()))
    {
        if (!document_) throw std::runtime_error("no XML");
        xmlXPathRegisterNs(context_.get(), bytes("c"), bytes("http://www.sat.gob.mx/cfd/3"));
    }

    std::vector<xmlNode*> elements(const std::string& below_root)
    {
        const auto found = evaluated("/c:Comprobante" + below_root, nullptr);
        const xmlNodeSet* nodes = found->nodesetval;
        return nodes ? std::vector(nodes->nodeTab, nodes->nodeTab + nodes->nodeNr) : std::vector<xmlNode*>();
    }

    std::string text(const std::string& expression, xmlNode* at = nullptr)
    {
        const Owned<xmlChar> text(xmlXPathCastToString(evaluated(expression, at).get()));
        return reinterpret_cast<const char*>(text.get());
    }

private:
    Owned<xmlXPathObject> evaluated(const std::string& expression, xmlNode* at)
    {
        context_->node = at;
        Owned<xmlXPathObject> object(xmlXPathEvalExpression(bytes(expression), context_.get()));
        if (!object) throw std::runtime_error("no XPath: " + expression);
        return object;
    }

    const Owned<xmlDoc> document_;
    const Owned<xmlXPathContext> context_;
};

std::string values(Document& document, xmlNode* element, const char* attributes)
{
    std::string values;
    std::istringstream names(attributes);
    for (std::string name; names >> name;) {
        const bool optional = name.back() == '?';
        if (optional) name.pop_back();
        if (optional && !xmlHasProp(element, bytes(name))) continue;
        values += "|" + document.text("normalize-space(@" + name + ")", element);
    }
    return values;
}

} // namespace

std::string authority_string(const std::string& xml)
{
    Document document(xml);
    if (!document.elements(with_places_of_their_own).empty())
        throw std::runtime_error("elements whose places are not known here");
    std::string string = "|";
    for (const auto& [element, attributes] : places)
        for (xmlNode* found : document.elements(element)) string += values(document, found, attributes);
    return string + "||";
}

bool seal_verifies(const std::string& xml)
{
    Document document(xml);
    const auto decoded = [&](const std::string& attribute) {
        return from_base64(to_text(document.text("/c:Comprobante/@" + attribute))).value();
    };
    return Certificate(decoded("certificado"))
        .verifies(Digest::sha1, authority_string(xml), decoded("sello"));
}

} // namespace tolvex::testing
