#!/bin/bash
# Installs the cross compilers of the Windows edition and builds what it links in and is tested with, from Debian's
# own source packages, under build/windows:
#
#   TRIPLET/include/, TRIPLET/lib/    SQLite, the embedded database; Expat, which reads XML; libharu, which writes PDF
#   TRIPLET/bin/openssl.exe           for the tests; users have their own
#
# A part is built again when its recipe below or the compiler changes.
. "$(dirname "$0")/common.sh"

windows=$build/windows
work=$windows/work
triplets=(x86_64-w64-mingw32 i686-w64-mingw32)

# --- packages of Debian, fetched with a package list apart from the system's -----------------------------------------

private_apt() {
    apt-get "${apt_options[@]}" -o APT::Sandbox::User=root -o Dir::Etc::SourceParts=/dev/null \
        -o Dir::Etc::SourceList="$work/sources.list" -o Dir::State::Lists="$work/lists" \
        -o Dir::Cache::Archives="$work/archives" "$@"
}

update_private_apt() {
    [ ! -d "$work/lists" ] || return 0
    mkdir -p "$work/lists/partial" "$work/archives/partial"
    { debian_archive deb && debian_archive deb-src; } > "$work/sources.list"
    private_apt update
}

# Leaves the newest source of a package, patches applied, in work/NAME.
unpack_source() {
    mkdir -p "$work/download-$1"
    cd "$work/download-$1"
    private_apt --download-only source "$1"
    rm -rf "${work:?}/$1"
    dpkg-source --no-check -x ./*.dsc "$work/$1"
}

# --- the parts -------------------------------------------------------------------------------------------------------

# Leaves a source in work/NAME as its authors released it, for a package whose patches are about its packaging.
unpack_release() {
    mkdir -p "$work/download-$1" "$work/$1"
    cd "$work/download-$1"
    private_apt --download-only --tar-only source "$1"
    tar --strip-components=1 -C "$work/$1" -xf ./*.orig.tar.*
}

# Runs a function for each bitness at the same time; a core for each when there are two.
for_both_bitnesses() {
    local triplet job jobs=()
    for triplet in "${triplets[@]}"; do
        "$1" "$triplet" &
        jobs+=($!)
    done
    for job in "${jobs[@]}"; do wait "$job"; done
}

build_sqlite() {
    unpack_source sqlite3
    mkdir -p "$work/sqlite3/amalgamation"
    cd "$work/sqlite3/amalgamation"
    ../configure --disable-tcl
    make sqlite3.c
    for_both_bitnesses compile_sqlite
}

# The options that change what statements do are those of Debian's library, so that both editions behave alike.
compile_sqlite() {
    mkdir -p "$windows/$1/include" "$windows/$1/lib"
    "$1-gcc-posix" -O2 -D_WIN32_WINNT=0x0601 -DSQLITE_THREADSAFE=1 -DSQLITE_OMIT_LOAD_EXTENSION -DSQLITE_USE_URI \
        -DSQLITE_SECURE_DELETE -DSQLITE_LIKE_DOESNT_MATCH_BLOBS -DSQLITE_MAX_VARIABLE_NUMBER=250000 \
        -DSQLITE_ENABLE_COLUMN_METADATA -c sqlite3.c -o "sqlite3-$1.o"
    rm -f "$windows/$1/lib/libsqlite3.a"
    "$1-ar" rcs "$windows/$1/lib/libsqlite3.a" "sqlite3-$1.o"
    cp sqlite3.h "$windows/$1/include/"
}

build_expat() {
    unpack_source expat
    touch "$work/expat/expat_config.h"
    for_both_bitnesses compile_expat
}

compile_expat() {
    start_library expat "$1"
    "$1-gcc-posix" -O2 -D_WIN32_WINNT=0x0601 -DXML_STATIC -DXML_DTD=1 -DXML_GE=1 -DXML_NS -DXML_CONTEXT_BYTES=1024 \
        -DBYTEORDER=1234 -I.. -c ../expat/lib/xml{parse,role,tok}.c
    "$1-ar" rcs "$windows/$1/lib/libexpat.a" ./*.o
    cp ../expat/lib/expat*.h "$windows/$1/include/"
}

# Pictures reach it decoded, so that it needs none of the libraries that decode them.
build_libharu() {
    unpack_release libharu
    echo '#define LIBHPDF_HAVE_NOPNGLIB' > "$work/libharu/include/hpdf_config.h"
    for_both_bitnesses compile_libharu
}

compile_libharu() {
    start_library libharu "$1"
    "$1-gcc-posix" -O2 -D_WIN32_WINNT=0x0601 -I../include -c ../src/*.c
    "$1-ar" rcs "$windows/$1/lib/libhpdf.a" ./*.o
    cp ../include/*.h "$windows/$1/include/"
}

# NAME TRIPLET: an empty folder to compile in.
start_library() {
    mkdir -p "$work/$1/$2" "$windows/$2/include" "$windows/$2/lib"
    cd "$work/$1/$2"
}

build_openssl() {
    unpack_source openssl
    for_both_bitnesses compile_openssl
}

# Only what seals and registers certificates (dgst, enc, pkcs8, rsa, x509), without optimisation: seconds count more.
compile_openssl() {
    local target=mingw64
    [ "$1" = x86_64-w64-mingw32 ] || target=mingw
    mkdir -p "$work/openssl/$1" "$windows/$1/bin"
    cd "$work/openssl/$1"
    perl ../Configure $target --cross-compile-prefix="$1-" -static -O0 $(printf 'no-%s ' \
        shared module dso engine dynamic-engine capieng tests makedepend deprecated asm async autoload-config \
        sock dgram ssl tls dtls srp srtp psk nextprotoneg ct ocsp cms cmp ts comp zlib ktls sctp rfc3779 uplink \
        ec dh dsa gost sm2 aria bf blake2 camellia cast chacha cmac idea md4 mdc2 multiblock ocb poly1305 rc2 rc4 \
        rmd160 scrypt seed siphash siv sm3 sm4 whirlpool legacy)
    make -s build_generated
    make -s -j"$((($(nproc) + 1) / 2))" apps/openssl.exe
    "$1-strip" -o "$windows/$1/bin/openssl.exe" apps/openssl.exe
}

# Runs a recipe unless its last run was with the same text and compiler.
build_once() {
    local key stamp=$windows/$1.stamp log=$windows/$1.log
    key=$({ declare -f "$@" unpack_source unpack_release start_library for_both_bitnesses && "${triplets[0]}-gcc-posix" --version; } |
        sha256sum)
    [ "$key" != "$(cat "$stamp" 2> /dev/null)" ] || return 0
    say "construyendo para Windows: ${1#build_}"
    update_private_apt
    # In the background, because bash ignores -e in what stands before ||.
    "$1" > "$log" 2>&1 &
    wait $! || { tail -n 30 "$log" >&2; die "no se pudo construir ${1#build_}; vea $log"; }
    echo "$key" > "$stamp"
}

install_packages cmake ninja-build gcc libc6-dev make perl xz-utils patch dpkg-dev tcl ca-certificates \
    g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix libz-mingw-w64-dev googletest \
    libfmt-dev libcli11-dev libtomlplusplus-dev
mkdir -p "$windows"
rm -rf "$work"
build_once build_sqlite compile_sqlite
build_once build_expat compile_expat
build_once build_libharu compile_libharu
build_once build_openssl compile_openssl
rm -rf "$work"
