#!/bin/bash
# registration.sh 64|32 COMPONENT OTHER: registering and unregistering, for the machine and for the user, leaves the
# registry as it was, and beside the component of the other bitness (OTHER) neither takes away what both need.
set -euo pipefail

bits=$1 component=$2 other=$3
runner=$(dirname "$0")/run_in_testbed.sh
checks=0 failures=0
folder=$(mktemp -d)

expect() {
    local what=$1
    shift
    checks=$((checks + 1))
    "$@" && return
    failures=$((failures + 1))
    echo "FALLA: $what"
}

# regsvr32 64|32 COMPONENT [OPTION]…
regsvr32() {
    local system='C:\windows\syswow64' kind=$1 dll="Z:${2//\//\\}"
    [ "$kind" = 32 ] || system='C:\windows\system32'
    shift 2
    "$runner" "$kind" 60 "$system\\regsvr32.exe" /s "$@" "$dll"
}

# Keys and values of the classes in both parts of the registry.
look() {
    local root
    registry=$(for root in HKLM HKCU; do
        rm -f "$folder/exported"
        "$runner" 64 60 'C:\windows\system32\reg.exe' export "$root\\Software\\Classes" \
            "Z:${folder//\//\\}\\exported" > /dev/null 2>&1 || true # a user may have no classes yet
        [ ! -e "$folder/exported" ] || iconv -f UTF-16 -t UTF-8 "$folder/exported" | tr -d '\r'
    done)
}

has() { LC_ALL=C grep -qiE "$1" <<< "$registry"; }
has_no() { ! has "$1"; }
any='tolvex|5aa356af-ac30-496a-9d50-5c5336279fca'

# The parents CLSID, Interface and TypeLib come with a user's first registration and belong to the system.
regsvr32 "$bits" "$component" /n /i:user
regsvr32 "$bits" "$component" /u /n /i:user

look
expect "nada registrado al empezar" has_no "$any"
before=$(LC_ALL=C sort <<< "$registry")

regsvr32 "$bits" "$component"
look
expect "identificador para la máquina" has '^\[HKEY_LOCAL_MACHINE.*\\TOLVEX\.GeneraDocto\\CLSID'
expect "modelo de apartamento" has '"ThreadingModel"="Apartment"'
expect "biblioteca de tipos" has "^\[HKEY_LOCAL_MACHINE.*\\\\TypeLib\\\\.5AA356AF.*\\\\win$bits"
regsvr32 "$bits" "$component" /u
look
expect "nada queda en la máquina" has_no "$any"

regsvr32 "$bits" "$component" /n /i:user
look
expect "identificador para el usuario" has '^\[HKEY_CURRENT_USER.*\\TOLVEX\.GeneraDocto\\CLSID'
expect "nada en la máquina" has_no '^\[HKEY_LOCAL_MACHINE.*(tolvex|5aa356af)'
regsvr32 "$bits" "$component" /u /n /i:user
look
expect "nada queda del usuario" has_no "$any"
expect "el registro quedó como estaba" test "$before" = "$(LC_ALL=C sort <<< "$registry")"

if [ -e "$other" ] && "$runner" has $((96 - bits)); then
    regsvr32 "$bits" "$component"
    regsvr32 $((96 - bits)) "$other"
    regsvr32 "$bits" "$component" /u
    look
    expect "la otra edición conserva el identificador" has '\\TOLVEX\.GeneraDocto\\CLSID'
    expect "la otra edición conserva la biblioteca de tipos" has "\\\\win$((96 - bits))"
    expect "la propia biblioteca de tipos se fue" has_no "5AA356AF.*\\\\win$bits"
    regsvr32 $((96 - bits)) "$other" /u
    look
    expect "nada queda de ninguna" has_no "$any"
fi

echo "FIN: $checks comprobaciones, $failures fallas"
