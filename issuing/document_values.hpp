// The working members of the object that issues a document, overwritten by its next call.
#pragma once

#include "session/session.hpp"

namespace tolvex {

struct DocumentValues
{
    // Header.
    Text DocFecha;            // as staged, yyyy-mm-ddThh:mm:ss
    Date DocFechaDate;        // the same as a date
    Text DocNumeroAprobacion; // of the folio range
    Text DocCondicionPago;    // "Contado" or "Credito"
    Text DocFormaDePago;      // the same again, as stored
    Text DocCliente;
    double DocSubTotal = 0, DocDescuento = 0, DocSubTotalDD = 0, DocImpuesto = 0,
           DocTotal = 0; // two decimals
    Text DocVersion, DocSerie, DocFolio, DocSerieCertificado;
    Text DocImpuestoNombre, DocTasa; // "IVA" and its rate, 16.00
    bool es_nota_credito = false;

    // Issuer.
    Text EmiRfc, EmiNombre, EmiCalle, EmiNoExterior, EmiNoInterior, EmiColonia, EmiLocalidad, EmiReferencia,
        EmiMunicipio, EmiEstado, EmiPais, EmiCodigoPostal;

    // Receiver: its values for the original string; the RFC has lost its "-".
    Text RecRfc, RecNombre, RecCalle, RecNoExterior, RecNoInterior, RecColonia, RecLocalidad, RecReferencia,
        RecMunicipio, RecEstado, RecPais, RecCodigoPostal;

    std::int32_t line_count = 0;
    Text base64_alphabet;
    Text original_string; // one character per UTF-8 byte, as it is signed and stored
    Text sello;
    Text xml_path;
};

} // namespace tolvex
