#!/bin/bash
# command.sh 64|32 COMPONENT TOLVEX OPENSSL: a Windows user with the command and openssl alone makes a company, and the
# component issues in its folder.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/checks.sh"
bits=$1 component=$2 runner=$here/run_in_testbed.sh
work=$(dirname "$component")/orden
rm -rf "$work"
mkdir -p "$work/ejemplos"
cp "$3" "$work/tolvex.exe"
cp "$4" "$work/openssl.exe"
cp -r "$here"/../../examples/{demostracion.cmd,vbscript} "$work/ejemplos"
sed -i 's/$/\r/' "$work/ejemplos/demostracion.cmd"
iconv -f UTF-8 -t CP1252 "$here/../../examples/vbscript/factura.vbs" -o "$work/ejemplos/vbscript/factura.vbs"
cd "$work"

windows() { "$runner" "$bits" 60 "$@" 2>&1 | tr -d '\r'; }
tolvex() { windows "$work/tolvex.exe" "$@"; }
ends_with_code() { local status=0; "${@:2}" > /dev/null || status=$?; [ "$status" = "$1" ]; }

said=$(windows "$(system_folder "$bits")\\cmd.exe" /c 'ejemplos\demostracion.cmd' "$(windows_path "$work/demo")")
expect "cuatro sellos verificados" [ "$(grep -c 'Verified OK' <<< "$said")" = 4 ]
expect "la terminal recibe UTF-8" grep -q 'contraseña 12345678a' <<< "$said"
expect "el componente emite en la carpeta" grep -qx 'Folio: 4' \
    <<< "$(windows "$(system_folder "$bits")\\cscript.exe" //nologo 'ejemplos\vbscript\factura.vbs' "$(windows_path "$work/demo")")"
expect "todo está bien" [ "$(tolvex verifica --bd 'demo\tolvex.db')" = "Documentos revisados: 5; no está bien: 0" ]

mv openssl.exe aparte.exe
tolvex emite 'demo\factura.txt' --sello-interno --bd 'demo\tolvex.db' > emitido.txt
mv aparte.exe openssl.exe
expect "el sello interno no necesita openssl" grep -q 'A5\.xml' emitido.txt
expect "y es el mismo" [ "$(tolvex verifica --bd 'demo\tolvex.db')" = "Documentos revisados: 6; no está bien: 0" ]

said=$(tolvex diagnostico --bd 'demo\tolvex.db')
expect "se puede emitir, con la llave del certificado" grep -q '^bien .*pkey.key.pem sella, y es del certificado' <<< "$said"
expect "y nada falta" [ -z "$(grep -v '^bien ' <<< "$said")" ]
"$runner" "$bits" 60 "$work/tolvex.exe" documentos --csv --serie NC --bd 'demo\tolvex.db' > lista.csv 2> /dev/null
expect "los renglones de CSV acaban en un solo retorno" [ "$(tr -cd '\r' < lista.csv | wc -c)" = "$(wc -l < lista.csv)" ]
expect "sin terminal borra no borra" ends_with_code 1 tolvex borra 1 --empresa 1 --sucursal 1 --bd 'demo\tolvex.db'

# As an installation script would, with names beyond ASCII.
mkdir "$work/Ñandú"
cp "$work"/demo/{maestros.toml,llave.key,certificado.cer} "$work/Ñandú"
registered=$(tolvex maestros 'Ñandú\maestros.toml' --bd 'Ñandú\otra €.db' <<< 12345678a)
expect "openssl lee la contraseña que se le da" grep -q '^  Certificado 1: certificado.cer' <<< "$registered"
expect "y convierte la llave" grep -q 'BEGIN PRIVATE KEY' "$work/Ñandú/pkey.key.pem"

expect "lo mal escrito termina con 2" ends_with_code 2 tolvex emitte
expect "lo que falla termina con 1" ends_with_code 1 tolvex folio 99 --bd 'demo\tolvex.db'
end_of_checks
