#!/bin/bash
# viewer_test.sh 64|32 COMPONENT HOST TOLVEX    real keys and clicks in the viewer, and what it saves
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/../printing/long_invoice.sh"
bits=$1 component=$2 host=$3 tolvex=$4
work=$(dirname "$component")/visor
runner=$here/../run_in_testbed.sh

"$runner" require "$bits"
[ -x "$tolvex" ] || { echo "falta la edición nativa ($tolvex): constrúyala con make" >&2 && exit 1; }

session() {
    rm -rf "$work"
    mkdir -p "$work"
    issue_long_invoice "$tolvex" "$work"
    cp "$here/../../../printing/layouts/factura.rdl" "$work/"
    cd "$work"
    plays 400 "$here/run_viewer.sh" "$bits" "$component" "$host" "$work"
}

# On a machine with much else to do a key may be lost on its way; a fault is there the second time too.
expect "el recorrido" eval 'session || session'
"$tolvex" imprime 4 --empresa 1 --bd "$work/tolvex.db" --pdf "$work/nativo.pdf" > /dev/null
for dpi in 96 144; do
    expect "lo guardado ($dpi)" diff <(pdftotext "$work/nativo.pdf" -) <(pdftotext "$work/guardado-$dpi.pdf" -)
done
end_of_checks
