#!/bin/bash
# documents_test.sh 64|32 COMPONENT TOLVEX    the same documents printed by a script host and by the native command
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/long_invoice.sh"
bits=$1 component=$2 tolvex=$3
work=$(dirname "$component")/impresos

"$here/../run_in_testbed.sh" require "$bits"
[ -x "$tolvex" ] || { echo "falta la edición nativa ($tolvex): constrúyala con make" >&2 && exit 1; }

rm -rf "$work"
mkdir -p "$work"
issue_long_invoice "$tolvex" "$work/con_impresora"
cp "$here/../../../printing/layouts/factura.rdl" "$work/"
iconv -f UTF-8 -t CP1252 "$here/imprime.vbs" > "$work/imprime.vbs"
rm -f "$work/con_impresora"/FacturaElec_*.pdf
cp -r "$work/con_impresora" "$work/sin_impresora"
TOLVEX_TEST_DISPLAY=1 "$here/../run_test.sh" "$bits" "$component" "$here/run_documents.sh" "$work"

text_of() { pdftotext "$1" -; }
goes_on() { diff "$work/$1/said" <(printf '%s\n' 'Conexión: -1' Impresos 'Sin reporte' 'Con dos visores abiertos' 'código 0'); }
only_these_pdf() { diff <(cd "$work/$1" && ls ./*.pdf) <(printf './FacturaElec_%s.pdf\n' 1 2 3 4); }

for station in con_impresora sin_impresora; do
    expect "el programa sigue, $station" goes_on $station
    expect "un PDF de cada documento, $station" only_these_pdf $station
done
for folio in 1 2 3 4; do
    "$tolvex" imprime "$folio" --empresa 1 --bd "$work/con_impresora/tolvex.db" --pdf "$work/nativo-$folio.pdf" > /dev/null
    expect "el texto del documento $folio" diff <(text_of "$work/nativo-$folio.pdf") \
        <(text_of "$work/con_impresora/FacturaElec_$folio.pdf")
done
expect "el largo lleva sus renglones" grep -q CAF-150 <(text_of "$work/con_impresora/FacturaElec_4.pdf")
end_of_checks
