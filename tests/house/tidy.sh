#!/bin/sh
# clang-tidy with the checks of .clang-tidy over the product code, as the dev preset compiles it.
cd "$(dirname "$0")/../.." || exit
cmake --preset dev > /dev/null || exit

found=$(tests/house/sources.sh | grep '[.]cpp$' | grep -vE '^(tests|bench|examples|automation|platform/windows)/' |
    xargs -n 4 -P "$(nproc)" clang-tidy-14 -p build/dev --quiet 2>&1) && exit
echo "$found" | grep -v ' warnings* generated\.$'
exit 1
