#!/bin/bash
# sql_server_test.sh 64|32 COMPONENT TOLVEX OPENSSL    issues from VBScript over odbc32 on a SQL Server
#
# TOLVEX_PRUEBA_SQLSERVER is the connection string of a database for tests (server, database, uid, pwd), which the
# demonstration of TOLVEX (the native command) fills. The native edition then issues the same documents there: apart
# from seal and folio the files must be the same.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
bits=$1 component=$2 tolvex=$3 openssl=$4
work=$(dirname "$component")/emision_sql_server

if [ -n "${TOLVEX_INSIDE_TESTBED-}" ]; then
    expect "host.vbs" "$here/../run_in_testbed.sh" "$bits" 120 "$(system_folder "$bits")\\cscript.exe" //nologo "${@:3}"
    end_of_checks
    exit
fi

not_run() { echo "NO SE PROBÓ: $1" && exit 77; }
keyword() { tr ';' '\n' <<< "$TOLVEX_PRUEBA_SQLSERVER" | sed -n "s/^ *$1 *= *//ip" | tail -n 1; }
without_good_seal() { sed 's/ sello="[A-Za-z0-9+/]\{342\}=="//' "$1"; }
same_but_for_the_seal() { cmp <(without_good_seal "$1") <(without_good_seal "$2"); }

prepare() {
    rm -rf "$work"
    mkdir -p "$work"
    "$tolvex" demo --carpeta "$work/nativa" > /dev/null
    rm -r "$work/nativa/Facturas"
    cp -r "$work/nativa" "$work/windows"
    cp "$openssl" "$work/windows/openssl.exe"
    cp "$here/documentos.txt" "$work/nativa"
    for file in documentos.txt host.vbs; do iconv -f UTF-8 -t CP1252 "$here/$file" > "$work/$file"; done
}

check_documents() {
    local i
    mapfile -t from_windows < <(ls -tr "$work"/windows/Facturas/*.xml)
    mapfile -t from_native < "$work/emitidos"
    expect "cinco documentos de cada edición" test "${#from_windows[@]} ${#from_native[@]}" = "5 5"
    for i in "${!from_native[@]}"; do
        expect "documento $i" same_but_for_the_seal "${from_windows[i]}" "${from_native[i]}"
    done
}

"$here/../run_in_testbed.sh" require "$bits"
[ -n "${TOLVEX_PRUEBA_SQLSERVER-}" ] || not_run "TOLVEX_PRUEBA_SQLSERVER no nombra un SQL Server"
export TOLVEX_SERVIDOR TOLVEX_BD TOLVEX_USUARIO TOLVEX_CLAVE
TOLVEX_SERVIDOR=$(keyword server)
port=$(keyword port)
[ -z "$port" ] || TOLVEX_SERVIDOR+=",$port"
TOLVEX_BD=$(keyword database) TOLVEX_USUARIO=$(keyword uid) TOLVEX_CLAVE=$(keyword pwd)
prepare
"$here/../run_test.sh" "$bits" "$component" "$(readlink -f "$0")" "$(windows_path "$work/host.vbs")" \
    "$(windows_path "$work/documentos.txt")" "$(windows_path "$work/windows")" "$TOLVEX_BD" "$TOLVEX_SERVIDOR" "$TOLVEX_USUARIO" "$TOLVEX_CLAVE"
"$tolvex" emite "$work/nativa/documentos.txt" > "$work/emitidos"
check_documents
end_of_checks
