' flat_file.vbs FOLDER: the component issues FOLDER\documentos.txt by itself.
Dim carpeta
carpeta = WScript.Arguments(0)
Igual "documentos emitidos", CreateObject("TOLVEX.GeneraDocto").GeneraFacturaElectronicaDesdeArchivoPlano(carpeta, _
    "documentos.txt", "", "", "sqlite:", carpeta & "\tolvex.db"), "A4,A5,NC2,A6,A00000777"
Fin
