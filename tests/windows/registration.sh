#!/bin/bash
# registration.sh 64|32 COMPONENT OTHER: registering and unregistering, for the machine and for the user, leaves the
# registry as it was, and beside the component of the other bitness (OTHER) neither takes away what both need; nor does
# a copy take away what a copy in another folder registered after it.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/checks.sh"
bits=$1 component=$2 other=$3 other_bits=$((96 - $1))
runner=$here/run_in_testbed.sh
exported=$(mktemp)
folders=$(mktemp -d)
trap 'rm -rf "$exported" "$folders"' EXIT

# regsvr32 64|32 COMPONENT [OPTION]…
regsvr32() { "$runner" "$1" 60 "$(system_folder "$1")\\regsvr32.exe" /s "${@:3}" "$(windows_path "$2")"; }

# look ROOT…: keys and values of the classes in those parts of the registry.
look() {
    local root
    registry=$(for root in "$@"; do
        rm -f "$exported"
        "$runner" 64 60 'C:\windows\system32\reg.exe' export "$root\\Software\\Classes" "$(windows_path "$exported")" \
            > /dev/null 2>&1 || true # a user may have no classes yet
        [ ! -e "$exported" ] || iconv -f UTF-16 -t UTF-8 "$exported" | tr -d '\r'
    done)
}

# Can a host of that bitness make an object?
makes_objects() {
    echo 'Set made = CreateObject("TOLVEX.Cliente"): WScript.Echo "hecho"' > "$folders/host.vbs"
    "$runner" "$bits" 60 "$(system_folder "$bits")\\cscript.exe" //nologo "$(windows_path "$folders/host.vbs")" 2>&1 |
        grep -q hecho
}
makes_no_objects() { ! makes_objects; }

has() { LC_ALL=C grep -qiE "$1" <<< "$registry"; }
has_no() { ! has "$1"; }
is_as_before() { diff <(LC_ALL=C sort <<< "$before") <(LC_ALL=C sort <<< "$registry"); }

# The parents CLSID, Interface and TypeLib come with a user's first registration and belong to the system; the test
# bed's script host registers itself when it first runs.
makes_no_objects
regsvr32 "$bits" "$component" /n /i:user
regsvr32 "$bits" "$component" /u /n /i:user
look HKLM HKCU
expect "nada registrado al empezar" has_no 'tolvex|5aa356af-ac30-496a-9d50-5c5336279fca'
before=$registry

regsvr32 "$bits" "$component"
look HKLM
expect "identificador para la máquina" has '^\[HKEY_LOCAL_MACHINE.*\\TOLVEX\.GeneraDocto\\CLSID'
expect "modelo de apartamento" has '"ThreadingModel"="Apartment"'
expect "biblioteca de tipos" has "^\[HKEY_LOCAL_MACHINE.*\\\\TypeLib\\\\.5AA356AF.*\\\\win$bits"
regsvr32 "$bits" "$component" /u

regsvr32 "$bits" "$component" /n /i:user
look HKLM HKCU
expect "identificador para el usuario" has '^\[HKEY_CURRENT_USER.*\\TOLVEX\.GeneraDocto\\CLSID'
expect "nada en la máquina" has_no '^\[HKEY_LOCAL_MACHINE.*(tolvex|5aa356af)'
regsvr32 "$bits" "$component" /u /n /i:user

# A copy in another folder is registered after the first, for the machine and for the user.
mkdir "$folders/vieja" "$folders/Carpeta nueva"
old=$folders/vieja/TOLVEX.dll new="$folders/Carpeta nueva/TOLVEX.dll"
cp "$component" "$old"
cp "$component" "$new"
for scope in "" user; do
    options=(${scope:+/n /i:user})
    regsvr32 "$bits" "$old" "${options[@]}"
    regsvr32 "$bits" "${new^^}" "${options[@]}"
    regsvr32 "$bits" "$old" /u "${options[@]}"
    # The test bed's system looks for the machine's classes only.
    [ -n "$scope" ] || expect "la copia nueva crea objetos aunque se quite la vieja" makes_objects
    look HKLM HKCU
    expect "las seis clases son las de la copia nueva ($scope)" \
        [ "$(grep -A 1 'InprocServer32\]' <<< "$registry" | grep -ci 'carpeta nueva')" = 6 ]
    expect "la biblioteca de tipos sigue registrada ($scope)" has "5AA356AF.*\\\\1\.0\\\\0\\\\win$bits"
    expect "de la copia vieja no queda nada ($scope)" has_no 'vieja'
    regsvr32 "$bits" "$new" /u "${options[@]}"
    expect "sin copias no hay objetos ($scope)" makes_no_objects
    look HKLM HKCU
    expect "sin copias el registro quedó como estaba ($scope)" is_as_before
done

if [ -e "$other" ] && "$runner" has "$other_bits"; then
    regsvr32 "$bits" "$component"
    regsvr32 "$other_bits" "$other"
    regsvr32 "$bits" "$component" /u
    look HKLM
    expect "la otra edición conserva el identificador" has '\\TOLVEX\.GeneraDocto\\CLSID'
    expect "la otra edición conserva la biblioteca de tipos" has "\\\\win$other_bits"
    expect "la propia biblioteca de tipos se fue" has_no "5AA356AF.*\\\\win$bits"
    regsvr32 "$other_bits" "$other" /u
fi

look HKLM HKCU
expect "el registro quedó como estaba" is_as_before
end_of_checks
