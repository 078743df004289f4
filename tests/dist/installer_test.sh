#!/bin/bash
# installer_test.sh: the installer and the zip of build/dist on a Windows that has neither, in the test bed.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../windows/checks.sh"
. "$here/../../setup/common.sh"
runner=$project/tests/windows/run_in_testbed.sh
work=$project/build/dist_windows

"$runner" require 64
"$runner" require 32 # the installer is a program of 32 bits
install_packages unzip
rm -rf "$work"
mkdir -p "$work/herramientas"
cp "$project"/build/windows/x86_64-w64-mingw32/bin/openssl.exe "$work/herramientas/"
cp "$project"/build/dist/tolvex-*-setup.exe "$work/setup.exe"
unzip -q "$project"/build/dist/tolvex-*-windows.zip -d "$work/zip"
cd "$work"
exec "$runner" session 400 "$here/run_installer.sh" "$work"
