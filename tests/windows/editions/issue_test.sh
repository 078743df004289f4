#!/bin/bash
# issue_test.sh 64|32 COMPONENT TOLVEX OPENSSL OPENSSL_2011 FACTURA    the same documents from both editions
#
# TOLVEX (the native command) makes a station: database, key, master data. Copies of it issue the same documents,
# with the hosts of examples/ and a script in the test bed and with TOLVEX here; files and rows must be the same, bytes,
# seals and all. OPENSSL and OPENSSL_2011 are Windows programs, FACTURA is examples/cpp built.
set -euo pipefail

bits=$1 component=$2 tolvex=$3 openssl=$4 openssl_2011=$5 factura=$6
here=$(dirname "$(readlink -f "$0")")
project=$(dirname "$(dirname "$(dirname "$here")")")
work=$(dirname "$component")/emision
windows=$work/Facturación_Ñandú
checks=0 failures=0

"$here/../run_in_testbed.sh" has "$bits" || { echo "NO SE PROBÓ: el banco de pruebas no ejecuta $bits bits" >&2 && exit 77; }
[ -x "$tolvex" ] || { echo "falta la edición nativa ($tolvex): constrúyala con make" >&2 && exit 1; }

expect() {
    local what=$1
    shift
    checks=$((checks + 1))
    "$@" && return
    failures=$((failures + 1))
    echo "FALLA: $what"
}

# --- preparation -----------------------------------------------------------------------------------------------------

# The demonstration's station, and in its addenda an element that may stay empty.
make_station() {
    "$tolvex" demo --carpeta "$1" > /dev/null
    sqlite3 "$1/tolvex.db" "insert into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
        values('TIE010203ABC',6,1,'Observaciones','E','')"
}

prepare() {
    rm -rf "$work"
    mkdir -p "$work/said" "$work/guiones"
    make_station "$work/nativa"
    for folder in "$windows" "$work/openssl_2011" "$work/nativa_2" "$work/nativa_sin_llave" "$work/sin_openssl" \
        "$work/sin_llave" "$work/con blanco"; do
        cp -r "$work/nativa" "$folder"
    done
    cp "$openssl" "$windows/openssl.exe"
    cp "$openssl" "$work/sin_llave/openssl.exe"
    cp "$openssl" "$work/con blanco/openssl.exe"
    cp "$openssl" "$work/openssl_2011/openssl-actual.exe"
    cp "$openssl_2011" "$work/openssl_2011/openssl.exe"
    rm "$work/sin_llave/pkey.key.pem" "$work/nativa_sin_llave/pkey.key.pem"
    cp "$factura" "$work/factura.exe"
    for script in "$project/examples/vbscript/factura.vbs" "$project/examples/jscript/factura.js" "$here/host.vbs" \
        "$here/documentos.txt"; do
        iconv -f UTF-8 -t CP1252 "$script" > "$work/guiones/${script##*/}"
    done
}

# --- the native edition, with the moments at which the hosts of examples/ issued --------------------------------------

moment_of() { sed -n 's/.* fecha="\([^"]*\)".*/\1/p' "$1"; }

# STATION, XML that a host of examples/ wrote, EMITE record: the demonstration's invoice, which that host issued too.
issue_invoice() {
    local flat_file=$1/como_$(basename "$2" .xml).txt
    sed -e "s/20[0-9][0-9]-[0-9-]* [0-9:]*/$(moment_of "$2")/" -e "s/^EMITE|.*/$3/" "$1/factura.txt" > "$flat_file"
    "$tolvex" emite "$flat_file" --bd "$1/tolvex.db" > /dev/null 2> "$1/mensajes"
}

issue_documents() {
    cp "$here/documentos.txt" "$1"
    "$tolvex" emite "$1/documentos.txt" --bd "$1/tolvex.db" > /dev/null
}

issue_natively() {
    issue_invoice "$work/nativa" "$windows/Facturas/A4.xml" 'EMITE||1|ingreso|16|0'
    issue_invoice "$work/nativa" "$windows/Facturas/A120.xml" 'EMITE|00000120|0|ingreso|16|0'
    issue_invoice "$work/nativa" "$windows/Facturas/A5.xml" 'EMITE||1|ingreso|16|0'
    issue_documents "$work/nativa"
    issue_documents "$work/nativa_2"
    # A flat file stops at a seal that stays empty; the document is there all the same.
    issue_invoice "$work/nativa_sin_llave" "$work/sin_llave/Facturas/A4.xml" 'EMITE||1|ingreso|16|0' || true
}

# --- the checks ------------------------------------------------------------------------------------------------------

said() { diff -u <(printf '%s\n' "${@:2}") "$work/said/$1"; }
windows_path() { echo "Z:${1//\//\\}"; }

rows() {
    sqlite3 "$1/tolvex.db" "select * from FE_VENTAS_RESUMEN" "select * from FE_VENTAS_RESUMEN_DET" \
        "select * from FE_ClienteFactura" "select * from FE_FOLIOS"
}

same_rows() { diff <(rows "$1") <(rows "$2"); }

no_work_files() { [ -z "$(cd "$1" && ls sello.bat sello.txt utf8.txt fi_md5.txt ./Facturas/*.tmp 2> /dev/null)" ]; }

seal_verifies() {
    local id=$1 folder=$work/verifica
    mkdir -p "$folder"
    sqlite3 "$windows/tolvex.db" "select cCadenaOriginal from FE_VENTAS_RESUMEN where nID=$id" | head -c -1 |
        iconv -f UTF-8 -t ISO-8859-1 > "$folder/cadena"
    sqlite3 "$windows/tolvex.db" "select cSelloDigital from FE_VENTAS_RESUMEN where nID=$id" | openssl base64 -d -A > "$folder/firma"
    openssl rsa -in "$windows/pkey.key.pem" -pubout -out "$folder/publica.pem" 2> /dev/null
    openssl dgst "-$2" -verify "$folder/publica.pem" -signature "$folder/firma" "$folder/cadena" > /dev/null
}

check() {
    local folder
    folder=$(windows_path "$windows")
    expect "VBScript" said vbscript "Folio: 4" "Carpeta: $folder\\Facturas" "código 0"
    expect "JScript" said jscript "Folio: 00000120" "Carpeta: $folder\\Facturas" "código 0"
    expect "C++" said cpp "Folio: 5" "Carpeta: $folder\\Facturas" "código 0"
    expect "documentos" said documentos "AbrirConexion: Verdadero" "Emisor: Verdadero Verdadero Verdadero" \
        "Documento: 6 Verdadero, siguiente 7" "Documento: 7 Verdadero, siguiente 8" "Documento: 2 Verdadero, siguiente 8" \
        "Documento: 8 Verdadero, siguiente 9" "Documento: 00000777 Verdadero, siguiente 9" FIN "código 0"
    expect "los mismos XML en las dos ediciones" diff -rq "$work/nativa/Facturas" "$windows/Facturas"
    expect "los mismos renglones en las dos bases de datos" same_rows "$work/nativa" "$windows"
    expect "los mismos XML con el openssl de 2011" diff -rq "$work/nativa_2/Facturas" "$work/openssl_2011/Facturas"
    expect "los mismos renglones con el openssl de 2011" same_rows "$work/nativa_2" "$work/openssl_2011"
    expect "todos los documentos" test "$(find "$windows/Facturas" -name '*.xml' | wc -l)" = 12
    expect "ningún archivo de trabajo" no_work_files "$windows"
    expect "el sello SHA-1 se verifica" seal_verifies 5 sha1
    expect "el sello MD5 se verifica" seal_verifies 12 md5
    expect "sin openssl" said sin_openssl \
        "No se pudo emitir; revise que la carpeta tenga openssl.exe y pkey.key.pem: $(windows_path "$work/sin_openssl")" "código 1"
    # The exit code of openssl is not examined: without a key the seal stays empty, in both editions.
    expect "sin llave, los mismos XML" diff -rq "$work/nativa_sin_llave/Facturas" "$work/sin_llave/Facturas"
    expect "sin llave, los mismos renglones" same_rows "$work/nativa_sin_llave" "$work/sin_llave"
    expect "sin carpeta" said sin_carpeta \
        "No se pudo emitir; revise que la carpeta tenga openssl.exe y pkey.key.pem: $(windows_path "$work/no_existe")" "código 1"
    expect "carpeta con un blanco en su ruta" said con_blanco \
        "No se pudo emitir; revise que la carpeta tenga openssl.exe y pkey.key.pem: $(windows_path "$work/con blanco")" "código 1"
    expect "sin base de datos" grep -q "No se pudo establecer conexión con la base de datos: ." "$work/said/sin_base"
    expect "sin openssl no se guarda nada" test "$("$tolvex" folio 1 --bd "$work/sin_openssl/tolvex.db")" = 4
    expect "la edición nativa sigue con la misma base" test "$("$tolvex" folio 1 --bd "$windows/tolvex.db")" = 9
}

prepare
"$here/../run_test.sh" "$bits" "$component" "$here/run_hosts.sh" "$work" > "$work/salida" || { cat "$work/salida" && exit 1; }
issue_natively
check
echo "FIN: $checks comprobaciones, $failures fallas"
[ "$failures" = 0 ]
