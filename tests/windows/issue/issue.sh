#!/bin/bash
# issue.sh 64|32 COMPONENT SQL OPENSSL KEYS POINT GROUPING: a whole host session with the real openssl and a database,
# in a folder with accents and with the decimal point and the grouping sign of a user's locale; afterwards the seal is
# verified with the public key and the stored rows are looked at.
set -euo pipefail

. "$(dirname "$0")/folder.sh"
point=$6 grouping=$7

set_locale() {
    local name
    for name in sDecimal="$1" sMonDecimalSep="$1" sThousand="$2" sMonThousandSep="$2"; do
        windows 'C:\windows\system32\reg.exe' add 'HKCU\Control Panel\International' /v "${name%%=*}" /d "${name#*=}" /f \
            > /dev/null
    done
}

set_locale "$point" "$grouping"
trap 'set_locale . ,' EXIT
script "$here/issue.vbs" "$(windows_path "$folder")" "$point"

# The stored original string holds one character per byte.
query "Select cCadenaOriginal From FE_VENTAS_RESUMEN Where cDocumento='1';" | tr -d '\n' | iconv -f UTF-8 -t LATIN1 \
    > "$folder/signed.txt"
query "Select cSelloDigital From FE_VENTAS_RESUMEN Where cDocumento='1';" | base64 -d > "$folder/signature"
cd "$folder"
windows openssl.exe dgst -sha1 -verify "$(windows_path "$keys/llave_publica.pem")" -signature signature signed.txt |
    grep -q 'Verified OK'
[ "$(query "Select count(*), min(cStatus), min(date(dFechaCan)) From FE_VENTAS_RESUMEN;")" = "1|C|2011-12-31" ]
[ "$(query "Select count(*) From FE_VENTAS_RESUMEN_DET;")" = 2 ]
echo "FIN: 3 comprobaciones, 0 fallas"
