#!/bin/bash
# sbom.sh VERSION: which libraries of others are linked into each program, as SPDX 2.3. What a program finds on the
# system (Debian's libraries, Windows' own) is not listed.
. "$(dirname "$0")/../setup/common.sh"

version=$1
created=$(date -u -d "@$SOURCE_DATE_EPOCH" +%Y-%m-%dT%H:%M:%SZ)

installed_version() { dpkg-query -W -f '${Version}' "$1"; }
# HEADER NAME…: the values of constants in a header of those that setup/windows.sh built, with points between them.
header_version() {
    local name values=()
    for name in "${@:2}"; do
        values+=("$(sed -nE "s/^#define +$name +\"?([0-9.]+).*/\1/p" "$build/windows/x86_64-w64-mingw32/include/$1")")
    done
    (IFS=. && echo "${values[*]}")
}

packages=()
relations=()
# NAME VERSION LICENCE PURPOSE
package() {
    packages+=("$(printf '{"SPDXID": "SPDXRef-%s", "name": "%s", "versionInfo": "%s", "licenseConcluded": "%s", "licenseDeclared": "%s", "downloadLocation": "NOASSERTION", "copyrightText": "NOASSERTION", "filesAnalyzed": false, "comment": "%s"}' \
        "$1" "$1" "$2" "$3" "$3" "$4")")
}
# PROGRAM LIBRARY…
links() {
    local library
    for library in "${@:2}"; do
        relations+=("$(printf '{"spdxElementId": "SPDXRef-%s", "relationshipType": "STATIC_LINK", "relatedSpdxElement": "SPDXRef-%s"}' "$1" "$library")")
    done
}
joined() { local first=$1 && shift && printf '%s' "    $first" && printf ',\n    %s' "$@"; }

package TOLVEX.dll "$version" MIT "automation component, 64 and 32 bits"
package tolvex.exe "$version" MIT "command of the Windows edition"
package TolvexConsola.exe "$version" MIT "developer console"
package tolvex "$version" MIT "command and library of the native edition"
package sqlite3 "$(header_version sqlite3.h SQLITE_VERSION)" blessing "embedded database"
package expat "$(header_version expat.h XML_MAJOR_VERSION XML_MINOR_VERSION XML_MICRO_VERSION)" MIT "XML of report layouts and stored documents"
package libharu "$(header_version hpdf_version.h HPDF_VERSION_TEXT)" Zlib "PDF files"
package zlib "$(installed_version libz-mingw-w64-dev)" Zlib "compression in PDF files"
package mingw-w64 "$(installed_version mingw-w64-common)" ZPL-2.1 "run-time library of the compiler"
package gcc "$(installed_version g++-mingw-w64-x86-64-posix)" "GPL-3.0-or-later WITH GCC-exception-3.1" "run-time libraries of the compiler"
package CLI11 "$(installed_version libcli11-dev)" BSD-3-Clause "command line"
package fmt "$(installed_version libfmt-dev)" MIT "texts of the command"
package tomlplusplus "$(installed_version libtomlplusplus-dev)" MIT "files of master data"
links TOLVEX.dll sqlite3 expat libharu zlib mingw-w64 gcc
links tolvex.exe sqlite3 expat libharu zlib mingw-w64 gcc CLI11 fmt tomlplusplus
links TolvexConsola.exe mingw-w64 gcc
links tolvex CLI11

cat << END
{
  "spdxVersion": "SPDX-2.3",
  "dataLicense": "CC0-1.0",
  "SPDXID": "SPDXRef-DOCUMENT",
  "name": "tolvex-$version",
  "documentNamespace": "urn:tolvex:$version:$SOURCE_DATE_EPOCH",
  "creationInfo": {"created": "$created", "creators": ["Tool: dist/sbom.sh"]},
  "documentDescribes": ["SPDXRef-TOLVEX.dll", "SPDXRef-tolvex.exe", "SPDXRef-TolvexConsola.exe", "SPDXRef-tolvex"],
  "packages": [
$(joined "${packages[@]}")
  ],
  "relationships": [
$(joined "${relations[@]}")
  ]
}
END
