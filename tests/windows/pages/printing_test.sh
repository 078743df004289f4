#!/bin/bash
# printing_test.sh 64|32 PROGRAM    PROGRAM prints on real printers of the system
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
runner=$here/../run_in_testbed.sh

"$runner" require "$1"
mkdir -p "$(dirname "$2")/impresora"
cd "$(dirname "$2")/impresora"
rm -f ./*
"$runner" session 200 "$here/run_printing.sh" "$1" "$2" | tr -d '\r' | tee said
grep -q '^FIN: [1-9][0-9]* comprobaciones, 0 fallas$' said
