#!/bin/bash
# described_surface.sh 64|32 DESCRIBE FILE…    these files of automation/described are what DESCRIBE writes today
#
# Exit code 77: the test bed cannot run that bitness, which the files' making needs.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
project=$(dirname "$(dirname "$here")")
bits=$1 describe=$2
shift 2
build=$(dirname "$(dirname "$describe")")
fresh=$build/described
status=0

"$here/run_in_testbed.sh" require "$bits"
rm -rf "$fresh"
mkdir "$fresh"
cd "$fresh"
"$here/run_in_testbed.sh" 64 60 "$describe" .
for file; do diff -u "$project/automation/described/$file" "$file" || status=1; done
[ "$status" = 0 ] || {
    echo "automation/described no es lo que dice la superficie pública; hágalo de nuevo:" >&2
    echo "    cmake --build ${build#"$project"/} --target describe_surface" >&2
}
exit "$status"
