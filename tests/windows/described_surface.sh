#!/bin/bash
# described_surface.sh DESCRIBE    automation/described is what DESCRIBE (automation/describe) writes today
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
project=$(dirname "$(dirname "$here")")
build=$(dirname "$(dirname "$1")")
fresh=$build/described

rm -rf "$fresh"
mkdir "$fresh"
cd "$fresh"
"$here/run_in_testbed.sh" 64 60 "$1" .
diff -ru --exclude=.clang-format "$project/automation/described" "$fresh" || {
    echo "automation/described no es lo que dice la superficie pública; hágalo de nuevo:" >&2
    echo "    cmake --build ${build#"$project"/} --target describe_surface" >&2
    exit 1
}
