#!/bin/bash
# run_console.sh 64|32 COMPONENT CLIPBOARD WORK    inside the test bed: a developer tries the component in its console
#
# 64 bits at 96 dots per inch, 32 bits at 144. WORK holds the console and, in demo/, the demonstration, whose series has
# come to folio 3; pictures go to WORK/screenshots.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/../forms/user.sh"
. "$here/../forms/station.sh"
bits=$1 component=$2 clipboard=$3 work=$4 pictures=$4/screenshots
title='Consola de TOLVEX'
[ "$bits" = 64 ] && dpi=96 || dpi=144

opens_console() {
    windows "$work/bin/TolvexConsola.exe" > /dev/null &
    appears "$title"
}

# Takes what the console copied to a file of that name, once it is there.
takes_script() {
    press alt+v
    sleep 1
    windows "$clipboard" "$1.vbs"
    iconv -f UTF-16 -t CP1252 "$1.vbs" > "$1-ansi.vbs"
}

issued() { [ -s "$work/demo/Facturas/A$1.xml" ]; }
kept() { windows reg query 'HKCU\Software\TOLVEX\Consola' | tr -d '\r' > kept.txt; }

tells_connection() {
    press Tab Tab
    writes ana
    press Tab
    writes secreta
    takes_picture conexion
}

issues_all() {
    press alt+e
    expect "un documento con un clic" wait_until issued 4
    appears "$title" # a window of the batch file may have been in front
    takes_picture emitido
}

# The script is a host of its own: it issues the same document anew.
runs_script() {
    takes_script copiado
    windows "$(system_folder "$bits")\\cscript.exe" //nologo copiado-ansi.vbs > script.txt
    expect "el guion copiado emite" issued 5
    expect "y recibe el folio" grep -q '^folio: 5' script.txt
}

looks_at_pages() {
    local page
    for page in receptor renglones documento impresion maestros; do
        press ctrl+Tab
        takes_picture "$page"
    done
}

clicks_about() {
    clicks "$title" 427 22 # Documento
    clicks "$title" 336 124
    takes_picture cancelado
    clicks "$title" 541 22 # Impresión
    clicks "$title" 336 97
    appears 'factura 4'
    takes_picture visor
    press Escape
    turns_to "$title"
    clicks "$title" 635 22 # Maestros
    clicks "$title" 178 49
    appears 'Maestro de Empresas'
    press alt+F4
    turns_to "$title"
}

closes_console() {
    press alt+c
    disappears "$title"
    expect "la consola termina" wait %%
}

comes_back_another_day() {
    opens_console
    clicks "$title" 180 121 # SetDatosConexion
    takes_script recordado
    expect "recuerda al usuario" grep -q '^conexion.SetDatosConexion "ana", clave,' recordado-ansi.vbs
    closes_console
    kept
    expect "los campos quedan en el registro" grep -q 'Usuario *REG_SZ *ana' kept.txt
    expect "la contraseña no" eval '! grep -q secreta kept.txt copiado-ansi.vbs'
}

sits_down
makes_station "$work/prefix"
windows reg delete 'HKCU\Software\TOLVEX' /f &> /dev/null || true # of who used this test bed by hand
ln -sfn "$work/demo" "$WINEPREFIX/drive_c/TOLVEX-demo"
opens_console
tells_connection
issues_all
runs_script
looks_at_pages
clicks_about
closes_console
comes_back_another_day
ends_station
end_of_checks
