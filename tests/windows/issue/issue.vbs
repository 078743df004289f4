' issue.vbs FOLDER POINT: a host issues, looks up, cancels and deletes documents in the documented
' order. POINT is the decimal point of the user's locale, in which numbers become texts and texts numbers.

Dim carpeta, punto, archivos
carpeta = WScript.Arguments(0)
punto = WScript.Arguments(1)
Igual "punto decimal del usuario", CStr(1.5), "1" & punto & "5"
Set archivos = WScript.CreateObject("Scripting.FileSystemObject")

' Two objects of a class share one session: one is given the data, the other opens.
Dim fe, otra
Set fe = CreateObject("TOLVEX.ConfigFE")
Set otra = CreateObject("TOLVEX.ConfigFE")
fe.SetDatosConexion "", "", carpeta & "\facturas.db", "sqlite:"
Set fe = Nothing
Igual "AbrirConexion", otra.AbrirConexion(), True
Igual "AbrirConexion otra vez", otra.AbrirConexion(), True

Dim cliente, docto, detalle, addenda
Set cliente = CreateObject("TOLVEX.Cliente")
Set docto = CreateObject("TOLVEX.GeneraDocto")
Set detalle = CreateObject("TOLVEX.DetFacturas")
Set addenda = CreateObject("TOLVEX.Addenda")

cliente.SetDatosClientes "PEGM800101AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", "Del Valle", _
    "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100", "920.00", "0.00", "147.20", "1067.20", _
    1, "1", #3/15/2011 2:05:09 PM#, carpeta

Igual "empresa que no existe", docto.GetDatosEmpresa(9), False
Igual "GetDatosEmpresa", docto.GetDatosEmpresa(1), True
Igual "GetDatosSucursal", docto.GetDatosSucursal(1, 1), True
Igual "GetDatosCertificado", docto.GetDatosCertificado(1), True

Sub Renglones(clave)
    detalle.InicializaDetalleFactura
    detalle.SetDetalleDocto clave, "F", "CAF-01", "Café de altura & ""orgánico""", 5, "KG", 180, 144, 900, 16
    detalle.SetDetalleDocto clave, "F", "PAN-07", "Pan", "1" & punto & "5", "PZA", CStr(13.3333), 3.2, 20, 16
End Sub

Dim folio, siguiente
Igual "hay folio", docto.fgObtenFolioFactura("1", siguiente), True
Igual "siguiente folio", siguiente, "1"
Renglones "1"
Igual "GeneraFacturaElectronica", docto.GeneraFacturaElectronica(folio, True), True
Igual "folio tomado", folio, "1"
Comprueba "el XML está", archivos.FileExists(carpeta & "\Facturas\A1.xml")
Comprueba "los archivos del sello se borraron", Not archivos.FileExists(carpeta & "\sello.bat") And _
    Not archivos.FileExists(carpeta & "\utf8.txt")

Dim xml
xml = archivos.OpenTextFile(carpeta & "\Facturas\A1.xml").ReadAll

Function Atributo(nombre)
    Dim resto
    resto = Mid(xml, InStr(xml, " " & nombre & "=""") + Len(nombre) + 3)
    Atributo = Left(resto, InStr(resto, """") - 1)
End Function

Comprueba "importes con punto", InStr(xml, "cantidad=""1.50""") > 0 And InStr(xml, "valorUnitario=""13.33""") > 0
Igual "fecha", Atributo("fecha"), "2011-03-15T14:05:09"
Igual "total", Atributo("total"), "1067.20"
Comprueba "sello de 2048 bits", Len(Atributo("sello")) = 344

' The range has two folios; with the third the method says so in a box, so it is asked for only.
Renglones "2"
folio = 0
Igual "segunda factura", docto.GeneraFacturaElectronica(folio, True, , 16, False), True
Igual "segundo folio", folio, "2"
Igual "rango agotado", docto.fgObtenFolioFactura(1, siguiente), False
Igual "sin folio", siguiente, "0"

Igual "CancelaFacturaElectronica", docto.CancelaFacturaElectronica("1", #12/31/2011 11:59:00 PM#, 1, 1), True
Igual "BorraFacturaElectronica", docto.BorraFacturaElectronica(1, 1, "2"), True

' A statement that the database refuses: trapped in one method, raised by the other.
On Error Resume Next
Igual "comilla en la clave, atrapada", docto.BorraFacturaElectronica(1, 1, "1'"), False
SinError "BorraFacturaElectronica atrapa"
docto.fgObtenFolioFactura "1'", siguiente
Comprueba "fgObtenFolioFactura no atrapa", Err.Number <> 0 And Err.Source = "TOLVEX.GeneraDocto" And Err.Description <> ""
Err.Clear
On Error GoTo 0

Igual "CierraConexion", otra.CierraConexion(), True
Fin
