#!/bin/bash
# make.sh: what a customer gets, into build/dist. make dist builds both editions first.
#
#   tolvex-VERSION-setup.exe         the Windows edition, with an installer
#   tolvex-VERSION-windows.zip       the same, with instalar.cmd
#   tolvex_VERSION_ARCH.deb          the native edition as a Debian package
#   tolvex-VERSION-linux-ARCH.tar.gz the same, to be unpacked anywhere
#   tolvex-VERSION.spdx.json         which libraries of others are linked into each
#   SHA256SUMS                       sums of them all
#
# The same sources give the same bytes: all moments are that of the last commit, or of the environment's
# SOURCE_DATE_EPOCH; without either, of the list of changes.
. "$(dirname "$0")/../setup/common.sh"

out=$build/dist
stage=$out/stage
version=$(sed -n 's/^project(tolvex VERSION \([0-9.]*\) .*/\1/p' "$project/CMakeLists.txt")
moment_of_sources() { git -C "$project" log -1 --format=%ct 2> /dev/null || stat -c %Y "$project/CHANGELOG.md"; }
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(moment_of_sources)}
export TZ=UTC LC_ALL=C.UTF-8
umask 022

# --- the Windows edition ---------------------------------------------------------------------------------------------

# As Windows programs read them: line ends, and letters in the code page of those who know no other.
for_windows() { iconv -f UTF-8 -t "$1" "$2" | sed 's/\r*$/\r/' > "$3"; }
# UTF-8 for those who need its mark to know it.
marked_for_windows() { { printf '\xef\xbb\xbf' && sed 's/\r*$/\r/' "$1"; } > "$2"; }

stage_programs() {
    local bits built folder
    for bits in 64:x86_64 32:i686; do
        built=$build/windows/${bits#*:} folder=$tree/bin${bits%:*}
        mkdir -p "$folder"
        cp "$built"/automation/{TOLVEX.dll,TOLVEX.hpp,TOLVEX.Automation.manifest} "$folder"
        cp "$built"/{tolvex,TolvexConsola}.exe "$folder"
    done
}

stage_examples() {
    local file target
    cd "$project/examples"
    find . -type f ! -path './nativo/*' | while read -r file; do
        target=$tree/examples/$file
        mkdir -p "$(dirname "$target")"
        case $file in
            *.cmd) for_windows CP850 "$file" "$target" ;;
            *.vbs | *.js | *.bas) for_windows CP1252 "$file" "$target" ;;
            *.ps1) marked_for_windows "$file" "$target" ;;
            *) for_windows UTF-8 "$file" "$target" ;;
        esac
    done
}

stage_texts() {
    local file
    mkdir -p "$tree"/{layouts,schema,docs/imagenes}
    cp "$project"/printing/layouts/*.rdl "$tree/layouts/"
    cp "$project"/schema/{*.sql,sql_server/*.sql} "$tree/schema/"
    for file in "$project"/docs/*.md; do for_windows UTF-8 "$file" "$tree/docs/${file##*/}"; done
    cp "$project"/docs/imagenes/*.png "$tree/docs/imagenes/"
    for_windows UTF-8 "$project/LICENSE" "$tree/LICENSE.txt"
    marked_for_windows "$project/dist/windows/LEEME.txt" "$tree/LEEME.txt"
}

stage_windows() {
    tree=$stage/windows/tolvex-$version
    mkdir -p "$tree"
    stage_programs
    stage_examples
    stage_texts
    cp "$out/tolvex-$version.spdx.json" "$tree/docs/"
}

# The installer's macros: every file by name, so that the uninstaller removes those and no others.
installer_macro() { # NAME FILE…
    echo "!macro $1"
    local file
    for file in "${@:2}"; do
        [ "$(dirname "$file")" = . ] && echo '    SetOutPath "$INSTDIR"' ||
            echo "    SetOutPath \"\$INSTDIR\\$(dirname "$file" | tr / '\\')\""
        echo "    File \"$tree/$file\""
    done
    echo '!macroend'
}

installer_files() {
    cd "$tree"
    local files folders
    mapfile -t files < <(find . -type f -printf '%P\n' | sort)
    mapfile -t folders < <(find . -mindepth 1 -type d -printf '%P\n' | sort -r)
    installer_macro InstallCommon $(printf '%s\n' "${files[@]}" | grep -v '^bin')
    installer_macro Install64 $(printf '%s\n' "${files[@]}" | grep '^bin64')
    installer_macro Install32 $(printf '%s\n' "${files[@]}" | grep '^bin32')
    echo '!macro DeleteAll'
    printf '    Delete "$INSTDIR\\%s"\n' "${files[@]//\//\\}"
    printf '    RMDir "$INSTDIR\\%s"\n' "${folders[@]//\//\\}"
    echo '!macroend'
}

make_setup() {
    installer_files > "$stage/files.nsh"
    makensis -V2 -NOCD -INPUTCHARSET UTF8 -DVERSION="$version" -DOUT="$out/tolvex-$version-setup.exe" \
        -DFILES="$stage/files.nsh" -DLICENSE="$tree/LICENSE.txt" "$project/dist/windows/TOLVEX.nsi"
}

# Those who unpack it register it themselves.
make_zip() {
    local script
    for script in instalar desinstalar registrar; do
        for_windows CP850 "$project/dist/windows/$script.cmd" "$tree/$script.cmd"
    done
    set_moments "$stage/windows"
    cd "$stage/windows"
    find "tolvex-$version" -type f | sort | zip -X -q -9 "$out/tolvex-$version-windows.zip" -@
}

# --- the native edition ----------------------------------------------------------------------------------------------

stage_native() {
    native=$stage/native
    cmake --install "$build" --prefix "$native/usr" --strip > /dev/null
    mkdir -p "$native/usr/share/doc/tolvex"
    cp -r "$project"/{docs,README.md,LICENSE} "$native/usr/share/doc/tolvex/"
    cp -r "$project/examples/nativo" "$native/usr/share/doc/tolvex/ejemplo"
    cp "$out/tolvex-$version.spdx.json" "$native/usr/share/doc/tolvex/"
}

make_tar() {
    local name=tolvex-$version-linux-$(uname -m)
    tar --create --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner \
        --transform="s,^usr,$name," -C "$native" usr | gzip -9n > "$out/$name.tar.gz"
}

# What the programs need, by the names and versions of this Debian's packages.
library_packages() {
    local work=$stage/shlibdeps
    mkdir -p "$work/debian"
    printf 'Source: tolvex\n\nPackage: tolvex\nArchitecture: any\n' > "$work/debian/control"
    cd "$work"
    dpkg-shlibdeps -O -S"$native" -l"$native/usr/lib" "$native/usr/bin/tolvex" "$native"/usr/lib/libtolvex.so.*.*.* 2> /dev/null |
        sed 's/^shlibs:Depends=//'
}

make_deb() {
    local architecture=$(dpkg --print-architecture) documents=$native/usr/share/doc/tolvex
    mkdir -p "$native/DEBIAN"
    sed -e "s/@version@/$version/" -e "s/@architecture@/$architecture/" -e "s/@libraries@/$(library_packages)/" \
        -e "s/@size@/$(du -sk --apparent-size "$native/usr" | cut -f 1)/" \
        "$project/dist/debian/control.in" > "$native/DEBIAN/control"
    echo 'activate-noawait ldconfig' > "$native/DEBIAN/triggers"
    mv "$documents/LICENSE" "$documents/copyright"
    gzip -9n < "$project/CHANGELOG.md" > "$documents/changelog.gz"
    gzip -9n "$native"/usr/share/man/es/man1/tolvex.1
    set_moments "$native"
    dpkg-deb --root-owner-group -Zxz --build "$native" "$out/tolvex_${version}_$architecture.deb" > /dev/null
}

# --- both ------------------------------------------------------------------------------------------------------------

set_moments() { find "$1" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +; }

say "empacando TOLVEX $version"
install_packages nsis zip dpkg-dev
rm -rf "$out"
mkdir -p "$stage"
"$project/dist/sbom.sh" "$version" > "$out/tolvex-$version.spdx.json"
stage_windows
make_setup
make_zip
stage_native
make_tar
make_deb
rm -rf "$stage"
cd "$out"
sha256sum tolvex* > SHA256SUMS
cat SHA256SUMS
