#!/bin/bash
# run_forms.sh 64|32 COMPONENT HOST WORK    inside the test bed: a user registers a company, a branch and a folio range
#
# The same at three resolutions, each with a Wine prefix and a database of its own (WORK/DPI.db); pictures of the forms
# go to WORK/screenshots. forms_test.sh looks at the rows; the last line tells that every window came when it had to.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/user.sh"
bits=$1 component=$2 host=$3 work=$4 pictures=$4/screenshots
original_prefix=$WINEPREFIX

windows() { "$here/../run_in_testbed.sh" "$bits" 120 "$@"; }

# --- a station -------------------------------------------------------------------------------------------------------

# The registry is the user's own, the files are those of the test bed.
make_prefix() {
    export WINEPREFIX=$work/prefix-$dpi
    mkdir -p "$WINEPREFIX"
    cp -P -r "$original_prefix"/{*.reg,dosdevices,.update-timestamp} "$WINEPREFIX"
    ln -s "$original_prefix/drive_c" "$WINEPREFIX/drive_c"
    windows reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f > /dev/null
    windows "$(system_folder "$bits")\\regsvr32.exe" /s "$(windows_path "$component")"
}

database() { windows_path "$work/$dpi.db"; }

# opens METHOD [COMPANY]: in a host with the plainest message loop.
opens() { windows "$host" "$1" "$(database)" "${@:2}" > "$work/said-$dpi-$1" & }

host_says() { grep -q "$2" "$work/said-$dpi-$1"; }

closes() {
    appears "$1"
    press alt+F4
    disappears "$1"
}

host_ends() { expect "el anfitrión termina" wait %%; }

# --- what its user does ----------------------------------------------------------------------------------------------

clicks_new() { clicks "$1" 40 14; }
clicks_host() { clicks Anfitrión 10 10; }

# Answers the question of saving and reads the message; the picker comes back.
saves() {
    appears 'Mensaje...'
    press Return
    appears Aviso
    press Return
    disappears "$1"
    turns_to "$2"
}

reads_message() {
    appears Atención
    takes_picture "$1"
    press Return
}

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
    press alt+a
    saves 'Alta de Empresas' 'Maestro de Empresas'
    takes_picture maestro-de-empresas-lleno
}

modifies_company() {
    clicks 'Maestro de Empresas' 60 62 2
    appears 'Modificación de Empresas'
    takes_picture empresa-modificada
    writes 'peña e hijos' # in place of the name
    press alt+a
    saves 'Modificación de Empresas' 'Maestro de Empresas'
    closes 'Maestro de Empresas'
    host_ends
    expect "un clic llegó al anfitrión, no el segundo" host_says MuestraEmpresas 'clics: 1'
}

registers_branch() {
    opens MuestraSucursales 1
    appears 'Maestro de sucursales'
    clicks_new 'Maestro de sucursales'
    reads_message sin-certificados
    appears 'Alta de Sucursal'
    takes_picture sucursal-vacia
    writes centro
    press Tab Tab
    writes 'calle 5'
    press alt+a
    saves 'Alta de Sucursal' 'Maestro de sucursales'
    takes_picture maestro-de-sucursales
    press Down Return # in the list
    reads_message sin-certificados
    appears 'Modificación de Sucursal'
    takes_picture sucursal-llena
    press alt+c
    disappears 'Modificación de Sucursal'
    closes 'Maestro de sucursales'
    host_ends
}

registers_folios() {
    opens MuestraSeriesyFolios 1
    appears 'Maestro de Series y Folios'
    clicks_new 'Maestro de Series y Folios'
    reads_message sin-certificados
    appears 'Alta de Series y Folios'
    takes_picture folios-vacios
    press alt+Down Down Down Return Return Return # the second branch of the open list, past the certificate
    press Down Return
    fills ab 918 2011 1 100 0
    takes_picture folios-llenos
    press space
    saves 'Alta de Series y Folios' 'Maestro de Series y Folios'
    takes_picture maestro-de-folios
    closes 'Maestro de Series y Folios'
    host_ends
}

looks_at_certificates() {
    opens MuestraCertificados 1
    appears 'Maestro de Certificados'
    clicks_new 'Maestro de Certificados'
    appears 'Alta de Certificado'
    takes_picture certificado-vacio
    press alt+c
    disappears 'Alta de Certificado'
    turns_to 'Maestro de Certificados'
    closes 'Maestro de Certificados'
    host_ends
}

asks_for_report() {
    opens GeneraReporteDeFoliosUtilizados
    appears 'Reporte mensual de folios utilizados'
    takes_picture reporte
    press alt+g
    reads_message sin-documentos
    closes 'Reporte mensual de folios utilizados'
    host_ends
}

asks_for_missing_company() {
    opens MuestraSeriesyFolios 9
    reads_message sin-empresa
    host_ends
}

mkdir -p "$pictures"
dpi=96
wait_until has_window_manager
setxkbmap latam
for dpi in 96 144 192; do
    make_prefix
    registers_company
    modifies_company
    registers_branch
    registers_folios
    looks_at_certificates
    asks_for_report
    asks_for_missing_company
    /usr/lib/wine/wineserver -k || true
done
end_of_checks
