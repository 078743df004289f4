#!/bin/bash
# run_hosts.sh 64|32 COMPONENT WORK    inside the test bed: every host that issue_test.sh prepared, one after another
#
# Each leaves what it says in WORK/said/NAME. issue_test.sh makes the checks; the last line only tells that all ran.
set -euo pipefail

bits=$1 work=$3
runner=$(dirname "$0")/../run_in_testbed.sh
[ "$bits" = 64 ] && cscript='C:\windows\system32\cscript.exe' || cscript='C:\windows\syswow64\cscript.exe'
hosts=0

windows_path() { echo "Z:${1//\//\\}"; }

# NAME, the code page in which the host speaks, the host
run() {
    local name=$1 code_page=$2 status=0
    shift 2
    "$runner" "$bits" 60 "$@" > "$work/said/$name.raw" 2>&1 || status=$?
    { iconv -f "$code_page" -t UTF-8 "$work/said/$name.raw" | tr -d '\r' && echo "código $status"; } > "$work/said/$name"
    hosts=$((hosts + 1))
}

run_script() { run "$1" CP850 "$cscript" //nologo "${@:2}"; }

station() { windows_path "$work/$1"; }
script() { windows_path "$work/guiones/$1"; }
issue_documents() {
    run_script "$1" "$(script host.vbs)" "$(script documentos.txt)" "$(station "$2")" \
        "$(station "$2")\\tolvex.db" sqlite:
}

run_script vbscript "$(script factura.vbs)" "$(station Facturación_Ñandú)"
run_script jscript "$(script factura.js)" "$(station Facturación_Ñandú)" 00000120
run cpp CP1252 "$work/factura.exe" "$(station Facturación_Ñandú)"
issue_documents documentos Facturación_Ñandú
issue_documents openssl_2011 openssl_2011
run_script sin_openssl "$(script factura.vbs)" "$(station sin_openssl)"
run_script sin_llave "$(script factura.vbs)" "$(station sin_llave)"
run_script con_blanco "$(script factura.vbs)" "$(station "con blanco")"
run_script sin_carpeta "$(script factura.vbs)" "$(station no_existe)" "$(station sin_openssl)\\tolvex.db" \
    sqlite:
run_script sin_base "$(script factura.vbs)" "$(station sin_openssl)" "$(station no_existe)\\tolvex.db" sqlite:

echo "FIN: $hosts comprobaciones, 0 fallas"
