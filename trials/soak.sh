#!/bin/bash
# soak.sh TOLVEX SOAK SHOP [PERCENT]    the native soak, in a SHOP that is made anew
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
tolvex=$1 soak=$2 shop=$(realpath -m "$3") percent=${4:-100}

rm -rf "$shop"
"$tolvex" demo --carpeta "$shop" > /dev/null
cp "$project/printing/layouts/factura.rdl" "$shop/"
"$soak" "$shop" "$percent"
