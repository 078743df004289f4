#!/bin/bash
# table.sh [BUILD]: every measurement in one table. Timings of different machines or runs do not compare; the ratios of
# one run do.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$project/build/bench}" && pwd)
tolvex=$build/tolvex
work=$build/bench/documents_table

# WHAT MILLISECONDS-OF-ONE BESIDE, as bench/measuring.hpp writes it.
row() { LC_ALL=C awk -v ms="$2" -v what="$1" -v beside="${3-}" \
    'BEGIN { printf "%-46s %9.1f %11.3f %9s %s\n", what, 1000 / ms, ms, "", beside }'; }

# COUNT COMMAND…: milliseconds of one of the COUNT that a command makes.
milliseconds_each() {
    local count=$1 start
    start=$(date +%s%N)
    "${@:2}" > /dev/null 2> "$work/errors" || { cat "$work/errors" >&2; return 1; }
    awk "BEGIN { print ($(date +%s%N) - $start) / 1e6 / $count }"
}

# COUNT documents of three lines, each with a moment of its own.
flat_file() {
    local i
    echo 'EMISOR|1|1'
    for ((i = 0; i < $1; i++)); do
        printf 'CLIENTE|PEGM800101AB1|María Peña|Niños Héroes|120||Del Valle||Distrito Federal|Benito Juárez|México|03100|'
        printf '300.00|0.00|48.00|348.00|1|1|2011-03-15 %02d:%02d:%02d|\n' $((i / 3600 % 24)) $((i / 60 % 60)) $((i % 60))
        printf 'DETALLE|1|F|CAF-01|Café de altura, 1 kg|1|KG|100.00|16.00|100.00|16\n%.0s' 1 2 3
        echo 'EMITE||1'
    done
}

flat_files() {
    local emit=("$tolvex" emite "$work/mil.txt" --bd "$work/tolvex.db")
    flat_file 1000 > "$work/mil.txt"
    row "document of a flat file of 1000, openssl" "$(milliseconds_each 1000 "${emit[@]}")"
    row "document of a flat file of 1000, in process" "$(milliseconds_each 1000 "${emit[@]}" --sello-interno)"
}

start_up() { for ((i = 0; i < 100; i++)); do "$tolvex" --version; done; }

# Hosts of the Windows edition, where it and its test bed are built.
windows() {
    local dll
    for triplet in x86_64 i686; do
        dll=$project/build/windows/$triplet/automation/TOLVEX.dll
        [ -e "$dll" ] || { echo "(TOLVEX.dll, $triplet: make windows builds it)"; continue; }
        printf '%-46s %21.2f MiB\n' "TOLVEX.dll, $triplet" "$(awk "BEGIN { print $(stat -c %s "$dll") / 1048576 }")"
    done
    if [ -e "$project/build/windows/x86_64/bench/windows/calls_bench.exe" ]; then
        "$project/bench/windows/run.sh"
    else
        echo "(VBScript: make bench-windows measures it)"
    fi
}

printf '%-46s %9s %11s %9s %s\n' "what" "a second" "ms of one" "peak MiB" "beside"
for bench in issue_bench print_bench verify_bench archive_bench stations; do "$build/bench/$bench"; done
rm -rf "$work"
mkdir -p "$work"
"$tolvex" demo --carpeta "$work" > /dev/null
flat_files
row "start of the tolvex command" "$(milliseconds_each 100 start_up)"
windows
