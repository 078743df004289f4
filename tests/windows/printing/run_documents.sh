#!/bin/bash
# run_documents.sh 64|32 COMPONENT WORK    inside the test bed: a script prints what documents_test.sh prepared in WORK
#
# It leaves in WORK what the script said and pictures of the paper. Once there is a printer, and once there is none.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/../pages/printers.sh"
bits=$1 work=$3

# FOLDER: a station, and the folder in which its script writes.
print_documents() {
    local folder=$work/$1 status=0
    "$here/../run_in_testbed.sh" "$bits" 60 "$(system_folder "$bits")\\cscript.exe" //nologo \
        "$(windows_path "$work/imprime.vbs")" "$(windows_path "$folder/tolvex.db")" "$(windows_path "$work/factura.rdl")" \
        "$(windows_path "$folder")" > "$folder/raw" 2>&1 || status=$?
    { iconv -f CP850 -t UTF-8 "$folder/raw" | tr -d '\r' && echo "código $status"; } > "$folder/said"
}

cd "$work"
print_documents sin_impresora
start_spooler
add_printer Caja
lpadmin -d Caja
print_documents con_impresora

expect "dos trabajos" test "$(number_of_jobs)" = 2
expect "si no se dice, una copia" asks_for 1 'copies\x00\x04\x00\x00\x00\x01'
expect "con el nombre del documento" asks_for 1 'job-name..factura 4'
expect "dos copias de dos páginas, una tras otra" grep -qa '^%%Pages: 4' "$(document_of 2)"
draw "$(document_of 1)" papel
draw con_impresora/FacturaElec_4.pdf pdf
expect "las mismas páginas" diff <(ls papel-*.png | sed s/papel/pdf/) <(ls pdf-*.png)
for picture in papel-*.png; do expect "como en el PDF" look_alike "$picture" "${picture/papel/pdf}"; done
end_of_checks
