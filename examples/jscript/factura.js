// Emite una factura con tres renglones desde JScript, con un folio que da el programa.
//
//   cscript //nologo factura.js CARPETA FOLIO [BASE SERVIDOR [USUARIO CLAVE]]
//
// CARPETA es la carpeta de trabajo: ahí están openssl.exe y pkey.key.pem, y ahí aparece Facturas\*.xml. FOLIO va
// relleno con ceros a la izquierda (00000120), porque el número del folio comienza en su primer cero. JScript no
// recibe valores en sus variables; por eso no sabría qué folio se tomó de un rango. Sin más argumentos usa la base
// de datos CARPETA\tolvex.db. Guarde este archivo como ANSI.
var EMPRESA = 1, SUCURSAL = 1, RANGO_DE_FOLIOS = "1", DE_CONTADO = 1;

function argumento(posicion, deOmision) {
    return WScript.Arguments.length > posicion ? WScript.Arguments(posicion) : deOmision;
}

// Como aaaa-mm-dd hh:mm:ss, que se entiende en cualquier configuración regional.
function ahora() {
    function dos(numero) { return (numero < 10 ? "0" : "") + numero; }
    var d = new Date();
    return [d.getFullYear(), dos(d.getMonth() + 1), dos(d.getDate())].join("-") + " " +
        [dos(d.getHours()), dos(d.getMinutes()), dos(d.getSeconds())].join(":");
}

function exige(resultado, mensaje) {
    if (!resultado) throw new Error(mensaje);
}

// Si el servidor no responde hay un error de automatización con el mensaje del controlador.
function abre(conexion) {
    try {
        conexion.AbrirConexion();
    } catch (error) {
        throw new Error("No se pudo establecer conexión con la base de datos: " + error.description);
    }
}

function emite(carpeta, folio, base, servidor, usuario, clave) {
    var conexion = new ActiveXObject("TOLVEX.ConfigFE");
    conexion.SetDatosConexion(usuario, clave, base, servidor);
    abre(conexion);

    // El receptor, los totales y el encabezado. Los totales son textos con punto decimal.
    var cliente = new ActiveXObject("TOLVEX.Cliente");
    cliente.SetDatosClientes("PEGM-800101-AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B",
        "Del Valle", "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100",
        "1370.00", "0.00", "219.20", "1589.20", DE_CONTADO, RANGO_DE_FOLIOS, ahora(), carpeta);

    // El emisor. La sucursal va antes que el certificado, pues dice cuál es el suyo.
    var documento = new ActiveXObject("TOLVEX.GeneraDocto");
    exige(documento.GetDatosEmpresa(EMPRESA), "No existe la empresa");
    exige(documento.GetDatosSucursal(EMPRESA, SUCURSAL), "No existe la sucursal");
    exige(documento.GetDatosCertificado(EMPRESA), "La sucursal no tiene certificado");

    // Los renglones: folio, tipo, clave, producto, cantidad, unidad, precio, IVA, importe y tasa.
    var renglones = new ActiveXObject("TOLVEX.DetFacturas");
    renglones.InicializaDetalleFactura();
    renglones.SetDetalleDocto(folio, "F", "CAF-01", "Café de altura, 1 kg", 5, "KG", 180, 144, 900, 16);
    renglones.SetDetalleDocto(folio, "F", "PAN-07", "Pan de muerto \"tradicional\"", 20, "PZA", 12.5, 40, 250, 16);
    renglones.SetDetalleDocto(folio, "F", "JAB-33", "Jabón líquido & suavizante", 4, "PZA", 55, 35.2, 220, 16);

    exige(documento.GeneraFacturaElectronica(folio, false, "ingreso", 16, false),
        "No se pudo emitir; revise que la carpeta tenga openssl.exe y pkey.key.pem: " + carpeta);
    conexion.CierraConexion();
}

try {
    var carpeta = argumento(0, "."), folio = argumento(1, "00000001");
    emite(carpeta, folio, argumento(2, carpeta + "\\tolvex.db"), argumento(3, "sqlite:"), argumento(4, ""),
        argumento(5, ""));
    WScript.Echo("Folio: " + folio);
    WScript.Echo("Carpeta: " + carpeta + "\\Facturas");
} catch (error) {
    WScript.Echo(error.description || error.message);
    WScript.Quit(1);
}
