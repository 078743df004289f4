' prepare.vbs DATABASE: the component makes its tables on the first open.
Dim fe
Set fe = CreateObject("TOLVEX.ConfigFE")
fe.SetDatosConexion "", "", WScript.Arguments(0), "sqlite:"
Igual "AbrirConexion", fe.AbrirConexion(), True
Igual "CierraConexion", fe.CierraConexion(), True
Fin
