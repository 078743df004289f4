' flat_file.vbs FOLDER: issues FOLDER\documents.txt.
Dim docto, carpeta
carpeta = WScript.Arguments(0)
Set docto = CreateObject("TOLVEX.GeneraDocto")
Igual "documentos emitidos", docto.GeneraFacturaElectronicaDesdeArchivoPlano(carpeta, "documents.txt", "", "", "sqlite:", _
    carpeta & "\facturas.db"), "A1,A2,NC5,B77"
Fin
