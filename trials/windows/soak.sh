#!/bin/bash
# soak.sh 64|32 TRIPLET [PERCENT]    the soak of one bitness under Wine, in a shop that the native edition makes; figures
# appear as they come
set -euo pipefail

project=$(cd "$(dirname "$0")/../.." && pwd)
tests=$project/tests/windows
. "$tests/checks.sh"

# Inside the test bed, with the component registered.
if [ -n "${TOLVEX_INSIDE_TESTBED-}" ]; then
    bits=$1 soak=$3 shop=$4 percent=$5
    "$tests/run_in_testbed.sh" "$bits" 86400 "$soak" "$(windows_path "$shop")" "$percent" >&2
    echo "FIN: 1 comprobaciones, 0 fallas"
    exit
fi

bits=$1 triplet=$2 percent=${3:-100}
build=$project/build/windows/$triplet shop=$project/build/windows/$triplet/soak_shop

rm -rf "$shop"
"$project/build/tolvex" demo --carpeta "$shop" > /dev/null
cp "$project/printing/layouts/factura.rdl" "$build-w64-mingw32/bin/openssl.exe" "$shop/"
TOLVEX_TEST_DISPLAY=1 TOLVEX_TEST_SECONDS=86400 "$tests/run_test.sh" "$bits" "$build/automation/TOLVEX.dll" "$project/trials/windows/soak.sh" \
    "$build/soak.exe" "$shop" "$percent"
