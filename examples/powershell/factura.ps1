<#
.SYNOPSIS
Emite una factura con tres renglones desde PowerShell.
.DESCRIPTION
Carpeta es la carpeta de trabajo: ahí están openssl.exe y pkey.key.pem, y ahí aparece Facturas\*.xml. Los bits de
TOLVEX.dll son los de PowerShell (el de 32 está en C:\Windows\SysWOW64\WindowsPowerShell\v1.0).
.EXAMPLE
.\factura.ps1 C:\TOLVEX
.\factura.ps1 C:\TOLVEX -Servidor caja01 -Base ventas -Usuario fe -Clave secreta
#>
param(
    [Parameter(Mandatory)] [string] $Carpeta,
    [string] $Base = "$Carpeta\tolvex.db",
    [string] $Servidor = 'sqlite:',
    [string] $Usuario = '',
    [string] $Clave = ''
)
$ErrorActionPreference = 'Stop'
$empresa = 1; $sucursal = 1; $rangoDeFolios = '1'; $deContado = 1

# Lo que el componente dice del último error: la información de error que COM guarda para el hilo.
function UltimoError { [Runtime.InteropServices.Marshal]::GetExceptionForHR(0x80004005).Message }
function Exige($resultado, $mensaje) { if (-not $resultado) { throw "${mensaje}: $(UltimoError)" } }

# Si el servidor no responde hay un error con el mensaje del controlador.
$conexion = New-Object -ComObject TOLVEX.ConfigFE
[void] $conexion.SetDatosConexion($Usuario, $Clave, $Base, $Servidor)
try { [void] $conexion.AbrirConexion() }
catch { throw "No se pudo establecer conexión con la base de datos: $($_.Exception.Message)" }

# El receptor, los totales y el encabezado. Los totales son textos con punto decimal.
$cliente = New-Object -ComObject TOLVEX.Cliente
[void] $cliente.SetDatosClientes('PEGM-800101-AB1', 'María Peña Güemes', 'Avenida Niños Héroes', '120', '4 B',
    'Del Valle', 'Ciudad de México', 'Distrito Federal', 'Benito Juárez', 'México', '03100',
    '1370.00', '0.00', '219.20', '1589.20', $deContado, $rangoDeFolios, (Get-Date), $Carpeta)

# El emisor. La sucursal va antes que el certificado, pues dice cuál es el suyo.
$documento = New-Object -ComObject TOLVEX.GeneraDocto
Exige $documento.GetDatosEmpresa($empresa) 'No existe la empresa'
Exige $documento.GetDatosSucursal($empresa, $sucursal) 'No existe la sucursal'
Exige $documento.GetDatosCertificado($empresa) 'La sucursal no tiene certificado'

# Los renglones: folio, tipo, clave, producto, cantidad, unidad, precio, IVA, importe y tasa.
$renglones = New-Object -ComObject TOLVEX.DetFacturas
[void] $renglones.InicializaDetalleFactura()
[void] $renglones.SetDetalleDocto('1', 'F', 'CAF-01', 'Café de altura, 1 kg', 5, 'KG', 180, 144, 900, 16)
[void] $renglones.SetDetalleDocto('1', 'F', 'PAN-07', 'Pan de muerto "tradicional"', 20, 'PZA', 12.5, 40, 250, 16)
[void] $renglones.SetDetalleDocto('1', 'F', 'JAB-33', 'Jabón líquido & suavizante', 4, 'PZA', 55, 35.2, 220, 16)

# La emisión. El folio sale del rango y regresa en la variable.
$folio = '0'
Exige $documento.GeneraFacturaElectronica([ref] $folio, $true, 'ingreso', 16, $false) 'No se pudo emitir'
"Folio: $folio"
"Carpeta: $Carpeta\Facturas"
[void] $conexion.CierraConexion()
