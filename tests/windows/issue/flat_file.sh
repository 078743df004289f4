#!/bin/bash
# flat_file.sh 64|32 COMPONENT SQL OPENSSL KEYS: issues documents.txt in TOLVEX_TEST_FOLDER and leaves beside that folder
# what it looked like before, as FOLDER.before.
set -euo pipefail

. "$(dirname "$0")/folder.sh"
cp "$here/documents.txt" "$folder/"
cp -r "$folder" "$folder.before"
script "$here/flat_file.vbs" "$(windows_path "$folder")"
