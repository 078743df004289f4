#!/bin/bash
# run_printing.sh 64|32 PROGRAM    inside the test bed: PROGRAM prints, and what reached the printers is looked at
#
# It leaves pictures of the paper and of the same pages as a PDF file in the current folder.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/printers.sh"
bits=$1 program=$2

start_spooler
add_printer Caja
add_printer Mostrador
lpadmin -d Mostrador
expect "las pruebas del programa" "$here/../run_in_testbed.sh" "$bits" 120 "$program"

expect "llegan dos trabajos, ninguno a medias" test "$(number_of_jobs)" = 2
expect "a la impresora predeterminada" asks_for 1 'printers/Mostrador'
expect "con su título" asks_for 1 'job-name..Factura .. 1'
expect "una copia" asks_for 1 'copies\x00\x04\x00\x00\x00\x01'
expect "a la que se nombra" asks_for 2 'printers/Caja'
expect "tres copias" asks_for 2 'copies\x00\x04\x00\x00\x00\x03'

draw "$(document_of 1)" papel
draw papel.pdf pdf
convert papel-2.png -rotate 90 papel-2.png # a lying page comes turned
for page in 1 2; do expect "la página $page es la del PDF" look_alike "papel-$page.png" "pdf-$page.png"; done
end_of_checks
