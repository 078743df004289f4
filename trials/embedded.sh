# What trials on the embedded database in $database start from and ask it, to be sourced.
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$project/setup/common.sh"
. "$project/tests/windows/checks.sh"
install_packages sqlite3

ask() { sqlite3 -batch -cmd '.timeout 15000' "$database" "$1"; }
is_sound() { [ "$(ask 'pragma integrity_check')" = ok ]; }
