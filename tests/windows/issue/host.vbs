' Issues every document of a flat file through the calls that a host makes, and says what each answers (-1 is True);
' amounts are written as in the user's locale, except the totals, which have a decimal point in every locale.
'   host.vbs FLAT_FILE FOLDER DATABASE SERVER [USER PASSWORD]
Option Explicit
Dim argumentos, carpeta, conexion, cliente, documento, renglones, addenda, usuario, clave, archivo, linea
Set argumentos = WScript.Arguments
carpeta = argumentos(1)
Set conexion = CreateObject("TOLVEX.ConfigFE")
Set cliente = CreateObject("TOLVEX.Cliente")
Set documento = CreateObject("TOLVEX.GeneraDocto")
Set renglones = CreateObject("TOLVEX.DetFacturas")
Set addenda = CreateObject("TOLVEX.Addenda")

If argumentos.Count > 4 Then usuario = argumentos(4)
If argumentos.Count > 5 Then clave = argumentos(5)
conexion.SetDatosConexion usuario, clave, argumentos(2), argumentos(3)
WScript.Echo "Conexión: " & CInt(conexion.AbrirConexion()) & ", otra vez " & CInt(conexion.AbrirConexion())

WScript.Echo "Uno y medio: " & CStr(1.5)
Set archivo = CreateObject("Scripting.FileSystemObject").OpenTextFile(argumentos(0))
Do Until archivo.AtEndOfStream
    linea = archivo.ReadLine
    If linea <> "" And Left(linea, 1) <> "#" Then Registro Split(linea & "|", "|")
Loop
WScript.Echo "Cierre: " & CInt(conexion.CierraConexion())

Sub Registro(v)
    Select Case v(0)
        Case "EMISOR"
            WScript.Echo "Emisor 9: " & CInt(documento.GetDatosEmpresa(9)) & ", " & v(1) & ": " & _
                CInt(documento.GetDatosEmpresa(v(1)) And documento.GetDatosSucursal(v(1), v(2)) And _
                documento.GetDatosCertificado(v(1)))
        Case "CLIENTE"
            renglones.InicializaDetalleFactura
            addenda.InicializaAddenda
            cliente.SetDatosClientes v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10), v(11), v(12), v(13), _
                v(14), v(15), v(16), v(17), Fecha(v(18)), carpeta, DelUsuario(v(20)), DelUsuario(v(21)), v(22), _
                DelUsuario(v(23)), v(24), v(25), v(26)
        Case "DETALLE"
            renglones.SetDetalleDocto v(1), v(2), v(3), v(4), DelUsuario(v(5)), v(6), CDbl(DelUsuario(v(7))), _
                CDbl(DelUsuario(v(8))), CCur(DelUsuario(v(9))), v(10)
        Case "ADDENDA"
            If UBound(v) > 4 Then addenda.SetAddenda v(1), v(2), v(3), v(4) Else addenda.SetAddenda v(1), v(2), v(3)
        Case "ADDENDADET"
            addenda.SetAddendaDet v(1), v(2), v(3), v(4), v(5)
        Case "EMITE"
            Emite v
        Case "CANCELA"
            WScript.Echo "Cancelación: " & CInt(documento.CancelaFacturaElectronica(v(1), Fecha(v(2)), 1, 1))
        Case "BORRA"
            WScript.Echo "Borrado: " & CInt(documento.BorraFacturaElectronica(1, 1, v(1)))
    End Select
End Sub

Function DelUsuario(numero)
    DelUsuario = Replace(numero, ".", Mid(CStr(1.5), 2, 1))
End Function

Function Fecha(texto)
    Fecha = DateSerial(Mid(texto, 1, 4), Mid(texto, 6, 2), Mid(texto, 9, 2)) + _
        TimeSerial(Mid(texto, 12, 2), Mid(texto, 15, 2), Mid(texto, 18, 2))
End Function

Sub Emite(v)
    Dim folio, siguiente, resultado
    folio = v(1)
    If v(2) = "1" Then
        resultado = documento.GeneraFacturaElectronica(folio, True, v(3), v(4), v(5))
    Else
        resultado = documento.GeneraFacturaElectronica(folio)
    End If
    documento.fgObtenFolioFactura "1", siguiente
    WScript.Echo "Documento: " & folio & " " & CInt(resultado) & ", siguiente " & siguiente
End Sub
