// C# 4 o posterior, sin referencia: enlace tardío con dynamic. Compile para x86 o x64 según la DLL registrada:
//   csc /platform:x86 Emite.cs
//   Emite SERVIDOR BASE CARPETA [USUARIO CONTRASEÑA]
using System;

internal static class Emite
{
    private static dynamic Crea(string clase) => Activator.CreateInstance(Type.GetTypeFromProgID("TOLVEX." + clase, true));

    [STAThread]
    private static int Main(string[] argumentos)
    {
        string usuario = argumentos.Length > 4 ? argumentos[3] : "", contrasenna = argumentos.Length > 4 ? argumentos[4] : "";
        string carpeta = argumentos[2];
        dynamic conexion = Crea("ConfigFE"), cliente = Crea("Cliente"), detalle = Crea("DetFacturas"),
                documento = Crea("GeneraDocto");

        conexion.SetDatosConexion(usuario, contrasenna, argumentos[1], argumentos[0]);
        conexion.AbrirConexion();
        if (!documento.GetDatosEmpresa(1) || !documento.GetDatosSucursal(1, 1) || !documento.GetDatosCertificado(1))
        {
            Console.Error.WriteLine("Faltan la empresa 1, su sucursal 1 o su certificado");
            return 1;
        }

        cliente.SetDatosClientes("PEGM800101AB1", "María Peña Güemes", "Avenida Niños Héroes", "120", "4 B", "Del Valle",
                                 "Ciudad de México", "Distrito Federal", "Benito Juárez", "México", "03100",
                                 "200.00", "0.00", "32.00", "232.00", 1, "1", DateTime.Now, carpeta, moneda: "PESOS");
        detalle.InicializaDetalleFactura();
        detalle.SetDetalleDocto("1", "F", "PAN-07", "Pan", 20m, "PZA", 10m, 32m, 200m, 16m);

        string folio = "";
        bool emitida = documento.GeneraFacturaElectronica(ref folio, true);
        Console.WriteLine(emitida ? "Factura " + folio + " en " + carpeta + @"\Facturas" : "No se emitió la factura");
        conexion.CierraConexion();
        return emitida ? 0 : 1;
    }
}
