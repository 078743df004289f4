' Imprime un documento emitido, lo guarda como PDF o lo muestra.
'
'   cscript //nologo imprime.vbs FOLIO impresora|copias|pdf|visor REPORTE CARPETA [BASE SERVIDOR [USUARIO CLAVE]]
'
' REPORTE es el diseño, como layouts\factura.rdl; el PDF queda en CARPETA, FacturaElec_FOLIO.pdf. Sin más argumentos usa la
' base de datos CARPETA\tolvex.db. Guarde este archivo como ANSI.
Option Explicit

Const EMPRESA = 1, SUCURSAL = 1

Dim folio, que, reporte, carpeta, base, servidor, usuario, clave
folio = Argumento(0, "1")
que = Argumento(1, "pdf")
reporte = Argumento(2, "factura.rdl")
carpeta = Argumento(3, ".")
base = Argumento(4, carpeta & "\tolvex.db")
servidor = Argumento(5, "sqlite:")
usuario = Argumento(6, "")
clave = Argumento(7, "")

Dim conexion, cliente, documento
Set conexion = CreateObject("TOLVEX.ConfigFE")
Set cliente = CreateObject("TOLVEX.Cliente")
Set documento = CreateObject("TOLVEX.GeneraDocto")
conexion.SetDatosConexion usuario, clave, base, servidor
conexion.AbrirConexion

' El PDF queda en la carpeta del último SetDatosClientes: quien sólo imprime la da así.
cliente.SetDatosClientes "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", 1, "", Now, carpeta

Select Case que
    Case "impresora" ' la predeterminada
        documento.ImprimeDocuento folio, EMPRESA, SUCURSAL, False, reporte
    Case "copias"
        documento.ImprimeDocuento folio, EMPRESA, SUCURSAL, False, reporte, False, 3
    Case "pdf"
        documento.ImprimeDocuento folio, EMPRESA, SUCURSAL, False, reporte, True
    Case "visor"
        documento.ImprimeDocuentoConVisor folio, EMPRESA, SUCURSAL, False, reporte
        Do ' mientras el guion vive
            WScript.Sleep 100
        Loop
End Select
conexion.CierraConexion
WScript.Echo "listo"

Function Argumento(posicion, deOmision)
    Argumento = deOmision
    If WScript.Arguments.Count > posicion Then Argumento = WScript.Arguments(posicion)
End Function
