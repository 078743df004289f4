#!/bin/bash
# soak.sh 64|32 TOLVEX BUILD [PERCENT]    the soak of the Windows edition in BUILD (build/windows/x86_64), in a shop that
# TOLVEX (the native command) makes; the figures appear as they come
set -euo pipefail

project=$(cd "$(dirname "$0")/../.." && pwd)
tests=$project/tests/windows
. "$tests/checks.sh"
seconds=86400

# Inside the test bed, with the component registered.
if [ -n "${TOLVEX_INSIDE_TESTBED-}" ]; then
    bits=$1 soak=$3 shop=$4 percent=$5
    "$tests/run_in_testbed.sh" "$bits" "$seconds" "$soak" "$(windows_path "$shop")" "$percent" >&2
    echo "FIN: 1 comprobaciones, 0 fallas"
    exit
fi

bits=$1 tolvex=$2 build=$(readlink -f "$3") percent=${4:-100}
shop=$build/soak_shop

"$tests/run_in_testbed.sh" require "$bits"
rm -rf "$shop"
"$tolvex" demo --carpeta "$shop" > /dev/null
cp "$project/printing/layouts/factura.rdl" "$build-w64-mingw32/bin/openssl.exe" "$shop/"
TOLVEX_TEST_DISPLAY=1 TOLVEX_TEST_SECONDS=$seconds "$tests/run_test.sh" "$bits" "$build/automation/TOLVEX.dll" \
    "$project/trials/windows/soak.sh" "$build/soak.exe" "$shop" "$percent"
