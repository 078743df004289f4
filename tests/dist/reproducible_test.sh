#!/bin/bash
# reproducible_test.sh: packing the same programs again gives the same bytes, and the sums beside them are right.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../windows/checks.sh"
project=$(cd "$here/../.." && pwd)
dist=$project/build/dist
cd "$dist"

expect "las sumas" sha256sum --check --quiet SHA256SUMS
expect "cada archivo tiene la suya" [ "$(wc -l < SHA256SUMS)" = "$(ls | grep -vc SHA256SUMS)" ]
first=$(cat SHA256SUMS)
cd "$project" # make.sh makes the folder anew
dist/make.sh > /dev/null
cd "$dist"
expect "los mismos bytes" diff <(echo "$first") SHA256SUMS
expect "la lista de lo enlazado nombra versiones" [ "$(grep -c '"versionInfo": "[0-9]' tolvex-*.spdx.json)" = 13 ]
end_of_checks
