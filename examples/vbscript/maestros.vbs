' Abre las ventanas de mantenimiento y espera a que se cierren.
'
'   cscript //nologo maestros.vbs QUE [BASE SERVIDOR [USUARIO CLAVE]] [/empresa:N] [/carpeta:RUTA]
'
' QUE: empresas, certificados, sucursales, folios o reporte. Sin más argumentos usa la base de datos tolvex.db de esta
' carpeta. El script debe seguir corriendo mientras las ventanas estén abiertas: WScript.Sleep atiende sus mensajes.
' Ciérrelo con Ctrl+C. Use el cscript de los bits del TOLVEX.dll registrado; guarde este archivo como ANSI.
Option Explicit

Dim que, base, servidor, usuario, clave, empresa
que = LCase(Argumento(0, "empresas"))
base = Argumento(1, CreateObject("Scripting.FileSystemObject").GetAbsolutePathName("tolvex.db"))
servidor = Argumento(2, "sqlite:")
usuario = Argumento(3, "")
clave = Argumento(4, "")
empresa = 1
If WScript.Arguments.Named.Exists("empresa") Then empresa = CInt(WScript.Arguments.Named("empresa"))

Dim maestros
Set maestros = CreateObject("TOLVEX.Maestros")
Select Case que
    Case "empresas"
        maestros.MuestraEmpresas usuario, clave, base, servidor
    Case "certificados"
        maestros.MuestraCertificados usuario, clave, base, servidor, empresa
    Case "sucursales"
        maestros.MuestraSucursales usuario, clave, base, servidor, empresa
    Case "folios"
        maestros.MuestraSeriesyFolios usuario, clave, base, servidor, empresa
    Case "reporte"
        maestros.GeneraReporteDeFoliosUtilizados usuario, clave, base, servidor, Carpeta()
    Case Else
        WScript.Echo "QUE es empresas, certificados, sucursales, folios o reporte"
        WScript.Quit 2
End Select

Do
    WScript.Sleep 100
Loop

Function Argumento(posicion, otro)
    Argumento = otro
    If WScript.Arguments.Unnamed.Count > posicion Then Argumento = WScript.Arguments.Unnamed(posicion)
End Function

Function Carpeta()
    Carpeta = ""
    If WScript.Arguments.Named.Exists("carpeta") Then Carpeta = WScript.Arguments.Named("carpeta")
End Function
