#!/bin/bash
# run_printing.sh 64|32 PROGRAM    inside the test bed: PROGRAM prints, and what reached the printers is looked at
#
# It leaves pictures of the paper and of the same pages as a PDF file in the current folder.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/printers.sh"
bits=$1 program=$2

# draw FILE NAME: NAME-1.png, NAME-2.png, …, one for each page, upright.
draw() { gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=png16m -r100 -dTextAlphaBits=4 -dGraphicsAlphaBits=4 -sOutputFile="$2-%d.png" "$1"; }

# Both pictures show the same in the same places: nowhere do they differ by more than the edge of a letter. Shifted by
# three pixels they do (0.33).
look_alike() {
    local difference
    difference=$(compare -metric PAE <(convert "$1" -blur 0x4 png:-) <(convert "$2" -blur 0x4 png:-) null: 2>&1) || true
    difference=${difference##*(}
    echo "$1: difieren en ${difference%)} cuando más"
    awk -v difference="${difference%)}" 'BEGIN { exit !(difference != "" && difference < 0.2) }'
}

asks_for() { LC_ALL=C grep -qaP "$2" "$(request_of "$1")"; }

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
