#!/bin/bash
# pages_test.sh 64|32 PROGRAM    what PROGRAM writes as hoja.pdf, read by other programs
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
bits=$1 program=$2
runner=$here/../run_in_testbed.sh

"$runner" require "$bits"
mkdir -p "$(dirname "$program")/paginas"
cd "$(dirname "$program")/paginas"
rm -f hoja.pdf

"$runner" "$bits" 120 "$program" | tr -d '\r' | tee said
expect "las pruebas del programa" grep -q '^FIN: [1-9][0-9]* comprobaciones, 0 fallas$' said

# says PATTERN PROGRAM [ARGUMENT]…
says() { "${@:2}" | grep -qE "$1"; }
# counts NUMBER PATTERN PROGRAM [ARGUMENT]…
counts() { [ "$("${@:3}" | grep -cE "$2")" = "$1" ]; }

expect "el texto" says '^Señor Núñez: 1 € “así” – ¿ya\?$' pdftotext hoja.pdf -
expect "otros alfabetos" says '^Ωμέγα и ŵ$' pdftotext hoja.pdf -
expect "título" says '^Title: +Factura “A1”$' pdfinfo hoja.pdf
expect "todas las fuentes incluidas" counts 0 ' no  *(yes|no) (yes|no)  ' pdffonts hoja.pdf
expect "la letra del diseño" says '^[A-Z]{6}\+(Arial|LiberationSans)' pdffonts hoja.pdf
expect "las imágenes" counts 5 ' image +16 +12 +rgb ' pdfimages -list hoja.pdf
expect "sus transparencias" counts 3 ' smask +16 +12 ' pdfimages -list hoja.pdf
end_of_checks
