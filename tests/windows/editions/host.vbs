' Issues every document of a flat file through the calls that a host makes, and says folio and result of each.
'   host.vbs FLAT_FILE FOLDER DATABASE SERVER [USER PASSWORD]
Option Explicit

Dim argumentos, carpeta, conexion, cliente, documento, renglones, addenda
Set argumentos = WScript.Arguments
carpeta = argumentos(1)
Set conexion = CreateObject("TOLVEX.ConfigFE")
Set cliente = CreateObject("TOLVEX.Cliente")
Set documento = CreateObject("TOLVEX.GeneraDocto")
Set renglones = CreateObject("TOLVEX.DetFacturas")
Set addenda = CreateObject("TOLVEX.Addenda")

Dim usuario, clave
If argumentos.Count > 4 Then usuario = argumentos(4)
If argumentos.Count > 5 Then clave = argumentos(5)
conexion.SetDatosConexion usuario, clave, argumentos(2), argumentos(3)
WScript.Echo "AbrirConexion: " & conexion.AbrirConexion()

Dim archivo, linea, folio
Set archivo = CreateObject("Scripting.FileSystemObject").OpenTextFile(argumentos(0))
Do Until archivo.AtEndOfStream
    linea = archivo.ReadLine
    If linea <> "" And Left(linea, 1) <> "#" Then Registro Split(linea & "|", "|")
Loop
conexion.CierraConexion
WScript.Echo "FIN"

Sub Registro(v)
    Select Case v(0)
        Case "EMISOR"
            WScript.Echo "Emisor: " & documento.GetDatosEmpresa(v(1)) & " " & _
                documento.GetDatosSucursal(v(1), v(2)) & " " & documento.GetDatosCertificado(v(1))
        Case "CLIENTE"
            renglones.InicializaDetalleFactura
            addenda.InicializaAddenda
            ClienteCon v
        Case "DETALLE"
            renglones.SetDetalleDocto v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10)
        Case "ADDENDA"
            If UBound(v) > 4 Then addenda.SetAddenda v(1), v(2), v(3), v(4) Else addenda.SetAddenda v(1), v(2), v(3)
        Case "ADDENDADET"
            addenda.SetAddendaDet v(1), v(2), v(3), v(4), v(5)
        Case "EMITE"
            Emite v
    End Select
End Sub

' The short records leave the optional values out.
Sub ClienteCon(v)
    Dim fecha
    fecha = DateSerial(Mid(v(18), 1, 4), Mid(v(18), 6, 2), Mid(v(18), 9, 2)) + _
        TimeSerial(Mid(v(18), 12, 2), Mid(v(18), 15, 2), Mid(v(18), 18, 2))
    If UBound(v) < 26 Then
        cliente.SetDatosClientes v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10), v(11), v(12), v(13), _
            v(14), v(15), v(16), v(17), fecha, carpeta
    Else
        cliente.SetDatosClientes v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10), v(11), v(12), v(13), _
            v(14), v(15), v(16), v(17), fecha, carpeta, v(20), v(21), v(22), v(23), v(24), v(25), v(26)
    End If
End Sub

Sub Emite(v)
    Dim folio, siguiente, resultado
    folio = v(1)
    siguiente = "antes"
    If v(2) = "1" Then
        resultado = documento.GeneraFacturaElectronica(folio, True, v(3), v(4), v(5))
    Else
        resultado = documento.GeneraFacturaElectronica(folio)
    End If
    documento.fgObtenFolioFactura "1", siguiente
    WScript.Echo "Documento: " & folio & " " & resultado & ", siguiente " & siguiente
End Sub
