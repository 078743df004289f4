' A host that ends with an open connection and staged data: it ends all the same.

Dim fe, detalle, archivos, carpeta
Set archivos = CreateObject("Scripting.FileSystemObject")
carpeta = archivos.GetSpecialFolder(2) & "\" & archivos.GetTempName
archivos.CreateFolder carpeta
Set fe = CreateObject("TOLVEX.ConfigFE")
Set detalle = CreateObject("TOLVEX.DetFacturas")
fe.SetDatosConexion "", "", carpeta & "\abierta.db", "sqlite:"
Igual "AbrirConexion", fe.AbrirConexion(), True
detalle.SetDetalleDocto "1", "F", "A", "Producto", 1, "PZA", 1, 1, 1, 16

' AbrirConexion reaches the host with the driver's words.
On Error Resume Next
fe.SetDatosConexion "", "", carpeta & "\no existe\otra.db", "sqlite:"
fe.AbrirConexion
Comprueba "base que no se puede abrir: " & Err.Number & " " & Err.Description, Err.Number = -2147467259 And _
    Err.Source = "TOLVEX.ConfigFE" And Err.Description <> ""
Err.Clear
fe.SetDatosConexion "", "", carpeta & "\abierta.db", "sqlite:"
Igual "AbrirConexion otra vez", fe.AbrirConexion(), True
Fin
