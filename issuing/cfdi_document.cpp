#include "issuing/cfdi_document.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/addenda_xml.hpp"
#include "issuing/amount_patterns.hpp"
#include "issuing/xml_files.hpp"

#include <algorithm>
#include <functional>

namespace tolvex {

namespace {

constexpr TextView cfdi_namespace = u"http://www.sat.gob.mx/cfd/3";
constexpr TextView xsi_namespace = u"http://www.w3.org/2001/XMLSchema-instance";
constexpr TextView detallista_namespace = u"http://www.sat.gob.mx/detallista";
constexpr TextView implocal_namespace = u"http://www.sat.gob.mx/implocal";
constexpr TextView donat_namespace = u"http://www.sat.gob.mx/donat";
constexpr TextView extended_schema_location =
    u"http://www.sat.gob.mx/cfd/3 http://www.sat.gob.mx/sitio_internet/cfd/3/cfdv3.xsd "
    u"http://www.sat.gob.mx/implocal http://www.sat.gob.mx/sitio_internet/cfd/implocal/implocal.xsd "
    u"http://www.sat.gob.mx/detallista http://www.sat.gob.mx/sitio_internet/cfd/detallista/detallista.xsd "
    u"http://www.sat.gob.mx/donat http://www.sat.gob.mx/sitio_internet/cfd/donat/donat.xsd";

RootLayout& root_layout()
{
    static RootLayout layout = RootLayout::standard;
    return layout;
}

using Line = std::function<void(const Concepto&)>;
using Lines = std::function<void(const Line& each)>;

// One document while it is written. Its lines come one after another.
struct Writer
{
    const Session& session;
    const DocumentValues& document;
    const Lines& lines;
    const RootLayout layout;

    Text tipo_de_comprobante() const { return document.es_nota_credito ? u"egreso" : u"ingreso"; }
    Text certificado() const { return without(session.gCertificado, u' '); }

    XmlElement write(XmlDocument& xml) const;
    void set_standard_root(XmlElement& comprobante) const;
    void set_extended_root(XmlElement& comprobante) const;
    void add_emisor(XmlElement& comprobante) const;
    void add_receptor(XmlElement& comprobante) const;
    void add_conceptos(XmlElement& comprobante) const;
    void add_impuestos(XmlElement& comprobante) const;
};

// Gives the root, to which an addenda may be added.
XmlElement Writer::write(XmlDocument& xml) const
{
    XmlElement comprobante = xml.create_root(u"cfdi:Comprobante");
    if (layout == RootLayout::standard)
        set_standard_root(comprobante);
    else
        set_extended_root(comprobante);
    add_emisor(comprobante);
    add_receptor(comprobante);
    add_conceptos(comprobante);
    add_impuestos(comprobante);
    return comprobante;
}

// Deliberate: no series, folio, discount or payment conditions in this layout.
void Writer::set_standard_root(XmlElement& comprobante) const
{
    comprobante.set_attribute(u"xsi:schemaLocation", Text(cfdi_namespace) + u" cfdv3.xsd");
    comprobante.set_attribute(u"version", document.DocVersion);
    comprobante.set_attribute(u"fecha", document.DocFecha);
    comprobante.set_attribute(u"sello", document.sello);
    comprobante.set_attribute(u"total", format(document.DocTotal, total_pattern));
    comprobante.set_attribute(u"subTotal", format(document.DocSubTotal, total_pattern));
    comprobante.set_attribute(u"certificado", certificado());
    comprobante.set_attribute(u"Moneda", document.DocMoneda);
    comprobante.set_attribute(u"TipoCambio", document.DocTipoCambio);
    comprobante.set_attribute(u"formaDePago", u"PAGO EN UNA SOLA EXHIBICION");
    comprobante.set_attribute(u"noCertificado", document.DocSerieCertificado);
    comprobante.set_attribute(u"tipoDeComprobante", tipo_de_comprobante());
    comprobante.set_attribute(u"xmlns:cfdi", Text(cfdi_namespace));
    comprobante.set_attribute(u"xmlns:xsi", Text(xsi_namespace));
}

void Writer::set_extended_root(XmlElement& comprobante) const
{
    comprobante.set_attribute(u"xmlns:xsi", Text(xsi_namespace));
    comprobante.set_attribute(u"xmlns:cfdi", Text(cfdi_namespace));
    comprobante.set_attribute(u"xmlns:detallista", Text(detallista_namespace));
    comprobante.set_attribute(u"xmlns:implocal", Text(implocal_namespace));
    comprobante.set_attribute(u"xmlns:donat", Text(donat_namespace));
    comprobante.set_attribute(u"xsi:schemaLocation", Text(extended_schema_location));
    comprobante.set_attribute(u"noCertificado", document.DocSerieCertificado);
    comprobante.set_attribute(u"metodoDePago", u"EFECTIVO");
    comprobante.set_attribute(u"formaDePago", u"PAGO EN UNA SOLA EXHIBICION");
    comprobante.set_attribute(u"Moneda", document.DocMoneda);
    comprobante.set_attribute(u"TipoCambio", document.DocTipoCambio);
    comprobante.set_attribute(u"certificado", certificado());
    comprobante.set_attribute(u"sello", document.sello);
    comprobante.set_attribute(u"fecha", document.DocFecha);
    comprobante.set_attribute(u"subTotal", format(document.DocSubTotal, total_pattern));
    comprobante.set_attribute(u"total", format(document.DocTotal, total_pattern));
    comprobante.set_attribute(u"folio", document.DocFolio);
    comprobante.set_attribute(u"tipoDeComprobante", tipo_de_comprobante());
    comprobante.set_attribute(u"version", document.DocVersion);
}

void set_unless_empty(XmlElement& element, const Text& name, const Text& value)
{
    if (!value.empty()) element.set_attribute(name, value);
}

// Deliberate: the issuer's address has no colonia, interior number or reference.
void Writer::add_emisor(XmlElement& comprobante) const
{
    XmlElement emisor = comprobante.append(u"cfdi:Emisor");
    emisor.set_attribute(u"rfc", document.EmiRfc);
    emisor.set_attribute(u"nombre", document.EmiNombre);
    XmlElement domicilio = emisor.append(u"cfdi:DomicilioFiscal");
    set_unless_empty(domicilio, u"pais", document.EmiPais);
    set_unless_empty(domicilio, u"calle", document.EmiCalle);
    set_unless_empty(domicilio, u"estado", document.EmiEstado);
    set_unless_empty(domicilio, u"localidad", document.EmiLocalidad);
    set_unless_empty(domicilio, u"municipio", document.EmiMunicipio);
    set_unless_empty(domicilio, u"noExterior", document.EmiNoExterior);
    set_unless_empty(domicilio, u"codigoPostal", document.EmiCodigoPostal);
}

// Deliberate: the receiver's address has no localidad, interior number or reference.
void Writer::add_receptor(XmlElement& comprobante) const
{
    XmlElement receptor = comprobante.append(u"cfdi:Receptor");
    receptor.set_attribute(u"rfc", without(document.RecRfc, u'|'));
    receptor.set_attribute(u"nombre", without(document.RecNombre, u'|'));
    XmlElement domicilio = receptor.append(u"cfdi:Domicilio");
    set_unless_empty(domicilio, u"pais", without(document.RecPais, u'|'));
    set_unless_empty(domicilio, u"calle", without(document.RecCalle, u'|'));
    set_unless_empty(domicilio, u"estado", without(document.RecEstado, u'|'));
    set_unless_empty(domicilio, u"colonia", without(document.RecColonia, u'|'));
    set_unless_empty(domicilio, u"municipio", without(document.RecMunicipio, u'|'));
    set_unless_empty(domicilio, u"noExterior", without(document.RecNoExterior, u'|'));
    set_unless_empty(domicilio, u"codigoPostal", without(document.RecCodigoPostal, u'|'));
}

void add_concepto(XmlElement& conceptos, const Concepto& line)
{
    XmlElement concepto = conceptos.append(u"cfdi:Concepto");
    concepto.set_attribute(u"unidad", line.unidad);
    concepto.set_attribute(u"importe", format(line.importe, amount_pattern));
    concepto.set_attribute(u"cantidad", format(line.cantidad, amount_pattern));
    concepto.set_attribute(u"descripcion", line.descripcion);
    concepto.set_attribute(u"valorUnitario", format(line.valorUnitario, amount_pattern));
    concepto.finish();
}

void Writer::add_conceptos(XmlElement& comprobante) const
{
    XmlElement conceptos = comprobante.append(u"cfdi:Conceptos");
    lines([&](const Concepto& line) { add_concepto(conceptos, line); });
}

void add_retencion(XmlElement& retenciones, const Text& impuesto, const Text& importe)
{
    XmlElement retencion = retenciones.append(u"Retencion"); // Deliberate: without the cfdi prefix.
    retencion.set_attribute(u"impuesto", impuesto);
    retencion.set_attribute(u"importe", importe);
}

// Deliberate: an IVA withholding that rounds to zero pesos does not count by itself.
bool has_retenciones(const Text& isr, const Text& iva)
{
    return to_number(isr) > 0 || round_half_even(to_number(iva), 0) != 0;
}

void Writer::add_impuestos(XmlElement& comprobante) const
{
    const Text iva = format(document.DocImpuesto, amount_pattern);
    const Text isr_retained = format(session.gISRRet, amount_pattern);
    const Text iva_retained = format(session.gIvaRet, amount_pattern);

    XmlElement impuestos = comprobante.append(u"cfdi:Impuestos");
    impuestos.set_attribute(u"totalImpuestosTrasladados", iva);
    if (has_retenciones(isr_retained, iva_retained)) {
        XmlElement retenciones = impuestos.append(u"cfdi:Retenciones");
        add_retencion(retenciones, u"ISR", isr_retained);
        add_retencion(retenciones, u"IVA", iva_retained);
    }
    XmlElement traslado = impuestos.append(u"cfdi:Traslados").append(u"cfdi:Traslado");
    traslado.set_attribute(u"tasa", format(document.DocTasa, amount_pattern));
    traslado.set_attribute(u"importe", iva);
    traslado.set_attribute(u"impuesto", u"IVA");
}

Recordset stored_lines(Session& session, const Text& nIdFe)
{
    return shared_connection(session).query(
        u"select * from FE_VENTAS_RESUMEN_DET d(nolock)\rWhere d.nIdFe = " + nIdFe + u" order by nrenglon");
}

} // namespace

void set_root_layout(RootLayout layout) { root_layout() = layout; }

Concepto read_concepto(const Recordset& line)
{
    return {.unidad = trim(line[u"cunidad"].text()),
            .descripcion = trim(line[u"cproducto"].text()),
            .cantidad = to_currency(format(line[u"nCantidad"].number(), amount_pattern)),
            .valorUnitario = round_half_even(line[u"nprecio"].number(), 2),
            .importe = round_half_even(line[u"nimporte"].number(), 2)};
}

Text write_comprobante(Session& session, const DocumentValues& document, const Text& nIdFe,
                       bool genera_addenda)
{
    return trapping(Text(), [&] {
        Recordset rows = stored_lines(session, nIdFe);
        const Lines lines = [&](const Line& each) {
            for (; !rows.eof(); rows.move_next()) each(read_concepto(rows));
        };
        const Writer writer{session, document, lines, root_layout()};
        XmlDocument xml;
        XmlElement comprobante = writer.write(xml);
        if (genera_addenda) add_addenda(session, document, comprobante);

        return write_xml_file(xml, session.gRutaDeArchivos, comprobante_name(document));
    });
}

std::string comprobante_bytes(const Session& session, const DocumentValues& document,
                              const std::vector<Concepto>& conceptos, RootLayout layout)
{
    const Lines lines = [&](const Line& each) { std::for_each(conceptos.begin(), conceptos.end(), each); };
    XmlDocument xml;
    Writer{session, document, lines, layout}.write(xml);
    return xml.as_bytes();
}

Text comprobante_name(const DocumentValues& document)
{
    return trim(document.DocSerie) + trim(document.DocFolio);
}

} // namespace tolvex
