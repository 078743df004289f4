#!/bin/bash
# sql_server_test.sh 64|32 COMPONENT TOLVEX OPENSSL    issues from VBScript over odbc32 on a SQL Server
#
# TOLVEX_PRUEBA_SQLSERVER is the connection string of a database for tests (server, database, uid, pwd), which the
# demonstration of TOLVEX (the native command) fills. The native edition then issues the same documents there: apart
# from seal and folio the files must be the same.
set -euo pipefail

bits=$1 component=$2 tolvex=$3 openssl=$4
here=$(dirname "$(readlink -f "$0")")
work=$(dirname "$component")/emision_sql_server
checks=0 failures=0

not_run() { echo "NO SE PROBÓ: $1" && exit 77; }

keyword() { tr ';' '\n' <<< "$TOLVEX_PRUEBA_SQLSERVER" | sed -n "s/^ *$1 *= *//ip" | tail -n 1; }

expect() {
    local what=$1
    shift
    checks=$((checks + 1))
    "$@" && return
    failures=$((failures + 1))
    echo "FALLA: $what"
}

prepare() {
    rm -rf "$work"
    mkdir -p "$work"
    "$tolvex" demo --carpeta "$work/nativa" > /dev/null
    rm -r "$work/nativa/Facturas"
    cp -r "$work/nativa" "$work/windows"
    cp "$openssl" "$work/windows/openssl.exe"
    cp "$here/documentos.txt" "$work/nativa"
    for file in host.vbs documentos.txt; do iconv -f UTF-8 -t CP1252 "$here/$file" > "$work/$file"; done
}

issue_from_windows() {
    local system='C:\windows\system32' folder=Z:${work//\//\\}
    [ "$bits" = 64 ] || system='C:\windows\syswow64'
    "$here/../run_test.sh" "$bits" "$component" "$here/run_one.sh" "$system\\cscript.exe" //nologo "$folder\\host.vbs" \
        "$folder\\documentos.txt" "$folder\\windows" "$TOLVEX_BD" "$TOLVEX_SERVIDOR" "$TOLVEX_USUARIO" "$TOLVEX_CLAVE"
}

without_seal() { sed 's/ sello="[^"]*"//' "$1"; }
same_but_for_the_seal() { cmp <(without_seal "$1") <(without_seal "$2"); }
has_seal() { grep -q ' sello="[A-Za-z0-9+/]\{342\}=="' "$1"; }

check_documents() {
    local i
    mapfile -t from_windows < <(ls -tr "$work"/windows/Facturas/*.xml)
    mapfile -t from_native < "$work/emitidos"
    expect "cinco documentos de cada edición" test "${#from_windows[@]} ${#from_native[@]}" = "5 5"
    for i in "${!from_native[@]}"; do
        expect "documento $i" same_but_for_the_seal "${from_windows[i]}" "${from_native[i]}"
        expect "sello $i" has_seal "${from_windows[i]}"
    done
}

"$here/../run_in_testbed.sh" has "$bits" || not_run "el banco de pruebas no ejecuta $bits bits"
[ -n "${TOLVEX_PRUEBA_SQLSERVER-}" ] || not_run "TOLVEX_PRUEBA_SQLSERVER no nombra un SQL Server"
export TOLVEX_SERVIDOR TOLVEX_BD TOLVEX_USUARIO TOLVEX_CLAVE
TOLVEX_SERVIDOR=$(keyword server) TOLVEX_BD=$(keyword database) TOLVEX_USUARIO=$(keyword uid) TOLVEX_CLAVE=$(keyword pwd)
prepare
issue_from_windows
"$tolvex" emite "$work/nativa/documentos.txt" > "$work/emitidos"
check_documents
echo "FIN: $checks comprobaciones, $failures fallas"
[ "$failures" = 0 ]
