#!/bin/bash
# same_documents.sh NATIVE 64|32 COMPONENT SQL OPENSSL KEYS: from the same file and the same database both editions write
# the same bytes, seals included. NATIVE is the native edition's command.
set -euo pipefail

native=$1
shift
here=$(dirname "$(readlink -f "$0")")
[ -x "$native" ] || { echo "NO SE PROBÓ: falta la edición nativa ($native)" >&2 && exit 77; }
export TOLVEX_TEST_FOLDER=$(dirname "$2")/same_documents
rm -rf "$TOLVEX_TEST_FOLDER"*

"$here/../run_test.sh" "$1" "$2" "$here/flat_file.sh" "${@:3}"
cd "$TOLVEX_TEST_FOLDER.before"
"$native" emite documents.txt --bd facturas.db
diff -r "$TOLVEX_TEST_FOLDER/Facturas" Facturas
