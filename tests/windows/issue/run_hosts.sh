#!/bin/bash
# run_hosts.sh 64|32 COMPONENT WORK    inside the test bed: every host that issue_test.sh prepared, one after another
#
# Each leaves what it says in WORK/said/NAME. issue_test.sh makes the checks; the last line only tells that all ran.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
bits=$1 work=$3
cscript=$(system_folder "$bits")\\cscript.exe

station() { windows_path "$work/$1"; }

# NAME, the code page in which the host speaks, the host
run() {
    local name=$1 code_page=$2 status=0
    shift 2
    "$@" > "$work/said/$name.raw" 2>&1 || status=$?
    { iconv -f "$code_page" -t UTF-8 "$work/said/$name.raw" | tr -d '\r' && echo "código $status"; } > "$work/said/$name"
    checks=$((checks + 1))
}

windows() { "$here/../run_in_testbed.sh" "$bits" 60 "$@"; }
run_script() { run "$1" CP850 windows "$cscript" //nologo "$(windows_path "$work/guiones/$2")" "${@:3}"; }
issue_documents() {
    run_script "$1" host.vbs "$(windows_path "$work/guiones/$2")" "$(station "$1")" "$(station "$1")\\tolvex.db" sqlite:
}

# The decimal point and the grouping sign of the user's locale.
set_locale() {
    printf '%s\r\n' 'REGEDIT4' '' '[HKEY_CURRENT_USER\Control Panel\International]' "\"sDecimal\"=\"$1\"" \
        "\"sMonDecimalSep\"=\"$1\"" "\"sThousand\"=\"$2\"" "\"sMonThousandSep\"=\"$2\"" > "$work/locale.reg"
    windows "$(system_folder "$bits")\\reg.exe" import "$(windows_path "$work/locale.reg")"
}

run_script vbscript factura.vbs "$(station Facturación_Ñandú)"
run_script jscript factura.js "$(station Facturación_Ñandú)" 00000120
run cpp CP1252 windows "$work/factura.exe" "$(station Facturación_Ñandú)"
TOLVEX_BITACORA="$(station bitacora.txt)" issue_documents Facturación_Ñandú despues.txt
TOLVEX_BITACORA="$(station bitacora.txt)" run_script argumento_malo argumento_malo.vbs
for folder in sin_openssl sin_llave "con blanco"; do run_script "$folder" factura.vbs "$(station "$folder")"; done
run_script sin_carpeta factura.vbs "$(station no_existe)" "$(station sin_openssl)\\tolvex.db" sqlite:

no_database=("$(station no_existe)\\tolvex.db" sqlite:)
run_script vbscript_sin_base factura.vbs "$(station sin_openssl)" "${no_database[@]}"
run_script jscript_sin_base factura.js "$(station sin_openssl)" 00000120 "${no_database[@]}"
run cpp_sin_base CP1252 windows "$work/factura.exe" "$(station sin_openssl)" "${no_database[@]}"

trap 'set_locale . ,' EXIT
set_locale , .
issue_documents coma_decimal documentos.txt
TOLVEX_CLAVE=secreta run rough_arithmetic CP1252 windows "$work/rough_arithmetic.exe" "$(station rough_arithmetic)"
run_script openssl_2011 flat_file.vbs "$(station openssl_2011)"

end_of_checks
