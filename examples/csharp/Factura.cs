// Emite una factura con tres renglones desde C#, con enlace temprano.
//
//   Factura CARPETA [BASE SERVIDOR [USUARIO CLAVE]]
//
// CARPETA es la carpeta de trabajo: ahí están openssl.exe y pkey.key.pem, y ahí aparece Facturas\*.xml. Sin más
// argumentos usa la base de datos CARPETA\tolvex.db. Compilación (tlbimp y csc vienen con el SDK de .NET Framework):
//
//   tlbimp TOLVEX.dll /out:Interop.TOLVEX.dll /namespace:TOLVEX
//   csc /platform:x86 /reference:Interop.TOLVEX.dll Factura.cs        (o /platform:x64; los bits de TOLVEX.dll)
using System;
using System.Runtime.InteropServices;
using TOLVEX;

internal static class Factura
{
    private const short Empresa = 1, Sucursal = 1, DeContado = 1;
    private const string RangoDeFolios = "1";

    [STAThread] // los objetos son de apartamento
    private static int Main(string[] argumentos)
    {
        string carpeta = Argumento(argumentos, 0, ".");
        try
        {
            AbreConexion(Argumento(argumentos, 1, carpeta + @"\tolvex.db"), Argumento(argumentos, 2, "sqlite:"),
                         Argumento(argumentos, 3, ""), Argumento(argumentos, 4, ""));
            DaReceptor(carpeta);
            DaRenglones();
            Console.WriteLine("Folio: " + Emite());
            Console.WriteLine("Carpeta: " + carpeta + @"\Facturas");
            return 0;
        }
        catch (Exception error)
        {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }

    private static string Argumento(string[] argumentos, int posicion, string deOmision)
    {
        return argumentos.Length > posicion ? argumentos[posicion] : deOmision;
    }

    // Si el servidor no responde hay una COMException con el mensaje del controlador.
    private static void AbreConexion(string baseDeDatos, string servidor, string usuario, string clave)
    {
        var conexion = new ConfigFE();
        conexion.SetDatosConexion(ref usuario, ref clave, ref baseDeDatos, ref servidor);
        try
        {
            conexion.AbrirConexion();
        }
        catch (COMException error)
        {
            throw new InvalidOperationException("No se pudo establecer conexión con la base de datos: " + error.Message);
        }
    }

    // El receptor, los totales y el encabezado. Los totales son textos con punto decimal. Todo argumento va por
    // referencia, pero a una interfaz de COM se le pueden pasar valores y omitir lo opcional.
    private static void DaReceptor(string carpeta)
    {
        var cliente = new Cliente();
        cliente.SetDatosClientes("PEGM-800101-AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B",
            "Del Valle", "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100",
            "1370.00", "0.00", "219.20", "1589.20", DeContado, RangoDeFolios, DateTime.Now, carpeta);
    }

    // Folio, tipo, clave, producto, cantidad, unidad, precio, IVA, importe y tasa.
    private static void DaRenglones()
    {
        var renglones = new DetFacturas();
        renglones.InicializaDetalleFactura();
        renglones.SetDetalleDocto("1", "F", "CAF-01", "Café de altura, 1 kg", 5m, "KG", 180m, 144m, 900m, 16m);
        renglones.SetDetalleDocto("1", "F", "PAN-07", "Pan de muerto \"tradicional\"", 20m, "PZA", 12.5m, 40m, 250m, 16m);
        renglones.SetDetalleDocto("1", "F", "JAB-33", "Jabón líquido & suavizante", 4m, "PZA", 55m, 35.2m, 220m, 16m);
    }

    // Carga el emisor y emite; el folio que se tomó del rango.
    private static string Emite()
    {
        var documento = new GeneraDocto();
        short empresa = Empresa, sucursal = Sucursal, tasaDeIva = 16;
        Exige(documento.GetDatosEmpresa(ref empresa), "No existe la empresa");
        Exige(documento.GetDatosSucursal(ref empresa, ref sucursal), "No existe la sucursal");
        Exige(documento.GetDatosCertificado(ref empresa), "La sucursal no tiene certificado"); // el de la sucursal

        string folio = "0", tipo = "ingreso";
        bool delRango = true, conAddenda = false;
        Exige(documento.GeneraFacturaElectronica(ref folio, ref delRango, ref tipo, ref tasaDeIva, ref conAddenda),
              "No se pudo emitir");
        return folio;
    }

    // Con False el componente deja la descripción del error en la información de error que COM guarda para el hilo.
    private static void Exige(bool resultado, string mensaje)
    {
        if (resultado) return;
        throw new InvalidOperationException(mensaje + ": " +
                                            Marshal.GetExceptionForHR(unchecked((int)0x80004005)).Message);
    }
}
