#!/bin/bash
# What Windows hosts cost under Wine, beside the native edition on the same machine in the same run: a whole issue of ten
# lines on the embedded database, the two openssl runs alone, and SetDetalleDocto calls per second.
set -euo pipefail

project=$(cd "$(dirname "$0")/../.." && pwd)
tests=$project/tests/windows
work=$project/build/windows/bench
count=${TOLVEX_BENCH_COUNT:-20}

# --- the native edition ----------------------------------------------------------------------------------------------

flat_file() {
    local i line
    echo 'EMISOR|1|1'
    for ((i = 0; i < count; i++)); do
        echo 'CLIENTE|PEGM800101AB1|Publico en general|Calle|1||Centro||Puebla|Puebla|Mexico|72000|1000.00|0.00|160.00|1160.00|1|1|2011-03-15 00:00:00|'
        for ((line = 0; line < 10; line++)); do
            echo 'DETALLE|1|F|CAF-01|Cafe de altura, 1 kg|1|KG|100|16|100|16'
        done
        echo 'EMITE||1|ingreso|16|0'
    done
}

seal_natively() {
    local i
    for ((i = 0; i < count; i++)); do
        openssl dgst -sha1 -sign pkey.key.pem -out solo.md5 factura.txt
        openssl enc -base64 -in solo.md5 -out solo.sel
    done
}

# Milliseconds of one of the COUNT rounds that a command makes.
milliseconds_each() {
    local start
    start=$(date +%s%N)
    "$@" > /dev/null
    echo $((($(date +%s%N) - start) / 1000000 / count))
}

# --- inside the test bed, with the component registered --------------------------------------------------------------

inside() {
    local bits=$1 component=$2 station=$3 script=$4 calls=$5 system='C:\windows\system32'
    [ "$bits" = 64 ] || system='C:\windows\syswow64'
    "$tests/run_in_testbed.sh" "$bits" 600 "$system\\cscript.exe" //nologo "$script" "$station" "$count" > "$work/script"
    "$tests/run_in_testbed.sh" "$bits" 600 "$calls" | grep SetDetalleDocto > "$work/calls"
    echo "FIN: 2 comprobaciones, 0 fallas"
}

windows_path() { echo "Z:${1//\//\\}"; }

ratio() { awk "BEGIN { printf \"%.2f\", $1 / $2 }"; }

report() {
    local bits=$1 triplet=$2 component=$project/build/windows/$2/automation/TOLVEX.dll station=$work/$1 issue seal
    cp -r "$work/nativa" "$station"
    cp "$project/build/windows/$triplet-w64-mingw32/bin/openssl.exe" "$station/"
    "$tests/run_test.sh" "$bits" "$component" "$project/bench/windows/run.sh" "$(windows_path "$station")" \
        "$(windows_path "$project/bench/windows/issue.vbs")" "$project/build/windows/$triplet/bench/windows/calls_bench.exe" \
        > /dev/null
    read -r issue seal < <(tr -d '\r' < "$work/script")
    echo "$bits bits, VBScript: $issue ms por factura, $seal ms los dos openssl ($(ratio "$issue" "$seal") veces);" \
        "$(ratio "$issue" "$native_issue") veces la edición nativa"
    cat "$work/calls"
}

if [ -n "${TOLVEX_INSIDE_TESTBED-}" ]; then
    inside "$@"
    exit
fi

rm -rf "$work"
mkdir -p "$work"
"$project/build/tolvex" demo --carpeta "$work/nativa" > /dev/null
cd "$work/nativa"
flat_file > muchas.txt
native_issue=$(milliseconds_each "$project/build/tolvex" emite muchas.txt --bd tolvex.db)
native_seal=$(milliseconds_each seal_natively)
echo "edición nativa: $native_issue ms por factura, $native_seal ms los dos openssl ($(ratio "$native_issue" "$native_seal") veces)"
cd "$project"
report 64 x86_64
report 32 i686
