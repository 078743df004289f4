' Prints documents as a host does that never asks for what may go wrong, and says that it goes on.
'   imprime.vbs DATABASE LAYOUT FOLDER
Option Explicit
Dim argumentos, reporte, carpeta, conexion, cliente, documento, folio
Set argumentos = WScript.Arguments
reporte = argumentos(1)
carpeta = argumentos(2)
Set conexion = CreateObject("TOLVEX.ConfigFE")
Set cliente = CreateObject("TOLVEX.Cliente")
Set documento = CreateObject("TOLVEX.GeneraDocto")

conexion.SetDatosConexion "", "", argumentos(0), "sqlite:"
WScript.Echo "Conexión: " & CInt(conexion.AbrirConexion())
cliente.SetDatosClientes "XAXX010101000", "", "", "", "", "", "", "", "", "", "", "", "0", "0", "0", "0", 1, Now, carpeta

For Each folio In Array("1", "2", "3", "4")
    documento.ImprimeDocuento folio, 1, 1, folio = "2", reporte, True, 3
Next
documento.ImprimeDocuento "4", 1, 1, False, reporte
documento.ImprimeDocuento "1", 1, 1, False, reporte, False, 2
WScript.Echo "Impresos"

documento.ImprimeDocuento "5", 1, 1, False, carpeta & "\no hay.rdl", True
documento.ImprimeDocuento "6", 1, 1, False, carpeta & "\no hay.rdl"
documento.ImprimeDocuentoConVisor "6", 1, 1, False, carpeta & "\no hay.rdl"
documento.ImprimeDocuento "7", 1, 1, False, carpeta & "\tolvex.db", True
WScript.Echo "Sin reporte"

documento.ImprimeDocuentoConVisor "1", 1, 1, False, reporte
documento.ImprimeDocuentoConVisor "4", 1, 1, False, reporte
WScript.Echo "Con dos visores abiertos"
