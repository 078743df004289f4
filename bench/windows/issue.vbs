' issue.vbs FOLDER COUNT: milliseconds of a whole issue from a script, and of its batch file alone.
Option Explicit

Dim carpeta, cuantos
carpeta = WScript.Arguments(0)
cuantos = CInt(WScript.Arguments(1))

Dim conexion, cliente, documento, renglones
Set conexion = CreateObject("TOLVEX.ConfigFE")
Set cliente = CreateObject("TOLVEX.Cliente")
Set documento = CreateObject("TOLVEX.GeneraDocto")
Set renglones = CreateObject("TOLVEX.DetFacturas")
conexion.SetDatosConexion "", "", carpeta & "\tolvex.db", "sqlite:"
conexion.AbrirConexion
documento.GetDatosEmpresa 1
documento.GetDatosSucursal 1, 1
documento.GetDatosCertificado 1

Sub Emite
    Dim folio, renglon
    cliente.SetDatosClientes "PEGM800101AB1", "Publico en general", "Calle", "1", "", "Centro", "", "Puebla", "Puebla", _
        "Mexico", "72000", "1000.00", "0.00", "160.00", "1160.00", 1, "1", DateSerial(2011, 3, 15), carpeta
    renglones.InicializaDetalleFactura
    For renglon = 1 To 10
        renglones.SetDetalleDocto "1", "F", "CAF-01", "Cafe de altura, 1 kg", 1, "KG", 100, 16, 100, 16
    Next
    If Not documento.GeneraFacturaElectronica(folio, True, "ingreso", 16, False) Then
        WScript.Echo "no se pudo emitir"
        WScript.Quit 1
    End If
End Sub

' What the seal costs by itself: the two runs of openssl, from a batch file of the same form.
Dim archivos, orden
Set archivos = CreateObject("Scripting.FileSystemObject")
Set orden = archivos.CreateTextFile(carpeta & "\solo.bat")
orden.WriteLine carpeta & "\openssl dgst -sha1 -sign " & carpeta & "\pkey.key.pem  -out " & carpeta & "\solo.md5 " & _
    carpeta & "\factura.txt"
orden.WriteLine carpeta & "\openssl enc -base64  -in " & carpeta & "\solo.md5 -out " & carpeta & "\solo.sel"
orden.Close

Sub Sella
    CreateObject("WScript.Shell").Run carpeta & "\solo.bat", 1, True
End Sub

Dim i, comienza, emision, sello
Emite
Sella
comienza = Timer
For i = 1 To cuantos
    Emite
Next
emision = (Timer - comienza) * 1000 / cuantos
comienza = Timer
For i = 1 To cuantos
    Sella
Next
sello = (Timer - comienza) * 1000 / cuantos
WScript.Echo CLng(emision) & " " & CLng(sello)
