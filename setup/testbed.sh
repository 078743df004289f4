#!/bin/bash
# Makes build/testbed, in which Wine runs Windows programs of 64 and 32 bits, with a virtual display and ODBC.
# tests/windows/run_in_testbed.sh runs programs in it. There are two kinds:
#
#   a Debian of its own   wherever namespaces can be made. It stands apart from the system, so that the packages of a
#                         second architecture never have to agree with what is installed there.
#   this system           elsewhere (a plain container): Wine is installed on the system, its state lies in
#                         build/testbed. 32 bits are left out where the system cannot take their packages.
. "$(dirname "$0")/common.sh"

[ "$(id -u)" = 0 ] || exec sudo "$0" "$@"

testbed=$build/testbed
packages_64=(wine wine64 libodbc2 libsqliteodbc tdsodbc libcups2 cups-daemon cups-client ghostscript
    xvfb xdotool openbox x11-utils imagemagick fonts-liberation locales)
packages_32=(wine32:i386 libodbc2:i386 libsqliteodbc:i386 tdsodbc:i386 libcups2:i386)

remove_testbed() { remove_debian "$testbed"; }

# --- a Debian of its own ---------------------------------------------------------------------------------------------

install_debian() {
    local architectures=$1 packages
    shift
    printf -v packages '%s,' "$@"
    make_debian "$testbed" --variant=essential --architectures="$architectures" --include="${packages%,}" \
        --dpkgopt='path-exclude=/usr/share/doc/*' --dpkgopt='path-exclude=/usr/share/man/*' \
        --customize-hook='chroot "$1" localedef -i es_MX -f UTF-8 es_MX.UTF-8' \
        --customize-hook='echo 127.0.0.1 localhost caja > "$1/etc/hosts"'
}

make_own_debian() {
    say "creando el banco de pruebas, un Debian propio con Wine"
    install_debian amd64,i386 "${packages_64[@]}" "${packages_32[@]}" || install_debian amd64 "${packages_64[@]}"
}

# --- this system -----------------------------------------------------------------------------------------------------

knows_32_bits() { dpkg --print-foreign-architectures | grep -qx i386; }

# The system stays as it was where its suites do not agree on the versions of both architectures.
install_32_bits() {
    local added=
    knows_32_bits || { dpkg --add-architecture i386 && added=yes; }
    (install_packages "${packages_32[@]}") || [ -z "$added" ] || dpkg --remove-architecture i386
}

use_this_system() {
    say "este sistema no deja crear espacios de nombres: el banco de pruebas usa un Wine instalado en él"
    install_packages "${packages_64[@]}"
    install_32_bits
    remove_testbed
    mkdir -p "$testbed/home" "$testbed/locales"
    localedef -i es_MX -f UTF-8 "$testbed/locales/es_MX.UTF-8"
    touch "$testbed/on-this-system"
}

# --- both ------------------------------------------------------------------------------------------------------------

run() { (cd "$project" && tests/windows/run_in_testbed.sh "$@"); }

# The first program that runs makes the prefix. A crash must end its program, not wait in a window.
make_prefix() {
    mkdir "$testbed/prefix"
    touch "$testbed/runs-64" "$testbed/runs-32"
    run 64 300 reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f > /dev/null
}

# The exit code shows that the program itself ran, not only that Wine started.
check_bitness() {
    local status=0
    run "$1" 60 cmd /c exit 64 || status=$?
    [ "$status" = 64 ] || rm "$testbed/runs-$1"
}

make_testbed() {
    "$1"
    make_prefix
    check_bitness 64
    check_bitness 32
    [ -e "$testbed/runs-64" ] || { remove_testbed && die "Wine de 64 bits no funciona en el banco de pruebas"; }
}

kind=use_this_system
! can_make_namespaces || kind=make_own_debian
recipe="$kind $(cat "$0" "$project/setup/common.sh" | sha256sum)"
if [ "$(cat "$testbed/recipe" 2> /dev/null)" != "$recipe" ]; then
    make_testbed "$kind"
    echo "$recipe" > "$testbed/recipe"
fi
run lacks
