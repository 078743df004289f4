' What a late-bound host may pass: kinds of values, omitted and too many arguments, and what comes back.

Class Caja
    Public Default Property Get Valor()
        Valor = contenido
    End Property
    Public contenido
End Class

Dim cliente, detalle, addenda, docto, fe, resultado, numero
Set cliente = CreateObject("TOLVEX.Cliente")
Set detalle = CreateObject("TOLVEX.DetFacturas")
Set addenda = CreateObject("TOLVEX.Addenda")
Set docto = CreateObject("TOLVEX.GeneraDocto")
Set fe = CreateObject("TOLVEX.ConfigFE")
Set numero = New Caja

On Error Resume Next

' A method without a result, one whose variant is always Empty, and one that answers before any connection.
docto.Main
SinError "Main"
resultado = addenda.InicializaAddenda()
Igual "InicializaAddenda da Empty", TypeName(resultado), "Empty"
Igual "CierraConexion", fe.CierraConexion(), True

' Conversions that a host of this kind expects, optional arguments omitted at the end and in the middle.
addenda.SetAddenda 12345, "3", 1.5
SinError "número como texto, texto y fracción como número"
addenda.SetAddenda Empty, Empty, True
SinError "Empty y Boolean"
detalle.SetDetalleDocto "1", "F", "A", "Producto", "2.5", "PZA", 10, 1.6, CCur(25), Empty
SinError "importes de varios tipos"
numero.contenido = 5
ADDENDA.setaddenda numero, numero, "7"
SinError "objeto con valor predeterminado, mayúsculas y minúsculas"
cliente.SetDatosClientes "R", "N", "C", "1", "", "", "", "", "", "", "", "100", "0", "16", "116", 1, "1", Now, "C:\"
SinError "siete opcionales omitidos"
cliente.SetDatosClientes "R", "N", "C", "1", "", "", "", "", "", "", "", "100", "0", "16", "116", 1, "1", Now, "C:\", , , "USD"
SinError "opcionales omitidos en medio"

' Errors of arguments.
numero.contenido = "abc"
addenda.SetAddenda "R", numero, 1
FallaCon "valor predeterminado que no es número", 13, "nRama"
addenda.SetAddenda "R", 70000, 1
FallaCon "fuera de rango", 6, "nRama"
addenda.SetAddenda "R", 1, Null
FallaCon "Null", 94, "Uso no válido de Null"
addenda.SetAddenda Nothing, 1, 1
FallaCon "Nothing", 91, "cRfcCte"
detalle.SetDetalleDocto "1", "F", "A", "P", 1E+15, "PZA", 1, 1, 1, 1
FallaCon "importe sin lugar", 6, "Cantidad"
docto.CancelaFacturaElectronica "1", "no es fecha", 1, 1
FallaCon "texto que no es fecha", 13, "FechaCancelacion"
docto.CancelaFacturaElectronica "1", Now, 1, 1, "quizás"
FallaCon "texto que no es Boolean", 13, "NotadeCredito"

' Errors of the call itself.
addenda.SetAddenda "R", 1
FallaCon "falta un argumento", 449, ""
addenda.SetAddenda "R", , 1
FallaCon "argumento obligatorio omitido", 449, ""
addenda.SetAddenda "R", 1, 1, "valor", "otro"
FallaCon "sobra un argumento", 450, ""
addenda.NoExiste 1
FallaCon "método que no existe", 438, ""

' What the database's driver says reaches the host, and the source names the class.
fe.SetDatosConexion "", "", "Z:\no existe\otra.db", "sqlite:"
fe.AbrirConexion
Igual "origen del error", Err.Source, "TOLVEX.ConfigFE"
FallaCon "base que no se puede abrir", -2147467259, "otra.db"

' A variable takes the type of a parameter that gives a value back, and only of that one.
Dim caja, folio
caja = 1
folio = 7
resultado = docto.fgObtenFolioFactura(caja, folio)
Comprueba "sin conexión hay error", Err.Number <> 0
Err.Clear
Igual "FolioFactura vuelve como texto", folio, "0"
Igual "Caja no cambia", caja, 1

Fin
