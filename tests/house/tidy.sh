#!/bin/sh
# clang-tidy with the checks of .clang-tidy over the product code, as the dev preset compiles it.
cd "$(dirname "$0")/../.." || exit
# The warnings of gcc are not those of clang, which would take an option that it does not know for an error.
cmake --preset dev -DTOLVEX_WARNINGS_AS_ERRORS=OFF > /dev/null || exit

found=$(tests/house/sources.sh | grep '[.]cpp$' | grep -vE '^(tests|bench|trials|examples|automation|platform/windows|developer_console/windows)/' |
    xargs -n 4 -P "$(nproc)" clang-tidy-14 -p build/dev --quiet 2>&1) && exit
echo "$found" | grep -v ' warnings* generated\.$'
exit 1
