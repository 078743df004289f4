' The assertions of every VBScript test. A test ends with Fin.
Option Explicit

Dim comprobaciones, fallas
comprobaciones = 0
fallas = 0

Sub Comprueba(que, cumple)
    comprobaciones = comprobaciones + 1
    If cumple Then Exit Sub
    fallas = fallas + 1
    WScript.Echo "FALLA: " & que
End Sub

Sub Igual(que, obtenido, esperado)
    Comprueba que & ": " & TypeName(obtenido) & " [" & obtenido & "] en vez de " & TypeName(esperado) & " [" & _
        esperado & "]", TypeName(obtenido) = TypeName(esperado) And CStr(obtenido) = CStr(esperado)
End Sub

' After a statement under On Error Resume Next.
Sub SinError(que)
    Comprueba que & ": error " & Err.Number & " " & Err.Description, Err.Number = 0
    Err.Clear
End Sub

Sub FallaCon(que, numero, parteDeLaDescripcion)
    Comprueba que & ": error " & Err.Number & " [" & Err.Description & "] en vez de " & numero & " [" & _
        parteDeLaDescripcion & "]", Err.Number = numero And InStr(Err.Description, parteDeLaDescripcion) > 0
    Err.Clear
End Sub

Sub Fin
    WScript.Echo "FIN: " & comprobaciones & " comprobaciones, " & fallas & " fallas"
End Sub

