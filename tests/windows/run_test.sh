#!/bin/bash
# run_test.sh 64|32 COMPONENT [OPTION] TEST [ARGUMENT]…    one test of the Windows edition in the test bed
#
# Registers COMPONENT (a TOLVEX.dll) for as long as TEST runs, which is a Windows program or a shell script
# (.sh), which gets the bitness and the component as well; with --unregistered or --registered nothing is registered,
# because TEST does it itself or it has been done. A test passes when its last line says that all its checks held:
# a host that stops half-way prints no such line. Exit code 77: the test bed cannot run that bitness.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/checks.sh"
runner=$here/run_in_testbed.sh
seconds=${TOLVEX_TEST_SECONDS:-120}

if [ -z "${TOLVEX_INSIDE_TESTBED-}" ]; then
    "$runner" require "$1"
    exec "$runner" ${TOLVEX_TEST_DISPLAY:+--display} session "$((seconds + 30))" "$0" "$@"
fi

bits=$1 component=$2
shift 2
registers=yes
case $1 in --unregistered | --registered) registers= && shift ;; esac
test=$1
shift

windows() { "$runner" "$bits" "$seconds" "$@"; }

register() { windows "$(system_folder "$bits")\\regsvr32.exe" /s "$@" "$(windows_path "$component")"; }

run() {
    case $test in
        *.sh) "$test" "$bits" "$component" "$@" ;;
        *) windows "$test" "$@" ;;
    esac
}

cd "$(dirname "$component")"
[ -z "$registers" ] || register
status=0
output=$(run "$@" | tr -d '\r') || status=$?
[ -z "$registers" ] || register /u
echo "$output"
[ "$status" = 0 ] || { echo "run_test: terminó con código $status" >&2 && exit "$status"; }
[[ $output =~ FIN:\ [1-9][0-9]*\ comprobaciones,\ 0\ fallas$ ]] || { echo "run_test: falta la línea FIN sin fallas" >&2 && exit 1; }
