#!/bin/bash
# keys_of_openssl.sh HEADER: keys of four lengths and what the openssl program seals with them, as C++.
set -euo pipefail

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
printf '||3.0|caf\xC3\xA9||' > message

text() { printf 'R"pem(%s)pem"' "$(cat "$1")"; }
signature() { openssl dgst "-$1" -sign key.pem message | openssl enc -base64 -A; }

{
    echo 'namespace tolvex::testing {'
    echo 'inline constexpr KeyOfOpenssl keys_of_openssl[] = {'
    for bits in 1024 2048 3072 4096; do
        openssl genrsa -out key.pem "$bits" 2> errors || { cat errors >&2; exit 1; }
        openssl rsa -traditional -in key.pem -out pkcs1.pem 2> errors || { cat errors >&2; exit 1; }
        echo "{$bits, $(text key.pem), $(text pkcs1.pem), u\"$(signature md5)\", u\"$(signature sha1)\"},"
    done
    echo '};'
    openssl rsa -aes128 -passout pass:1234 -in key.pem -out locked.pem 2> errors || { cat errors >&2; exit 1; }
    openssl ecparam -name prime256v1 -genkey -noout -out curve.pem
    echo "inline constexpr char key_with_a_password[] = $(text locked.pem);"
    echo "inline constexpr char key_on_a_curve[] = $(text curve.pem);"
    echo '} // namespace tolvex::testing'
} > header
cat header > "$1"
