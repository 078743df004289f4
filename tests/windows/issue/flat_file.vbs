' flat_file.vbs FOLDER: the component issues FOLDER\documentos.txt by itself.
Dim carpeta
carpeta = WScript.Arguments(0)
WScript.Echo CreateObject("TOLVEX.GeneraDocto").GeneraFacturaElectronicaDesdeArchivoPlano(carpeta, _
    "documentos.txt", "", "", "sqlite:", carpeta & "\tolvex.db")
