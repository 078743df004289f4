#!/bin/bash
# Makes build/testbed: a Debian of its own in which Wine runs Windows programs of 64 and 32 bits, with a virtual
# display and ODBC. It stands apart from the system, so that the packages of a second architecture never have to
# agree with what is installed there. tests/windows/run_in_testbed.sh runs programs in it.
. "$(dirname "$0")/common.sh"

[ "$(id -u)" = 0 ] || exec sudo "$0" "$@"

testbed=$build/testbed
new=$testbed.new
settings=$build/testbed-apt.conf
packages_64=wine,wine64,unixodbc,libsqliteodbc,tdsodbc,xvfb,xdotool,openbox,x11-utils,imagemagick,fonts-liberation,locales
packages_32=wine32:i386,libodbc2:i386,libsqliteodbc:i386,tdsodbc:i386

require_namespaces() {
    unshare --mount --pid --uts --fork true ||
        die "este sistema no deja crear espacios de nombres (unshare); un contenedor necesita --privileged"
}

# Proxies and certificates that this system's apt is set up with hold for the test bed too.
copy_apt_settings() { apt-config dump | grep -E '^Acquire::(https?|Retries|Check-)' > "$settings" || true; }

install_debian() {
    local architectures=$1 packages=$2
    rm -rf "$new"
    debian_archive deb | mmdebstrap --quiet --mode=root --variant=essential --architectures="$architectures" \
        --include="$packages" --aptopt="$settings" --aptopt='APT::Sandbox::User "root"' \
        --aptopt='APT::Install-Recommends "false"' --dpkgopt=force-unsafe-io \
        --dpkgopt='path-exclude=/usr/share/doc/*' --dpkgopt='path-exclude=/usr/share/man/*' \
        --customize-hook='chroot "$1" localedef -i es_MX -f UTF-8 es_MX.UTF-8' \
        --customize-hook='echo 127.0.0.1 localhost caja > "$1/etc/hosts"' \
        "$(debian_codename)" "$new" -
}

run_new() { (cd "$project" && TOLVEX_TESTBED=$new tests/windows/run_in_testbed.sh "$@"); }

# The first program that runs makes the prefix. A crash must end its program, not wait in a window.
make_prefix() {
    mkdir "$new/prefix"
    touch "$new/runs-64" "$new/runs-32"
    run_new 64 300 reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f > /dev/null
}

# The exit code shows that the program itself ran, not only that Wine started.
check_bitness() {
    local status=0
    run_new "$1" 60 cmd /c exit 64 || status=$?
    [ "$status" = 64 ] || rm "$new/runs-$1"
}

warn_without_32() {
    [ ! -e "$1/runs-32" ] || return 0
    say "ATENCIÓN: EL BANCO DE PRUEBAS NO TIENE WINE DE 32 BITS; LAS PRUEBAS DE 32 BITS NO SE PODRÁN EJECUTAR"
}

make_testbed() {
    say "creando el banco de pruebas con Wine"
    copy_apt_settings
    install_debian amd64,i386 "$packages_64,$packages_32" || install_debian amd64 "$packages_64"
    make_prefix
    check_bitness 64
    check_bitness 32
    [ -e "$new/runs-64" ] || die "Wine de 64 bits no funciona en el banco de pruebas"
}

recipe=$(sha256sum "$0" | cut -d ' ' -f 1)
if [ "$(cat "$testbed/recipe" 2> /dev/null)" != "$recipe" ]; then
    require_namespaces
    install_packages mmdebstrap
    make_testbed
    echo "$recipe" > "$new/recipe"
    rm -rf "$testbed"
    mv "$new" "$testbed"
fi
warn_without_32 "$testbed"
