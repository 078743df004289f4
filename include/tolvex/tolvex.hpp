// TOLVEX for native hosts: all that there is to include.
//
// All instances share one session per process: connection, issuer, receiver, lines. Use them from one thread.
// Order of calls: ConfigFE::SetDatosConexion, ConfigFE::AbrirConexion, Cliente::SetDatosClientes,
// GeneraDocto::GetDatosEmpresa, GetDatosSucursal, GetDatosCertificado, DetFacturas::InicializaDetalleFactura
// and SetDetalleDocto for every line, optionally Addenda, then GeneraDocto::GeneraFacturaElectronica.
#pragma once

#include "tolvex/classes.hpp"
#include "tolvex/errors.hpp"
#include "tolvex/messages.hpp"
#include "tolvex/root_layout.hpp"
#include "tolvex/sealing.hpp"
#include "tolvex/stored_documents.hpp"
#include "tolvex/types.hpp"
