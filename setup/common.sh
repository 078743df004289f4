# Shared by the set-up scripts, which source it. Each of them can be run again at any time and then does only what
# is missing.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$project/build
mkdir -p "$build"
apt_options=(-qq -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3)

say() { echo "== $*" >&2; }

die() {
    echo "ERROR: $*" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# Of several architectures any will do; a name may say which (wine32:i386).
is_installed() { dpkg-query -W -f '${db:Status-Status}\n' "$1" 2> /dev/null | grep -qx installed; }

# Set-up scripts may run side by side; apt waits for dpkg's lock, but not for that of its own lists.
one_at_a_time() { (flock 9 && "$@") 9< "$build"; }

update_package_lists() { as_root apt-get "${apt_options[@]}" update; }

update_and_install() {
    update_package_lists
    as_root env DEBIAN_FRONTEND=noninteractive apt-get "${apt_options[@]}" install -y --no-remove \
        --no-install-recommends "$@" > /dev/null
}

# Installs the Debian packages that are not there yet.
install_packages() {
    local package missing=()
    for package; do is_installed "$package" || missing+=("$package"); done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "instalando: ${missing[*]}"
    one_at_a_time update_and_install "${missing[@]}"
}

debian_codename() { (. /etc/os-release && echo "$VERSION_CODENAME"); }

# The line for a sources list that names the Debian archive of this system: "deb" or "deb-src". Only the release
# itself: the security suite is often incomplete on mirrors (sources, other architectures).
debian_archive() {
    local codename address
    codename=$(debian_codename)
    address=$(list_archives "$codename")
    [ -n "$address" ] || { one_at_a_time update_package_lists && address=$(list_archives "$codename"); }
    [ -n "$address" ] || die "los orígenes de apt de este sistema no incluyen Debian $codename main"
    echo "$1 [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] ${address%%$'\n'*} $codename main"
}

list_archives() {
    apt-get indextargets --format '$(REPO_URI)' \
        'Created-By: Packages' 'Origin: Debian' "Codename: $1" 'Component: main'
}

# --- a Debian in a folder ----------------------------------------------------------------------------------------------

can_make_namespaces() {
    unshare --mount --pid --uts --fork sh -c 'hostname caja && mount -t tmpfs tmpfs /mnt' 2> /dev/null
}

# Never into what may be mounted there.
remove_debian() { rm -rf --one-file-system "$1"; }

# FOLDER [OPTION]…: this Debian's release, as those options of mmdebstrap say. Proxies and certificates that this system's
# apt is set up with hold for it too; it is made in namespaces, so that no mount stays in the folder whatever ends it.
make_debian() {
    local folder=$1 settings=$build/debian-apt.conf
    install_packages mmdebstrap
    apt-config dump | grep -E '^Acquire::(https?|Retries|Check-)' > "$settings" || true
    remove_debian "$folder"
    debian_archive deb | unshare --mount --pid --fork --kill-child mmdebstrap --quiet --mode=root \
        --aptopt="$settings" --aptopt='APT::Sandbox::User "root"' --aptopt='APT::Install-Recommends "false"' \
        --dpkgopt=force-unsafe-io "${@:2}" "$(debian_codename)" "$folder" -
}
