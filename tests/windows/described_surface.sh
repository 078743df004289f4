#!/bin/bash
# described_surface.sh DESCRIBE: automation/described is what DESCRIBE writes today
#
# Exit code 77: the test bed cannot run its bitness.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
project=$(dirname "$(dirname "$here")")
describe=$1
build=$(dirname "$(dirname "$describe")")
fresh=$build/described
status=0

"$here/run_in_testbed.sh" require 64
rm -rf "$fresh"
mkdir "$fresh"
cd "$fresh"
"$here/run_in_testbed.sh" 64 60 "$describe" .
diff -ru --exclude=.clang-format "$project/automation/described" . || status=1
[ "$status" = 0 ] || {
    echo "automation/described no es lo que dice la superficie pública; hágalo de nuevo:" >&2
    echo "    cmake --build ${build#"$project"/} --target describe_surface" >&2
}
exit "$status"
