' cscript emite.vbs SERVIDOR BASE CARPETA [USUARIO CONTRASEÑA]
'
' Emite una factura de dos renglones de la empresa 1, sucursal 1, con el siguiente folio del rango 1. CARPETA es la
' carpeta de trabajo, con openssl.exe y pkey.key.pem. Con el SERVIDOR "sqlite:", BASE es un archivo.
Option Explicit

Dim usuario, contrasenna, carpeta
carpeta = WScript.Arguments(2)
If WScript.Arguments.Count > 4 Then
    usuario = WScript.Arguments(3)
    contrasenna = WScript.Arguments(4)
End If

Dim conexion, cliente, detalle, documento
Set conexion = CreateObject("TOLVEX.ConfigFE")
Set cliente = CreateObject("TOLVEX.Cliente")
Set detalle = CreateObject("TOLVEX.DetFacturas")
Set documento = CreateObject("TOLVEX.GeneraDocto")

conexion.SetDatosConexion usuario, contrasenna, WScript.Arguments(1), WScript.Arguments(0)
conexion.AbrirConexion ' un error termina el programa con las palabras del controlador

If Not (documento.GetDatosEmpresa(1) And documento.GetDatosSucursal(1, 1) And documento.GetDatosCertificado(1)) Then
    WScript.Echo "Faltan la empresa 1, su sucursal 1 o su certificado"
    WScript.Quit 1
End If

' Los totales son textos con punto decimal; los importes de los renglones, números.
cliente.SetDatosClientes "PEGM800101AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", "Del Valle", _
    "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100", _
    "1000.00", "0.00", "160.00", "1160.00", 1, "1", Now, carpeta

detalle.InicializaDetalleFactura
detalle.SetDetalleDocto "1", "F", "CAF-01", "Café de altura", 4, "KG", 200, 128, 800, 16
detalle.SetDetalleDocto "1", "F", "PAN-07", "Pan", 20, "PZA", 10, 32, 200, 16

Dim folio
If documento.GeneraFacturaElectronica(folio, True) Then
    WScript.Echo "Factura " & folio & " en " & carpeta & "\Facturas"
Else
    WScript.Echo "No se emitió la factura"
    WScript.Quit 1
End If
conexion.CierraConexion
