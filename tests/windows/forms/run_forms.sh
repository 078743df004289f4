#!/bin/bash
# run_forms.sh 64|32 COMPONENT HOST WORK    inside the test bed: a user registers a company, a branch and a folio range
#
# The same at three resolutions, each with a Wine prefix and a database of its own (WORK/DPI.db); pictures of the forms
# go to WORK/screenshots. forms_test.sh looks at the rows; the last line tells that every window came when it had to.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/user.sh"
. "$here/station.sh"
bits=$1 component=$2 host=$3 work=$4 pictures=$4/screenshots

host_says() { grep -q "$2" "$work/said-$dpi-$1"; }
clicks_host() { clicks Anfitrión 10 10; }

registers_company() {
    opens MuestraEmpresas
    appears 'Maestro de Empresas'
    takes_picture maestro-de-empresas-vacio
    clicks_host
    turns_to 'Maestro de Empresas'
    clicks_new 'Maestro de Empresas'
    appears 'Alta de Empresas'
    takes_picture empresa-vacia
    clicks_host
    fills 'ferretería ñandú' 'niños héroes' 120 ''
    press Escape
    fills 4b 'del valle' méxico 'benito juárez' 'distrito federal' méxico 03100 5512345678 fna010101aaa
    takes_picture empresa-llena
    press Return Escape space # to the button that cancels, back to the one that accepts
    appears 'Mensaje...'
    takes_picture pregunta
    press n
    appears 'Alta de Empresas'
    saves 'Alta de Empresas' 'Maestro de Empresas'
    takes_picture maestro-de-empresas-lleno
}

modifies_company() {
    clicks 'Maestro de Empresas' 60 62 2
    appears 'Modificación de Empresas'
    takes_picture empresa-modificada
    writes 'peña e hijos' # in place of the name
    saves 'Modificación de Empresas' 'Maestro de Empresas'
    closes 'Maestro de Empresas'
    expect "un clic llegó al anfitrión, no el segundo" host_says MuestraEmpresas 'clics: 1'
}

registers_branch() {
    opens MuestraSucursales 1
    appears 'Maestro de sucursales'
    takes_picture maestro-de-sucursales-vacio
    clicks_new 'Maestro de sucursales'
    reads Atención sin-certificados
    appears 'Alta de Sucursal'
    takes_picture sucursal-vacia
    writes centro
    press Tab Tab
    writes 'calle 5'
    saves 'Alta de Sucursal' 'Maestro de sucursales'
    takes_picture maestro-de-sucursales-lleno
    press Down Return # in the list
    reads Atención sin-certificados
    appears 'Modificación de Sucursal'
    takes_picture sucursal-llena
    press alt+c
    disappears 'Modificación de Sucursal'
    closes 'Maestro de sucursales'
}

registers_folios() {
    opens MuestraSeriesyFolios 1
    appears 'Maestro de Series y Folios'
    takes_picture maestro-de-folios-vacio
    clicks_new 'Maestro de Series y Folios'
    reads Atención sin-certificados
    appears 'Alta de Series y Folios'
    takes_picture folios-vacios
    press alt+Down Down Down Return Return Return # the second branch of the open list, past the certificate
    press Down Return
    fills ab 918 2011 1 100 0
    takes_picture folios-llenos
    press space
    confirms 'Alta de Series y Folios' 'Maestro de Series y Folios'
    takes_picture maestro-de-folios-lleno
    closes 'Maestro de Series y Folios'
}

looks_at_certificates() {
    opens MuestraCertificados 1
    appears 'Maestro de Certificados'
    takes_picture maestro-de-certificados-vacio
    clicks_new 'Maestro de Certificados'
    appears 'Alta de Certificado'
    takes_picture certificado-vacio
    press alt+c
    disappears 'Alta de Certificado'
    turns_to 'Maestro de Certificados'
    closes 'Maestro de Certificados'
}

asks_for_report() {
    opens GeneraReporteDeFoliosUtilizados
    appears 'Reporte mensual de folios utilizados'
    takes_picture reporte-vacio
    press alt+g
    reads Atención sin-documentos
    closes 'Reporte mensual de folios utilizados'
}

asks_for_missing_company() {
    opens MuestraSeriesyFolios 9
    reads Atención sin-empresa
    host_ends
}

for dpi in 96 144 192; do
    sits_down
    makes_station "$work/prefix-$dpi"
    database=$(windows_path "$work/$dpi.db")
    registers_company
    modifies_company
    registers_branch
    registers_folios
    looks_at_certificates
    asks_for_report
    asks_for_missing_company
    ends_station
done
end_of_checks
