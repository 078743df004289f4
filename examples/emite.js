// cscript emite.js SERVIDOR BASE CARPETA [USUARIO CONTRASEÑA]
//
// Como emite.vbs, con un folio dado: JScript no recibe nada en sus argumentos.
var argumentos = WScript.Arguments;
var carpeta = argumentos(2);
var usuario = argumentos.length > 4 ? argumentos(3) : "", contrasenna = argumentos.length > 4 ? argumentos(4) : "";

var conexion = new ActiveXObject("TOLVEX.ConfigFE");
var cliente = new ActiveXObject("TOLVEX.Cliente");
var detalle = new ActiveXObject("TOLVEX.DetFacturas");
var documento = new ActiveXObject("TOLVEX.GeneraDocto");

conexion.SetDatosConexion(usuario, contrasenna, argumentos(1), argumentos(0));
conexion.AbrirConexion();
if (!documento.GetDatosEmpresa(1) || !documento.GetDatosSucursal(1, 1) || !documento.GetDatosCertificado(1)) {
    WScript.Echo("Faltan la empresa 1, su sucursal 1 o su certificado");
    WScript.Quit(1);
}

// Una fecha de automatización: días desde el 30 de diciembre de 1899, en la hora local.
var ahora = new Date();
var fecha = (ahora.getTime() - ahora.getTimezoneOffset() * 60000) / 86400000 + 25569;

cliente.SetDatosClientes("PEGM800101AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", "Del Valle",
                         "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100", "200.00", "0.00",
                         "32.00", "232.00", 1, "1", fecha, carpeta);
detalle.InicializaDetalleFactura();
detalle.SetDetalleDocto("1", "F", "PAN-07", "Pan", 20, "PZA", 10, 32, 200, 16);

var emitida = documento.GeneraFacturaElectronica("7");
WScript.Echo(emitida ? "Factura 7 en " + carpeta + "\\Facturas" : "No se emitió la factura");
conexion.CierraConexion();
WScript.Quit(emitida ? 0 : 1);
