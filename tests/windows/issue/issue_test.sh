#!/bin/bash
# issue_test.sh 64|32 COMPONENT TOLVEX OPENSSL OPENSSL_2011 FACTURA ROUGH_ARITHMETIC    the same documents from both editions
#
# TOLVEX (the native command) makes a station: database, key, master data. Copies of it issue the same documents,
# with the hosts of examples/ and scripts in the test bed and with TOLVEX here; files and rows must be the same, bytes,
# seals and all. OPENSSL and OPENSSL_2011 are Windows programs, FACTURA is
# examples/cpp built, ROUGH_ARITHMETIC a host with less precision.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
bits=$1 component=$2 tolvex=$3 openssl=$4 openssl_2011=$5 factura=$6 rough_arithmetic=$7
project=$(dirname "$(dirname "$(dirname "$here")")")
work=$(dirname "$component")/emision
windows=$work/Facturación_Ñandú

"$here/../run_in_testbed.sh" require "$bits"
[ -x "$tolvex" ] || { echo "falta la edición nativa ($tolvex): constrúyala con make" >&2 && exit 1; }

# --- preparation -----------------------------------------------------------------------------------------------------

# The demonstration's station, and in its addenda an element that may stay empty.
make_station() {
    "$tolvex" demo --carpeta "$1" > /dev/null
    sqlite3 "$1/tolvex.db" "insert into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
        values('DEM010203ABC',6,1,'Observaciones','E','')"
    cp "$here/documentos.txt" "$1/"
}

prepare() {
    local folder
    rm -rf "$work"
    mkdir -p "$work/said" "$work/guiones"
    make_station "$work/nativa"
    for folder in nativa_2 nativa_sin_llave sin_openssl; do cp -r "$work/nativa" "$work/$folder"; done
    for folder in Facturación_Ñandú coma_decimal rough_arithmetic openssl_2011 sin_llave "con blanco"; do
        cp -r "$work/nativa" "$work/$folder"
        cp "$openssl" "$work/$folder/openssl.exe"
    done
    mv "$work/openssl_2011/openssl.exe" "$work/openssl_2011/openssl-actual.exe"
    cp "$openssl_2011" "$work/openssl_2011/openssl.exe"
    for folder in sin_llave nativa_sin_llave; do echo "no es una llave" > "$work/$folder/pkey.key.pem"; done
    cp "$factura" "$work/factura.exe"
    cp "$rough_arithmetic" "$work/rough_arithmetic.exe"
    cp "$project"/examples/*script/factura.* "$here"/*.vbs "$here/documentos.txt" "$work/guiones/"
    echo 'CreateObject("TOLVEX.GeneraDocto").GetDatosEmpresa "doce"' > "$work/guiones/argumento_malo.vbs"
    printf '%s\n' 'CANCELA|6|2011-12-31 00:00:00' 'BORRA|7' | cat "$here/documentos.txt" - > "$work/guiones/despues.txt"
    for folder in "$work"/guiones/*; do iconv -f UTF-8 -t CP1252 -o "$folder" <(cat "$folder"); done
}

# --- the native edition, with the moments at which the hosts of examples/ issued --------------------------------------

moment_of() { sed -n 's/.* fecha="\([^"]*\)".*/\1/p' "$1"; }

# STATION, XML that a host of examples/ wrote, EMITE record: the demonstration's invoice, which that host issued too.
issue_invoice() {
    sed -e "s/20[0-9][0-9]-[0-9-]* [0-9:]*/$(moment_of "$2")/" -e "s/^EMITE|.*/$3/" "$1/factura.txt" > "$1/una.txt"
    "$tolvex" emite "$1/una.txt" --bd "$1/tolvex.db" > /dev/null 2> "$1/mensajes"
}

issue_natively() {
    local key=(--empresa 1 --sucursal 1 --bd "$work/nativa/tolvex.db")
    issue_invoice "$work/nativa" "$windows/Facturas/A4.xml" 'EMITE||1|ingreso|16|0'
    issue_invoice "$work/nativa" "$windows/Facturas/A120.xml" 'EMITE|00000120|0|ingreso|16|0'
    issue_invoice "$work/nativa" "$windows/Facturas/A5.xml" 'EMITE||1|ingreso|16|0'
    "$tolvex" emite "$work/nativa/documentos.txt" --bd "$work/nativa/tolvex.db" > /dev/null
    "$tolvex" cancela 6 --fecha 2011-12-31 "${key[@]}" > /dev/null
    "$tolvex" borra 7 --si "${key[@]}" > /dev/null
    "$tolvex" emite "$work/nativa_2/documentos.txt" --bd "$work/nativa_2/tolvex.db" > /dev/null
    # A flat file stops at a seal that stays empty; the document is there all the same.
    issue_invoice "$work/nativa_sin_llave" "$work/sin_llave/Facturas/A4.xml" 'EMITE||1|ingreso|16|0' || true
}

# --- the checks ------------------------------------------------------------------------------------------------------

said() { diff -u <(printf '%s\n' "${@:2}") "$work/said/$1"; }
refused() {
    said "$1" "No se pudo emitir; revise que la carpeta tenga openssl.exe y pkey.key.pem: $(windows_path "$work/$2")" "código 1"
}
no_connection() { grep -q "^No se pudo establecer conexión con la base de datos: .*no_existe" "$work/said/$1"; }

rows() {
    sqlite3 "$1/tolvex.db" "select * from FE_VENTAS_RESUMEN" "select * from FE_VENTAS_RESUMEN_DET" \
        "select * from FE_ClienteFactura" "select * from FE_FOLIOS"
}

# NATIVE STATION, STATION
same_documents() { diff -rq "$work/$1/Facturas" "$work/$2/Facturas" && diff <(rows "$work/$1") <(rows "$work/$2"); }
logged() { for line in "$@"; do grep -q "^20[-0-9]* [:.0-9]* [0-9]*\.[0-9]* $line" "$work/bitacora.txt" || return; done; }
no_work_files() { [ -z "$(cd "$windows" && ls sello.bat sello.txt utf8.txt fi_md5.txt ./Facturas/*.tmp 2> /dev/null)" ]; }
next_folio() { [ "$("$tolvex" folio 1 --bd "$work/$1/tolvex.db")" = "$2" ]; }

check() {
    local folder name
    folder=$(windows_path "$windows")
    expect "VBScript" said vbscript "Folio: 4" "Carpeta: $folder\\Facturas" "código 0"
    expect "JScript" said jscript "Folio: 00000120" "Carpeta: $folder\\Facturas" "código 0"
    expect "C++" said cpp "Folio: 5" "Carpeta: $folder\\Facturas" "código 0"
    expect "documentos" said Facturación_Ñandú "Conexión: -1, otra vez -1" "Uno y medio: 1.5" "Emisor 9: 0, 1: -1" \
        "Documento: 6 -1, siguiente 7" "Documento: 7 -1, siguiente 8" "Documento: 2 -1, siguiente 8" \
        "Documento: 8 -1, siguiente 9" "Documento: 00000777 -1, siguiente 9" "Cancelación: -1" "Borrado: -1" \
        "Cierre: -1" "código 0"
    expect "coma decimal" said coma_decimal "Conexión: -1, otra vez -1" "Uno y medio: 1,5" "Emisor 9: 0, 1: -1" \
        "Documento: 4 -1, siguiente 5" "Documento: 5 -1, siguiente 6" "Documento: 2 -1, siguiente 6" \
        "Documento: 6 -1, siguiente 7" "Documento: 00000777 -1, siguiente 7" "Cierre: -1" "código 0"
    expect "archivo plano" said openssl_2011 "A4,A5,NC2,A6,A00000777" "código 0"
    expect "con poca precisión" said rough_arithmetic "A4,A5,NC2,A6,A00000777" "como estaba" "código 0"
    expect "bitácora" logged 'LLAMADA ConfigFE.SetDatosConexion("", \*\*\*, ' 'PROGRAMA .*openssl dgst -sha1 ' \
        'RESULTADO GeneraDocto.GeneraFacturaElectronica True vlnFactura="6" ' 'SQL update fe_folios set nultimofolio=6\\r' \
        'LLAMADA GeneraDocto.GetDatosEmpresa ERROR en los argumentos: No coinciden los tipos: argumento vlnEmpresa'
    expect "lo mismo en las dos ediciones" same_documents nativa Facturación_Ñandú
    expect "todos los documentos" test "$(find "$windows/Facturas" -name '*.xml' | wc -l)" = 12
    expect "ningún archivo de trabajo" no_work_files
    expect "lo mismo con coma decimal" same_documents nativa_2 coma_decimal
    expect "lo mismo con poca precisión" same_documents nativa_2 rough_arithmetic
    expect "lo mismo de un archivo plano, con el openssl de 2011" same_documents nativa_2 openssl_2011
    # The exit code of openssl is not examined: without a key the seal stays empty, in both editions.
    expect "lo mismo sin llave" same_documents nativa_sin_llave sin_llave
    expect "sin openssl" refused sin_openssl sin_openssl
    expect "sin carpeta" refused sin_carpeta no_existe
    expect "carpeta con un blanco en su ruta" refused "con blanco" "con blanco"
    for name in vbscript jscript cpp; do expect "$name sin base de datos" no_connection "${name}_sin_base"; done
    expect "sin openssl no se guarda nada" next_folio sin_openssl 4
    expect "la edición nativa sigue con la misma base" next_folio Facturación_Ñandú 9
}

prepare
"$here/../run_test.sh" "$bits" "$component" "$here/run_hosts.sh" "$work" > "$work/salida" || { cat "$work/salida" && exit 1; }
issue_natively
check
end_of_checks
