#!/bin/bash
# debian_test.sh: the package and the tar file of build/dist on a bare Debian.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
project=$(cd "$here/../.." && pwd)
[ "$(id -u)" = 0 ] || exec sudo "$0" "$@"
. "$here/../windows/checks.sh"
. "$project/setup/common.sh"
root=$build/dist_debian
dist=$build/dist

unshare --mount --pid --fork true 2> /dev/null ||
    { echo "NO SE PROBÓ: este sistema no deja crear espacios de nombres" && exit 77; }

# A Debian with apt and nothing else; the package brings what it needs.
make_debian() {
    install_packages mmdebstrap
    apt-config dump | grep -E '^Acquire::(https?|Retries|Check-)' > "$build/dist-apt.conf" || true
    rm -rf --one-file-system "$root"
    debian_archive deb | unshare --mount --pid --fork --kill-child mmdebstrap --quiet --mode=root --variant=apt \
        --aptopt="$build/dist-apt.conf" --aptopt='APT::Sandbox::User "root"' --aptopt='APT::Install-Recommends "false"' \
        --dpkgopt=force-unsafe-io --customize-hook="copy-in $(echo "$dist"/tolvex_*.deb) /tmp" \
        --customize-hook='chroot "$1" sh -c "find / -xdev | sort > /tmp/before; apt-get -qq install -y /tmp/tolvex_*.deb > /tmp/apt.log 2>&1"' \
        "$(debian_codename)" "$root" -
}

inside() { LC_ALL=C.UTF-8 unshare --mount --pid --fork chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 "$@"; }

# issues TOLVEX FOLDER: the demonstration, one more document, and all of them verified.
issues() {
    inside "$1" demo --carpeta "$2" > "$root/tmp/demo.txt" && grep -q 'Verified OK' "$root/tmp/demo.txt" &&
        inside "$1" emite "$2/factura.txt" --bd "$2/tolvex.db" 2> /dev/null | grep -q 'A4' &&
        inside "$1" verifica --bd "$2/tolvex.db" | grep -q 'no está bien: 0'
}

make_debian
expect "el paquete emite" issues tolvex /demo
expect "la biblioteca se encuentra" eval 'inside ldconfig -p | grep -q libtolvex.so.1'
expect "manual, completado, diseños y guiones" inside ls /usr/share/man/es/man1/tolvex.1.gz \
    /usr/share/bash-completion/completions/tolvex /usr/share/tolvex/layouts/factura.rdl /usr/share/tolvex/schema/sql_server/tables.sql > /dev/null
expect "el paquete se quita" inside dpkg --purge tolvex > /dev/null
expect "y no deja nada" [ -z "$(find "$root/usr" "$root/etc" "$root/var/lib" -iname '*tolvex*')" ]

mkdir "$root/opt/tolvex"
tar -xzf "$dist"/tolvex-*-linux-*.tar.gz -C "$root/opt/tolvex" --strip-components=1
expect "lo desempacado emite" issues /opt/tolvex/bin/tolvex /demo2
rm -rf --one-file-system "$root"
end_of_checks
