// The files of the demonstration: its master data, and the flat files that it issues. What stands between
// braces is filled in: moment of issue, company and branch, folio ranges.
#pragma once

namespace tolvex::console {

struct DemoFile
{
    const char* name;
    const char* content;
};

inline constexpr DemoFile demo_files[] = {
    {"factura.txt",
     R"(# Una factura en pesos con varios renglones.
EMISOR|{EMISOR}
CLIENTE|PEGM-800101-AB1|María Peña Güemes|Avenida Niños Héroes|120|4 B|Del Valle|Ciudad de México|Distrito Federal|Benito Juárez|México|03100|1370.00|0.00|219.20|1589.20|1|{FACTURAS}|{FECHA}|||||||
DETALLE|1|F|CAF-01|Café de altura, 1 kg|5|KG|180.00|144.00|900.00|16
DETALLE|1|F|PAN-07|Pan de muerto "tradicional"|20|PZA|12.50|40.00|250.00|16
DETALLE|1|F|JAB-33|Jabón líquido & suavizante|4|PZA|55.00|35.20|220.00|16
EMITE||1|ingreso|16|0
)"},
    {"retenciones.txt",
     R"(# Honorarios en dólares, a crédito, con retenciones de ISR e IVA.
# Con retenciones el sello no es el que la autoridad calcula del XML (docs/validacion.md).
EMISOR|{EMISOR}
CLIENTE|CON090807XY2|Consultoría Ñandú, S.A. de C.V.|Calle 5 de Mayo|8||Centro||Puebla|Puebla|México|72000|1000.00|0.00|160.00|953.33|2|{FACTURAS}|{FECHA}||106.67|100.00|DOLARES|12.7350|Orden de compra 4417
DETALLE|2|F|HON-01|Honorarios por asesoría en computación|1|SERVICIO|1000.00|160.00|1000.00|16
EMITE||1|INGRESO|16|0
)"},
    {"nota_de_credito.txt",
     R"(# Una nota de crédito; su rango de folios es el 2.
EMISOR|{EMISOR}
CLIENTE|PEGM800101AB1|María Peña Güemes|Avenida Niños Héroes|120||Del Valle||Distrito Federal|Benito Juárez|México|03100|250.00|0.00|40.00|290.00|1|{NOTAS}|{FECHA}|
DETALLE|1|N|PAN-07|Devolución de pan de muerto|20|PZA|12.50|40.00|250.00|16
EMITE||1|egreso|16|0
)"},
    {"addenda.txt",
     R"(# Una factura cuyo receptor pide una addenda con su orden de compra y los códigos de sus renglones.
EMISOR|{EMISOR}
CLIENTE|DEM010203ABC|Tiendas El Águila, S.A.|Calzada de los Gallos|77||Industrial||Nuevo León|Monterrey|México|64000|300.00|10.00|46.40|336.40|1|{FACTURAS}|{FECHA}|
DETALLE|3|F|LAP-02|Lápiz del número 2|100|PZA|2.00|32.00|200.00|16
DETALLE|3|F|CUA-10|Cuaderno rayado de 100 hojas|4|PZA|25.00|14.40|100.00|16
ADDENDA|DEM010203ABC|2|1|OC-2011-0457
ADDENDADET|1|DEM010203ABC|5|4|7501000000017
ADDENDADET|2|DEM010203ABC|5|4|7501000000024
EMITE||1|ingreso|16|1
)"},
};

inline constexpr char master_data[] = R"(# La empresa de la demostración, para «tolvex maestros».
[[empresa]]
nombre = "Abarrotes La Esperanza, S.A. de C.V."
rfc = "DEM110101AAA"
calle = "Calle de la Alhóndiga"
num_exterior = "15"
colonia = "Centro"
localidad = "Centro"
municipio = "Guanajuato"
estado = "Guanajuato"
pais = "México"
codigo_postal = "36000"
telefono = "4737320000"

  [[empresa.certificado]]
  descripcion = "Sello de la matriz"
  cer = "certificado.cer"
  key = "llave.key"
  carpeta_sello = "."
  avisa = true

  [[empresa.sucursal]]
  nombre = "Matriz"
  certificado = "Sello de la matriz"
  calle = "Calle de la Alhóndiga"
  num_exterior = "15"
  colonia = "Centro"
  municipio = "Guanajuato"
  estado = "Guanajuato"
  pais = "México"
  codigo_postal = "36000"
  rfc = "DEM110101AAA"

  [[empresa.folios]]
  documento = "FACTURAS"
  sucursal = "Matriz"
  certificado = "Sello de la matriz"
  serie = "A"
  aprobacion = "2011"
  anio = 2011
  desde = 1
  hasta = 100000

  [[empresa.folios]]
  documento = "NOTAS DE CREDITO"
  sucursal = "Matriz"
  certificado = "Sello de la matriz"
  serie = "NC"
  aprobacion = "2012"
  anio = 2011
  desde = 1
  hasta = 100000
)";

// Whom the certificate is for, as openssl reads it; it may have no settings of its own.
inline constexpr const char* certificate_request = R"([req]
prompt = no
distinguished_name = emisor
[emisor]
C = MX
O = Abarrotes La Esperanza
CN = Abarrotes La Esperanza
)";

} // namespace tolvex::console
