# powershell -File emite.ps1 -Servidor SERVIDOR -Base BASE -Carpeta CARPETA [-Usuario U -Contrasenna C]
#
# Como emite.vbs. La DLL ha de tener los bits de PowerShell.
param([string]$Servidor, [string]$Base, [string]$Carpeta, [string]$Usuario = "", [string]$Contrasenna = "")
$ErrorActionPreference = "Stop"

$conexion = New-Object -ComObject TOLVEX.ConfigFE
$cliente = New-Object -ComObject TOLVEX.Cliente
$detalle = New-Object -ComObject TOLVEX.DetFacturas
$documento = New-Object -ComObject TOLVEX.GeneraDocto

$conexion.SetDatosConexion($Usuario, $Contrasenna, $Base, $Servidor)
[void]$conexion.AbrirConexion()
if (-not ($documento.GetDatosEmpresa(1) -and $documento.GetDatosSucursal(1, 1) -and $documento.GetDatosCertificado(1))) {
    throw "Faltan la empresa 1, su sucursal 1 o su certificado"
}

$cliente.SetDatosClientes("PEGM800101AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", "Del Valle",
    "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100",
    "200.00", "0.00", "32.00", "232.00", 1, "1", (Get-Date), $Carpeta)
$detalle.InicializaDetalleFactura()
$detalle.SetDetalleDocto("1", "F", "PAN-07", "Pan", 20, "PZA", 10, 32, 200, 16)

# [ref] recibe el folio.
$folio = ""
if (-not $documento.GeneraFacturaElectronica([ref]$folio, $true)) { throw "No se emitió la factura" }
"Factura $folio en $Carpeta\Facturas"
[void]$conexion.CierraConexion()
