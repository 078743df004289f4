' Emite una factura con tres renglones desde VBScript.
'
'   cscript //nologo factura.vbs CARPETA [BASE SERVIDOR [USUARIO CLAVE]]
'
' CARPETA es la carpeta de trabajo: ahí están openssl.exe y pkey.key.pem, y ahí aparece Facturas\*.xml. Sin más
' argumentos usa la base de datos CARPETA\tolvex.db. De 64 bits: C:\Windows\System32\cscript.exe; de 32 bits:
' C:\Windows\SysWOW64\cscript.exe; use el de los bits del TOLVEX.dll registrado. Guarde este archivo como ANSI.
Option Explicit

Const EMPRESA = 1, SUCURSAL = 1
Const RANGO_DE_FOLIOS = "1"
Const DE_CONTADO = 1

Dim carpeta, base, servidor, usuario, clave
carpeta = Argumento(0, ".")
base = Argumento(1, carpeta & "\tolvex.db")
servidor = Argumento(2, "sqlite:")
usuario = Argumento(3, "")
clave = Argumento(4, "")

Dim conexion, cliente, documento, renglones, folio
Set conexion = CreateObject("TOLVEX.ConfigFE")
Set cliente = CreateObject("TOLVEX.Cliente")
Set documento = CreateObject("TOLVEX.GeneraDocto")
Set renglones = CreateObject("TOLVEX.DetFacturas")

' La conexión. Si el servidor no responde hay un error de automatización con el mensaje del controlador.
On Error Resume Next
conexion.SetDatosConexion usuario, clave, base, servidor
conexion.AbrirConexion
If Err.Number <> 0 Then Termina "No se pudo establecer conexión con la base de datos: " & Err.Description
On Error GoTo 0

' El receptor, los totales y el encabezado. Los totales son textos con punto decimal.
cliente.SetDatosClientes "PEGM-800101-AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", _
    "Del Valle", "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100", _
    "1370.00", "0.00", "219.20", "1589.20", DE_CONTADO, RANGO_DE_FOLIOS, Now, carpeta

' El emisor. La sucursal va antes que el certificado, pues dice cuál es el suyo.
If Not documento.GetDatosEmpresa(EMPRESA) Then Termina "No existe la empresa"
If Not documento.GetDatosSucursal(EMPRESA, SUCURSAL) Then Termina "No existe la sucursal"
If Not documento.GetDatosCertificado(EMPRESA) Then Termina "La sucursal no tiene certificado"

' Los renglones: folio, tipo, clave, producto, cantidad, unidad, precio, IVA, importe y tasa.
renglones.InicializaDetalleFactura
renglones.SetDetalleDocto "1", "F", "CAF-01", "Café de altura, 1 kg", 5, "KG", 180, 144, 900, 16
renglones.SetDetalleDocto "1", "F", "PAN-07", "Pan de muerto ""tradicional""", 20, "PZA", 12.5, 40, 250, 16
renglones.SetDetalleDocto "1", "F", "JAB-33", "Jabón líquido & suavizante", 4, "PZA", 55, 35.2, 220, 16

' La emisión. Con True el folio sale del rango y regresa en la variable.
folio = "0"
If Not documento.GeneraFacturaElectronica(folio, True, "ingreso", 16, False) Then
    Termina "No se pudo emitir; revise que la carpeta tenga openssl.exe y pkey.key.pem: " & carpeta
End If
WScript.Echo "Folio: " & folio
WScript.Echo "Carpeta: " & carpeta & "\Facturas"
conexion.CierraConexion

Function Argumento(posicion, deOmision)
    Argumento = deOmision
    If WScript.Arguments.Count > posicion Then Argumento = WScript.Arguments(posicion)
End Function

Sub Termina(mensaje)
    WScript.Echo mensaje
    WScript.Quit 1
End Sub
