#!/bin/bash
# fuzz.sh BUILD SECONDS [TARGET]…: inputs made by chance for each target of trials/fuzz/, each for so long, from its seeds
# and from what earlier runs kept (BUILD/corpus). The conversion of arguments runs in the test bed, without libFuzzer. A
# line a target says what was run; what a target broke on is left in BUILD/findings, and is to become a test or a seed.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
build=$(readlink -f "$1") seconds=$2
shift 2
seeds=$project/trials/fuzz/seeds runner=$project/tests/windows/run_in_testbed.sh
corpus=$build/corpus findings=$build/findings log=$build/log
mkdir -p "$findings" "$log"
found=0

# Memory shared with nobody's disk: one target writes PDF files, another a database.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm
# Short stacks of allocations and little kept of what was freed: several times the runs.
export ASAN_OPTIONS=malloc_context_size=4:quarantine_size_mb=16

# told TARGET STATUS RUNS A_SECOND
told() {
    printf '%-20s %12s ejecuciones %8s por segundo  %s\n' "$1" "${3:--}" "${4:--}" \
        "$([ "$2" = 0 ] && echo 'sin hallazgos' || echo "HALLAZGO: $findings/$1-*")"
    [ "$2" = 0 ] || found=1
}

statistic() { sed -n "s/^stat::$2: *//p" "$log/$1"; }

run_here() {
    local target=$1 status=0
    mkdir -p "$corpus/$target"
    "$build/fuzz/${target}_fuzz" -max_total_time="$seconds" -max_len=4096 -timeout=20 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$findings/$target-" "$corpus/$target" "$seeds/$target" \
        > "$log/$target" 2>&1 || status=$?
    told "$target" "$status" "$(statistic "$target" number_of_executed_units)" "$(statistic "$target" average_exec_per_sec)"
}

# run_in_testbed 64|32 TRIPLET: the last word of a target without libFuzzer is "N runs, N a second".
run_in_testbed() {
    local name=arguments-$1 program=$project/build/windows/$2/fuzz/arguments_fuzz.exe status=0 runs speed
    if ! "$runner" has "$1" || [ ! -e "$program" ]; then
        echo "ATENCIÓN: NO SE PROBÓ LA CONVERSIÓN DE ARGUMENTOS DE $1 BITS (setup/testbed.sh, make windows)"
        return
    fi
    (cd "$project" && "$runner" "$1" $((seconds + 60)) "$program" --seconds "$seconds" --seed "$(date +%s)" \
        "$seeds/arguments") > "$log/$name" 2>&1 || status=$?
    [ ! -e "$program.finding" ] || mv "$program.finding" "$findings/$name-finding"
    read -r runs _ speed _ < <(tail -n 1 "$log/$name")
    [ "$status" = 0 ] || runs='' speed=''
    told "$name" "$status" "$runs" "$speed"
}

if [ $# = 0 ]; then
    for program in "$build"/fuzz/*_fuzz; do set -- "$@" "$(basename "$program" _fuzz)"; done
    set -- "$@" arguments
fi
for target; do
    case $target in
        arguments) run_in_testbed 64 x86_64 && run_in_testbed 32 i686 ;;
        *) run_here "$target" ;;
    esac
done
exit "$found"
