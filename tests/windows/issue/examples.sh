#!/bin/bash
# examples.sh 64|32 COMPONENT SQL OPENSSL KEYS EXAMPLES PROGRAM: the hosts that users copy do what they say.
set -euo pipefail

. "$(dirname "$0")/folder.sh"
examples=$6 program=$7
[ "$bits" = 64 ] && system='C:\windows\system32' || system='C:\windows\syswow64'
given=(sqlite: "$(windows_path "$folder/facturas.db")" "$(windows_path "$folder")")

run_script() {
    iconv -f UTF-8 -t CP1252 "$examples/$1" > "$folder/$1"
    windows "$system\\cscript.exe" //nologo "$(windows_path "$folder/$1")" "${given[@]}"
}

run_script emite.vbs
run_script emite.js
windows "$program" "${given[@]}"
[ -s "$folder/Facturas/A1.xml" ]
[ -s "$folder/Facturas/A7.xml" ]
[ -s "$folder/Facturas/A2.xml" ]
ls "$folder/Facturas"
echo "FIN: 3 comprobaciones, 0 fallas"
