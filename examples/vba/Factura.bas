Attribute VB_Name = "Factura"
' Emite una factura con tres renglones desde VBA (Excel, Access) o Visual Basic 6, con enlace temprano.
'
' Importe este archivo (Archivo, Importar archivo), marque la referencia "TOLVEX" en Herramientas, Referencias, ponga su
' carpeta de trabajo en CARPETA y ejecute EmiteFactura. La carpeta tiene openssl.exe y pkey.key.pem; ahí aparece
' Facturas\*.xml. Los bits de TOLVEX.dll son los de Office; Visual Basic 6 es de 32.
Option Explicit

Private Const CARPETA As String = "C:\TOLVEX"
Private Const BASE As String = "C:\TOLVEX\tolvex.db"    ' con SQL Server, el nombre de la base de datos
Private Const SERVIDOR As String = "sqlite:"            ' con SQL Server, el nombre del servidor
Private Const USUARIO As String = ""
Private Const CLAVE As String = ""

Private Const EMPRESA As Integer = 1
Private Const SUCURSAL As Integer = 1
Private Const RANGO_DE_FOLIOS As String = "1"
Private Const DE_CONTADO As Integer = 1

Public Sub EmiteFactura()
    Dim folio As String

    On Error GoTo Falla
    AbreConexion
    DaReceptor
    DaRenglones
    If Not Emite(folio) Then
        MsgBox "No se pudo emitir; revise que la carpeta tenga openssl.exe y pkey.key.pem: " & CARPETA, vbExclamation
        Exit Sub
    End If
    MsgBox "Folio: " & folio & vbCrLf & "Carpeta: " & CARPETA & "\Facturas", vbInformation
    Exit Sub
Falla:
    MsgBox Err.Description & vbCrLf & Err.Source, vbExclamation
End Sub

' Si el servidor no responde hay un error con el mensaje del controlador.
Private Sub AbreConexion()
    Dim conexion As New TOLVEX.ConfigFE
    conexion.SetDatosConexion USUARIO, CLAVE, BASE, SERVIDOR
    On Error GoTo SinConexion
    conexion.AbrirConexion
    Exit Sub
SinConexion:
    Err.Raise Err.Number, Err.Source, "No se pudo establecer conexión con la base de datos: " & Err.Description
End Sub

' El receptor, los totales y el encabezado. Los totales son textos con punto decimal.
Private Sub DaReceptor()
    Dim cliente As New TOLVEX.Cliente
    cliente.SetDatosClientes "PEGM-800101-AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", _
        "Del Valle", "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100", _
        "1370.00", "0.00", "219.20", "1589.20", DE_CONTADO, RANGO_DE_FOLIOS, Now, CARPETA
End Sub

' Folio, tipo, clave, producto, cantidad, unidad, precio, IVA, importe y tasa.
Private Sub DaRenglones()
    Dim renglones As New TOLVEX.DetFacturas
    renglones.InicializaDetalleFactura
    renglones.SetDetalleDocto "1", "F", "CAF-01", "Café de altura, 1 kg", 5, "KG", 180, 144, 900, 16
    renglones.SetDetalleDocto "1", "F", "PAN-07", "Pan de muerto ""tradicional""", 20, "PZA", 12.5, 40, 250, 16
    renglones.SetDetalleDocto "1", "F", "JAB-33", "Jabón líquido & suavizante", 4, "PZA", 55, 35.2, 220, 16
End Sub

' Carga el emisor y emite; el folio que se tomó del rango regresa en la variable.
Private Function Emite(ByRef folio As String) As Boolean
    Dim documento As New TOLVEX.GeneraDocto
    Emite = False
    If Not documento.GetDatosEmpresa(EMPRESA) Then Exit Function
    If Not documento.GetDatosSucursal(EMPRESA, SUCURSAL) Then Exit Function
    If Not documento.GetDatosCertificado(EMPRESA) Then Exit Function    ' el de la sucursal: por eso va después
    Emite = documento.GeneraFacturaElectronica(folio, CtrlFolioInterno:=True, vlGeneraAddenda:=False)
End Function
