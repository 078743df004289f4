#include "console/master_data/keys.hpp"

namespace tolvex::console {

namespace {

std::vector<KeyOfControl> with_address(std::vector<KeyOfControl> controls)
{
    for (const KeyOfControl& address :
         std::initializer_list<KeyOfControl>{{"nombre", u"txtNombre"},
                                             {"calle", u"txtCalle"},
                                             {"num_exterior", u"txtNumExterior"},
                                             {"num_interior", u"txtNumInterior"},
                                             {"colonia", u"txtColonia"},
                                             {"localidad", u"txtLocalidad"},
                                             {"municipio", u"txtMunicipio"},
                                             {"estado", u"txtEstado"},
                                             {"pais", u"txtPais"},
                                             {"codigo_postal", u"txtCP"},
                                             {"telefono", u"txtTelefono"},
                                             {"rfc", u"txtRFC"}})
        controls.push_back(address);
    return controls;
}

std::vector<std::string> keys_of(const std::vector<KeyOfControl>& controls,
                                 std::initializer_list<const char*> others = {})
{
    std::vector<std::string> keys = {"numero"};
    for (const KeyOfControl& control : controls) keys.push_back(control.key);
    keys.insert(keys.end(), others.begin(), others.end());
    return keys;
}

} // namespace

std::vector<KeyOfControl> company_controls() { return with_address({}); }

std::vector<KeyOfControl> certificate_controls()
{
    return {{"descripcion", u"txtDescripcion"}, {"avisa", u"chkAviso"}};
}

std::vector<KeyOfControl> branch_controls() { return with_address({{"certificado", u"cmbCertificado1"}}); }

std::vector<KeyOfControl> folio_controls()
{
    return {{"sucursal", u"CboSucursal"},     {"certificado", u"CboCertificado"},
            {"documento", u"CboDocumento"},   {"serie", u"txtSerie"},
            {"aprobacion", u"TxtAprobacion"}, {"anio", u"txtAnno"},
            {"desde", u"txtDesde"},           {"hasta", u"txtHasta"},
            {"ultimo", u"txtUltimo"}};
}

std::vector<std::string> company_keys() { return keys_of(company_controls()); }

std::vector<std::string> certificate_keys()
{
    return keys_of(certificate_controls(), {"cer", "key", "carpeta_sello"});
}

std::vector<std::string> branch_keys() { return keys_of(branch_controls()); }

std::vector<std::string> folio_keys() { return keys_of(folio_controls()); }

} // namespace tolvex::console
