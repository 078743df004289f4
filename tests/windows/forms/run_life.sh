#!/bin/bash
# run_life.sh 64|32 COMPONENT HOST WORK DPI    inside the test bed: what life_test.sh tells, with real keys; pictures of
# the forms go to WORK/screenshots
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/user.sh"
. "$here/station.sh"
bits=$1 component=$2 host=$3 work=$4 dpi=$5 pictures=$4/screenshots
shop='C:\Tienda' database='C:\Tienda\tolvex.db'

chooses_file() {
    appears "$1"
    writes "$shop\\$2"
    takes_picture "$3"
    press Return
}

# The console has the title of its interpreter.
is_console_in_front() { [[ $(title_in_front) =~ (cmd\.exe|wineconsole|Key1|key1|openssl) ]]; }
types_password() {
    expect "aparece la consola" wait_until is_console_in_front
    sleep 1
    takes_picture "$2"
    writes "$1"
    press Return
}

registers_company() {
    opens MuestraEmpresas
    appears 'Maestro de Empresas'
    clicks_new 'Maestro de Empresas'
    appears 'Alta de Empresas'
    fills 'peña e hijos' '' '' '' '' '' '' '' '' '' '' fna010101aaa
    saves 'Alta de Empresas' 'Maestro de Empresas'
    closes 'Maestro de Empresas'
}

# From the field of its path.
chooses_certificate() {
    press Return space
    chooses_file 'Especifique el certificado' "$1.cer" elige-certificado
    appears 'Alta de Certificado'
    sleep 2
    takes_picture "$2"
}

# From the description: Enter by Enter to the folder, the certificate, the key.
registers_certificate() {
    opens MuestraCertificados 1
    appears 'Maestro de Certificados'
    clicks_new 'Maestro de Certificados'
    appears 'Alta de Certificado'
    fills 'Sello de la matriz' "$shop\\vacia" '' # where there is no openssl
    chooses_certificate matriz sin-openssl
    press Return Return space
    chooses_file 'Especifique la llave' matriz.key elige-llave
    reads 'Contraseña incorrecta' llave-sin-openssl
    appears 'Alta de Certificado'
    press Escape Escape Escape Escape Escape
    fills "$shop\\sello" ''
    chooses_certificate nada no-es-certificado
    press space
    chooses_file 'Especifique el certificado' vencida.cer elige-certificado
    reads TOLVEX caducado
    appears 'Alta de Certificado'
    takes_picture certificado-vencido
    press Escape
    chooses_certificate matriz certificado-leido
    press Return Return space
    chooses_file 'Especifique la llave' ajena.key elige-llave
    types_password clave1 consola
    reads TOLVEX llave-ajena
    appears 'Alta de Certificado'
    press space
    chooses_file 'Especifique la llave' matriz.key elige-llave
    types_password otra consola-mal
    reads '(0) Bytes' clave-equivocada
    appears 'Alta de Certificado'
    press space
    chooses_file 'Especifique la llave' matriz.key elige-llave
    types_password clave1 consola
    reads TOLVEX llave-propia
    appears 'Alta de Certificado'
    takes_picture certificado-lleno
    saves 'Alta de Certificado' 'Maestro de Certificados'
    takes_picture maestro-de-certificados-lleno
    closes 'Maestro de Certificados'
}

registers_branch() {
    opens MuestraSucursales 1
    appears 'Maestro de sucursales'
    clicks_new 'Maestro de sucursales'
    appears 'Alta de Sucursal'
    fills centro
    press Down
    takes_picture sucursal-llena
    saves 'Alta de Sucursal' 'Maestro de sucursales'
    closes 'Maestro de sucursales'
}

registers_folios() {
    opens MuestraSeriesyFolios 1
    appears 'Maestro de Series y Folios'
    clicks_new 'Maestro de Series y Folios'
    appears 'Alta de Series y Folios'
    press Down Down Return Down Return Down Return
    fills a 918 2011 1 100 0
    takes_picture folios-llenos
    saves 'Alta de Series y Folios' 'Maestro de Series y Folios'
    closes 'Maestro de Series y Folios'
}

issues_document() {
    expect "el documento" grep -q '^A1' <(windows "$(system_folder "$bits")\\cscript.exe" //nologo \
        "$shop\\flat_file.vbs" "$shop")
}

# March 2011 from November 2020: the lists go to what begins with the letter typed.
asks_for_report() {
    opens GeneraReporteDeFoliosUtilizados "$shop"
    appears 'Reporte mensual de folios utilizados'
    press Return Home Down Down Return Home Down Return
    takes_picture reporte-lleno
    press alt+g
    reads TOLVEX reporte-hecho
    closes 'Reporte mensual de folios utilizados'
}

sits_down
makes_station "$work/prefix"
registers_company
registers_certificate
registers_branch
registers_folios
issues_document
asks_for_report
end_of_checks
