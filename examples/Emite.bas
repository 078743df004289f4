Attribute VB_Name = "Emite"
' Visual Basic 6 y VBA, con la referencia «TOLVEX 1.0» (enlace temprano). Sin ella, declare los objetos As Object y
' créelos con CreateObject("TOLVEX.ConfigFE"), etcétera.
Option Explicit

' Emite una factura y devuelve su folio; vacío si no se pudo.
Public Function EmiteFactura(Servidor As String, Base As String, Usuario As String, Contrasenna As String, _
                             Carpeta As String) As String
    Dim conexion As New TOLVEX.ConfigFE
    Dim cliente As New TOLVEX.Cliente
    Dim detalle As New TOLVEX.DetFacturas
    Dim documento As New TOLVEX.GeneraDocto
    Dim folio As String

    conexion.SetDatosConexion Usuario, Contrasenna, Base, Servidor
    conexion.AbrirConexion

    If Not documento.GetDatosEmpresa(1) Then Exit Function
    If Not documento.GetDatosSucursal(1, 1) Then Exit Function
    If Not documento.GetDatosCertificado(1) Then Exit Function

    cliente.SetDatosClientes "PEGM800101AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", "Del Valle", _
        "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100", _
        "200.00", "0.00", "32.00", "232.00", 1, "1", Now, Carpeta, moneda:="PESOS"

    detalle.InicializaDetalleFactura
    detalle.SetDetalleDocto "1", "F", "PAN-07", "Pan", 20, "PZA", 10, 32, 200, 16

    If documento.GeneraFacturaElectronica(folio, CtrlFolioInterno:=True) Then EmiteFactura = folio
    conexion.CierraConexion
End Function
