// What one document holds besides the staged values: read once from the session when an issue begins.
#pragma once

#include "issuing/issue_options.hpp"
#include "session/session.hpp"

namespace tolvex {

struct DocumentValues
{
    // Header.
    bool es_nota_credito = false;
    Text DocVersion, DocSerie, DocFolio, DocSerieCertificado, DocNumeroAprobacion;
    Text DocFecha;       // as staged, yyyy-mm-ddThh:mm:ss
    Text DocFormaDePago; // "Contado" or "Credito"
    Text DocCliente;
    Text DocTasa; // of the VAT, 16.00
    Text DocMoneda, DocTipoCambio;

    // Issuer.
    Text EmiRfc, EmiNombre, EmiCalle, EmiNoExterior, EmiColonia, EmiLocalidad, EmiMunicipio, EmiEstado,
        EmiPais, EmiCodigoPostal;

    // Receiver; the RFC has lost its "-".
    Text RecRfc, RecNombre, RecCalle, RecNoExterior, RecNoInterior, RecColonia, RecLocalidad, RecMunicipio,
        RecEstado, RecPais, RecCodigoPostal;

    // Read from staged texts that may be no date and no numbers: read_date_and_amounts.
    Date DocFechaDate;
    double DocSubTotal = 0, DocDescuento = 0, DocSubTotalDD = 0, DocImpuesto = 0,
           DocTotal = 0; // two decimals

    // Made while it is issued.
    Text original_string; // one character per UTF-8 byte, as it is signed and stored
    Text sello;
};

// All that cannot fail.
DocumentValues document_values(const Session& session, double folio_number, const IssueOptions& options);

// Date and amounts, each rounded to two decimals; also the session's subtotal after discount. Throws Error 13
// at the first staged text that cannot be read; what was read before it stays.
void read_date_and_amounts(Session& session, DocumentValues& document);

} // namespace tolvex
