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

can_make_namespaces || { echo "NO SE PROBÓ: este sistema no deja crear espacios de nombres" && exit 77; }

# With apt and nothing else; the package brings what it needs.
make_bare_debian() {
    make_debian "$root" --variant=apt --customize-hook="copy-in $(echo "$dist"/tolvex_*.deb) /" \
        --customize-hook='chroot "$1" sh -c "apt-get -qq install -y /tolvex_*.deb > /dev/null && rm /tolvex_*.deb"'
}

inside() { LC_ALL=C.UTF-8 unshare --mount --pid --fork chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 "$@"; }

# issues TOLVEX FOLDER: the demonstration, one more document, and all of them verified.
issues() {
    inside "$1" demo --carpeta "$2" | grep 'Verified OK' > /dev/null &&
        inside "$1" emite "$2/factura.txt" --bd "$2/tolvex.db" 2> /dev/null | grep -q 'A4' &&
        inside "$1" verifica --bd "$2/tolvex.db" | grep -q 'no está bien: 0'
}

make_bare_debian
expect "el paquete emite" issues tolvex /demo
expect "la biblioteca se encuentra" eval 'inside ldconfig -p | grep -q libtolvex.so.1'
expect "manual, completado, diseños y guiones" inside ls /usr/share/man/es/man1/tolvex.1.gz \
    /usr/share/bash-completion/completions/tolvex /usr/share/tolvex/layouts/factura.rdl /usr/share/tolvex/schema/sql_server/tables.sql > /dev/null
expect "el paquete se quita" inside dpkg --purge tolvex > /dev/null
expect "y no deja nada" [ -z "$(find "$root/usr" "$root/etc" "$root/var/lib" -iname '*tolvex*')" ]

mkdir "$root/opt/tolvex"
tar -xzf "$dist"/tolvex-*-linux-*.tar.gz -C "$root/opt/tolvex" --strip-components=1
expect "lo desempacado emite" issues /opt/tolvex/bin/tolvex /demo2
remove_debian "$root"
end_of_checks
