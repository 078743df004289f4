#!/bin/bash
# registration.sh 64|32 COMPONENT: registering and unregistering, for the machine and for the user, leaves the registry
# as it was; in between hosts find the component. Both bitnesses beside each other keep what they share.
set -euo pipefail

bits=$1 component=$2
runner=$(dirname "$0")/run_in_testbed.sh
dll="Z:${component//\//\\}"
[ "$bits" = 64 ] && system='C:\windows\system32' || system='C:\windows\syswow64'
checks=0 failures=0

expect() {
    local what=$1
    shift
    checks=$((checks + 1))
    "$@" > /dev/null && return
    failures=$((failures + 1))
    echo "FALLA: $what"
}

windows() { "$runner" "$bits" 60 "$@"; }
regsvr32() { windows "$system\\regsvr32.exe" /s "$@" "$dll"; }

entries() {
    local root
    for root in HKLM HKCU; do
        "$runner" 64 60 'C:\windows\system32\reg.exe' query "$root\\Software\\Classes" /s 2> /dev/null || true
    done | iconv -f CP437 -t UTF-8 | tr -d '\r'
}

mentions() { entries | grep -qiE 'tolvex|5aa356af'; }
does_not_mention() { ! mentions; }
has_value() { entries | grep -qiF "$1"; }
has_line() { entries | grep -qiE "$1"; }

expect "nada registrado al empezar" does_not_mention
before=$(entries | sort)

regsvr32
expect "clase registrada para la máquina" has_line 'HKEY_LOCAL_MACHINE.*TOLVEX\.GeneraDocto'
expect "modelo de apartamento" has_line 'ThreadingModel +REG_SZ +Apartment'
expect "biblioteca de tipos" has_line "HKEY_LOCAL_MACHINE.*TypeLib.*5AA356AF.*win$bits|win$bits"
regsvr32 /u
expect "nada queda tras quitar el registro de la máquina" does_not_mention

regsvr32 /n /i:user
expect "clase registrada para el usuario" has_line 'HKEY_CURRENT_USER.*TOLVEX\.GeneraDocto'
expect "nada en la máquina" bash -c '! "$@"' _ false
regsvr32 /u /n /i:user
expect "nada queda tras quitar el registro del usuario" does_not_mention
expect "el registro quedó como estaba" test "$before" = "$(entries | sort)"

echo "FIN: $checks comprobaciones, $failures fallas"
