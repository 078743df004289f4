#!/bin/bash
# Runs programs under Wine in the test bed that setup/testbed.sh makes.
#
#   run_in_testbed.sh [--display] 64|32 SECONDS PROGRAM [ARGUMENT]…    a Windows program of that bitness
#   run_in_testbed.sh [--display] session SECONDS COMMAND [ARGUMENT]…  a command inside the test bed; there it may
#                                                                      call this script for one program after another
#   run_in_testbed.sh has 64|32                                        can the test bed run that bitness?
#   run_in_testbed.sh require 64|32                                    the same, with the exit codes below
#   run_in_testbed.sh lacks                                            names loudly what it cannot run, if anything
#
# The project is seen at the same path inside; the current folder must lie in it. The exit code is the program's;
# 124 when the time is up, 77 when the bitness is missing, 125 when the test bed itself fails. The Wine prefix stays
# (registrations too), so runs queue for it. --display offers an X screen with a window manager.
#
# The test bed is of one of two kinds. In a Debian of its own everything lives in namespaces: however a run ends, the
# kernel ends its processes and mounts with it. On this system (where namespaces cannot be made) programs end with the
# one that started them, and what is left of a run that was killed ends before the next.
set -euo pipefail

[ "$(id -u)" = 0 ] || exec sudo --preserve-env "$0" "$@"

script=$(readlink -f "$0")
project=$(dirname "$(dirname "$(dirname "$script")")")
bound=(setpriv --pdeathsig TERM) # before a program: it ends with the shell that starts it

fail() {
    echo "run_in_testbed: $2" >&2
    exit "$1"
}

has_bitness() { [ -e "$testbed/runs-$1" ]; }

require_bitness() { [ "$1" = session ] || has_bitness "$1" || fail 77 "NO SE PROBÓ: no hay Wine de $1 bits"; }

require() {
    [ -d "$testbed/prefix" ] || fail 125 "no hay banco de pruebas en $testbed; ejecute setup/testbed.sh"
    require_bitness "$1"
}

name_what_is_missing() {
    local bits
    for bits in 64 32; do
        has_bitness "$bits" || echo "ATENCIÓN: EL BANCO DE PRUEBAS NO TIENE WINE DE $bits BITS; ESAS PRUEBAS NO SE EJECUTAN" >&2
    done
}

# --- the way in ------------------------------------------------------------------------------------------------------

enter() {
    require "$1"
    case $PWD/ in "$project"/*) ;; *) fail 125 "la carpeta actual ($PWD) no está en el proyecto ($project)" ;; esac
    exec 9> "$testbed/prefix.lock"
    flock 9
    if [ -e "$testbed/on-this-system" ]; then
        enter_this_system "$@"
    else
        enter_own_debian "$@"
    fi
}

# Where the test bed and its home folder are seen by what runs in it.
set_environment() {
    unset DISPLAY WAYLAND_DISPLAY LD_PRELOAD LD_LIBRARY_PATH TMPDIR
    export TOLVEX_INSIDE_TESTBED=1 TOLVEX_TESTBED=$1 HOME=$2 PATH=/usr/sbin:/usr/bin:/sbin:/bin
    export WINEPREFIX=$1/prefix WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree=;mshtml="
}

enter_own_debian() { exec unshare --mount --pid --uts --fork --kill-child "$script" --mounted "$testbed" "$display" "$@"; }

mount_testbed() {
    mount -t proc proc "$1/proc" &&
        mount --rbind /dev "$1/dev" &&
        mount -t tmpfs tmpfs "$1/tmp" &&
        mkdir -p "$1$project" &&
        mount --bind "$project" "$1$project"
}

change_root() {
    local root=$1
    shift
    hostname caja
    mount_testbed "$root" || fail 125 "no se pudo montar el banco de pruebas; hace falta la capacidad SYS_ADMIN"
    set_environment "" /root
    exec chroot "$root" "$script" --inside "$PWD" "$@"
}

# The lock stays with this process alone: a Windows program may outlive it.
enter_this_system() {
    set_environment "$testbed" "$testbed/home"
    export LOCPATH=$testbed/locales TMPDIR=$testbed/tmp
    mkdir -p "$TMPDIR"
    end_wine 9>&-
    find "$TMPDIR" -mindepth 1 -delete
    "${bound[@]}" "$script" --inside "$PWD" "$display" "$@" 9>&-
}

# --- inside ----------------------------------------------------------------------------------------------------------

start_display() {
    local number screen
    screen=$(mktemp -d)/number
    mkfifo "$screen"
    "${bound[@]}" Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3> "$screen" 2> /dev/null &
    read -r -t 30 number < "$screen" || fail 125 "Xvfb no arrancó"
    export DISPLAY=:$number
    openbox &> /dev/null &
}

run_limited() {
    local seconds=$1 status=0
    shift
    SECONDS=0
    "${bound[@]}" timeout --kill-after=2 "$seconds" "$@" || status=$?
    case $status in 124 | 137) [ "$SECONDS" -lt "$seconds" ] || status=124 ;; esac
    [ "$status" != 124 ] || echo "run_in_testbed: se acabó el tiempo ($seconds s): $*" >&2
    return "$status"
}

run() {
    local kind=$1 seconds=$2 status=0
    require_bitness "$kind"
    shift 2
    case $kind in
        64) run_limited "$seconds" /usr/lib/wine/wine64 "$@" || status=$? ;;
        32) run_limited "$seconds" /usr/lib/wine/wine "$@" || status=$? ;;
        session) run_limited "$seconds" "$@" || status=$? ;;
    esac
    [ "$status" != 124 ] || restart_wine
    return "$status"
}

# The server and the system's processes stay from one program to the next: otherwise they end with each program, and
# one that starts at that very moment is cut off. A program of ours that came first would lend them its output, and
# who reads that would wait for them.
start_wine() {
    /usr/lib/wine/wineserver64 -p &&
        /usr/lib/wine/wine64 wineboot &&
        /usr/lib/wine/wine64 rundll32 none,none # its desktop
} < /dev/null &> /dev/null || true

# Ends every Windows process and writes the registry. (A mere SIGTERM would leave programs behind.)
end_wine() { /usr/lib/wine/wineserver -k || true; }

restart_wine() {
    end_wine
    start_wine
}

start_inside() {
    local status=0
    export LC_ALL=es_MX.UTF-8
    cd "$1"
    [ -z "$2" ] || start_display
    shift 2
    start_wine
    run "$@" || status=$?
    end_wine
    exit "$status"
}

# --- which of them ---------------------------------------------------------------------------------------------------

if [ "${1-}" = --mounted ]; then
    shift
    change_root "$@"
fi
testbed=${TOLVEX_TESTBED-$project/build/testbed}
if [ "${1-}" = --inside ]; then
    shift
    start_inside "$@"
fi
display=
if [ "${1-}" = --display ]; then
    display=$1
    shift
fi
case ${1-} in
    has) has_bitness "$2" ;;
    require) require "$2" ;;
    lacks) name_what_is_missing ;;
    64 | 32 | session)
        [ $# -ge 3 ] || fail 125 "faltan los segundos o el programa"
        if [ -n "${TOLVEX_INSIDE_TESTBED-}" ]; then run "$@"; else enter "$@"; fi
        ;;
    *) fail 125 "uso: run_in_testbed.sh [--display] 64|32|session SEGUNDOS PROGRAMA [ARGUMENTO]…" ;;
esac
