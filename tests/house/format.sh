#!/bin/sh
# Every source is laid out as .clang-format says. The formatter leaves comments alone; they too end at its column.
cd "$(dirname "$0")/../.." || exit
sources=$(tests/house/sources.sh)
columns=$(sed -n 's/^ColumnLimit: *//p' .clang-format)

clang-format-14 --dry-run -Werror --ferror-limit=1 $sources || { echo "'make format' lays the sources out." && exit 1; }
! LC_ALL=C.UTF-8 grep -nE "^.{$columns}." $sources | grep //
