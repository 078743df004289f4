#!/bin/bash
# run_life.sh 64|32 COMPONENT HOST WORK    inside the test bed: what life_test.sh tells, with real keys; pictures of the
# certificate's form go to WORK/screenshots
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/user.sh"
bits=$1 component=$2 host=$3 work=$4 pictures=$4/screenshots dpi=96

windows() { "$here/../run_in_testbed.sh" "$bits" 120 "$@"; }

opens() { windows "$host" "$1" "$(windows_path "$work/tolvex.db")" "${@:2}" > /dev/null & }
closes() {
    appears "$1"
    press alt+F4
    disappears "$1"
    wait %%
}

clicks_new() { clicks "$1" 40 14; }

saves() {
    press alt+a
    appears 'Mensaje...'
    press Return
    appears Aviso
    press Return
    disappears "$1"
    turns_to "$2"
}

# The dialogs open in the folder in which the host was started.
chooses_file() {
    appears "$1"
    writes "${2##*/}"
    takes_picture "$3"
    press Return
}

reads() {
    appears "$1"
    takes_picture "$2"
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
    fills tienda '' '' '' '' '' '' '' '' '' '' fna010101aaa
    saves 'Alta de Empresas' 'Maestro de Empresas'
    closes 'Maestro de Empresas'
}

# From the field of its path.
chooses_certificate() {
    press Return space
    chooses_file 'Especifique el certificado' "$work/$1.cer" elige-certificado
    appears 'Alta de Certificado'
    sleep 2
    takes_picture "$2"
}

# From the description: Enter by Enter to the folder, the certificate, the key. The host was started in the shop's
# folder.
registers_certificate() {
    opens MuestraCertificados 1
    appears 'Maestro de Certificados'
    clicks_new 'Maestro de Certificados'
    appears 'Alta de Certificado'
    fills 'sello propio' vacia '' # where there is no openssl
    chooses_certificate propia sin-openssl
    press Return Return space
    chooses_file 'Especifique la llave' "$work/propia.key" elige-llave
    reads 'Contraseña incorrecta' llave-sin-openssl
    appears 'Alta de Certificado'
    press Escape Escape Escape Escape Escape
    fills sello ''
    chooses_certificate nada no-es-certificado
    press space
    chooses_file 'Especifique el certificado' "$work/vencida.cer" elige-certificado
    reads TOLVEX caducado
    appears 'Alta de Certificado'
    takes_picture certificado-vencido
    press Escape
    chooses_certificate propia certificado-leido
    press Return Return space
    chooses_file 'Especifique la llave' "$work/ajena.key" elige-llave
    types_password clave1 consola
    reads TOLVEX llave-ajena
    appears 'Alta de Certificado'
    press space
    chooses_file 'Especifique la llave' "$work/propia.key" elige-llave
    types_password otra consola-mal
    reads '(0) Bytes' clave-equivocada
    appears 'Alta de Certificado'
    press space
    chooses_file 'Especifique la llave' "$work/propia.key" elige-llave
    types_password clave1 consola
    reads TOLVEX llave-propia
    appears 'Alta de Certificado'
    takes_picture certificado-lleno
    saves 'Alta de Certificado' 'Maestro de Certificados'
    closes 'Maestro de Certificados'
}

registers_branch() {
    opens MuestraSucursales 1
    appears 'Maestro de sucursales'
    clicks_new 'Maestro de sucursales'
    appears 'Alta de Sucursal'
    fills centro
    press Down
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
    saves 'Alta de Series y Folios' 'Maestro de Series y Folios'
    closes 'Maestro de Series y Folios'
}

issues_document() {
    expect "el documento" grep -q '^A1' <(windows "$(system_folder "$bits")\\cscript.exe" //nologo \
        "$(windows_path "$work/flat_file.vbs")" "$(windows_path "$work")")
}

# March 2011 from November 2020: the lists go to what begins with the letter typed.
asks_for_report() {
    opens GeneraReporteDeFoliosUtilizados "$(windows_path "$work")"
    appears 'Reporte mensual de folios utilizados'
    press Return Home Down Down Return Home Down Return
    takes_picture reporte
    press alt+g
    reads TOLVEX reporte-hecho
    closes 'Reporte mensual de folios utilizados'
}

# Where a user last chose a file, which the other bitness may have done elsewhere.
forget_last_folder() {
    windows reg delete 'HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\ComDlg32' /f > /dev/null || true
}

mkdir -p "$pictures"
wait_until has_window_manager
setxkbmap latam
windows "$(system_folder "$bits")\\regsvr32.exe" /s "$(windows_path "$component")"
forget_last_folder
registers_company
registers_certificate
registers_branch
registers_folios
issues_document
asks_for_report
windows "$(system_folder "$bits")\\regsvr32.exe" /s /u "$(windows_path "$component")"
end_of_checks
