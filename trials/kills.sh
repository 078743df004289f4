#!/bin/bash
# kills.sh TOLVEX WORK [ROUNDS]: stations issue on one embedded database, and again and again one of them is killed in the
# middle (kill -9). Nothing that was reported as issued may suffer: after every round the database is sound, the next
# document is issued, and tolvex verifica names exactly what was left unfinished.
set -euo pipefail

. "$(dirname "$0")/embedded.sh"
tolvex=$(readlink -f "$1") work=$(realpath -m "$2") rounds=${3:-100}
stations=3 documents_each=400
database=$work/tolvex.db

# --- the stations ------------------------------------------------------------------------------------------------------

# The demonstration's invoice, of three lines, again and again.
sales() {
    local i
    grep '^EMISOR' "$work/factura.txt"
    for ((i = 0; i < documents_each; i++)); do sed -n '/^CLIENTE/,/^EMITE/p' "$work/factura.txt"; done
}

# Every other station has its seals computed in the process: it is killed at other points.
station() {
    local number=$1 way=()
    ((number % 2)) || way=(--sello-interno)
    exec "$tolvex" emite "$work/ventas.txt" --json "${way[@]}" --bd "$database" >> "$work/reported.$number" 2> /dev/null
}

# They end with the round; what they reported stays.
declare -A running
start_stations() {
    local number
    for ((number = 1; number <= stations; number++)); do
        kill -0 "${running[$number]:-0}" 2> /dev/null && [ -n "${running[$number]:-}" ] && continue
        station "$number" &
        running[$number]=$!
    done
}

kill_one() {
    local number=$((RANDOM % stations + 1))
    sleep "0.$(printf '%03d' $((RANDOM % 300 + 20)))"
    kill -9 "${running[$number]}" 2> /dev/null || return 0
    wait "${running[$number]}" 2> /dev/null || true
    running[$number]=
    kills=$((kills + 1))
}

end_stations() {
    local number
    for number in "${!running[@]}"; do
        [ -z "${running[$number]}" ] || { kill -INT "${running[$number]}" 2> /dev/null && wait "${running[$number]}" || true; }
    done 2> /dev/null
    running=()
}

# --- what is held against them -----------------------------------------------------------------------------------------

next_is_issued() { "$tolvex" emite "$work/uno.txt" --json --bd "$database" >> "$work/reported.0" 2> "$work/errors" && [ ! -s "$work/errors" ]; }

# Numbers of the documents that a station reported; a line that was cut off is none.
reported() { sed -nE 's/^.*"nID":([0-9]+),.*"error":""\}$/\1/p' "$work"/reported.* | sort -n; }

# Number and folio of documents that nobody reported, finished or not.
unreported() {
    ask 'select nID || " " || cDocumento from FE_VENTAS_RESUMEN where nID>5 order by nID' |
        awk 'NR == FNR { known[$1]; next } !($1 in known)' <(reported) -
}

# Of a document that nobody reported: does it lack a row, its lines or its file?
is_unfinished() {
    local seal
    [ "$(ask "select count(*) from FE_ClienteFactura where nidFE=$1")" = 1 ] || return 0
    [ "$(ask "select count(*) from FE_VENTAS_RESUMEN_DET where nIdFe=$1")" = 3 ] || return 0
    seal=$(ask "select cSelloDigital from FE_VENTAS_RESUMEN where nID=$1")
    ! grep -rqF "$seal" "$work/Facturas" --include='*.xml'
}

found() { sed -nE 's/^serie A, folio ([^,]*),.*/\1/p' "$work/verified" | sort -u; }

only_unfinished_are_found() { [ -z "$(comm -23 <(found) <(unreported | cut -d ' ' -f 2 | sort -u))" ]; }

unfinished_are_found() {
    local id folio
    while read -r id folio; do
        ! is_unfinished "$id" || grep -qx "$folio" <(found) || { echo "no se dice: folio $folio (nID $id)" && return 1; }
    done < <(unreported)
}

verify() {
    "$tolvex" verifica --bd "$database" > "$work/verified" 2>&1 || true
    expect "lo dicho es de lo que nadie informó" only_unfinished_are_found
    expect "lo inconcluso se dice" unfinished_are_found
}

rm -rf "$work"
"$tolvex" demo --carpeta "$work" > /dev/null
sales > "$work/ventas.txt"
cp "$work/factura.txt" "$work/uno.txt"
"$tolvex" emite "$work/uno.txt" --bd "$database" > /dev/null 2>&1 # 5 documents before anybody is killed
ask 'update FE_FOLIOS set nHasta=1000000' > /dev/null
trap 'end_stations' EXIT
kills=0
for ((round = 1; round <= rounds; round++)); do
    start_stations
    kill_one
    expect "la base de datos está sana" is_sound
    expect "el siguiente se emite" next_is_issued
    if ((round % 50 == 0 || round == rounds)); then
        end_stations
        verify
        [ ! -t 2 ] || printf '\r%d de %d' "$round" "$rounds" >&2
    fi
done
echo "muertes: $kills; documentos informados: $(reported | wc -l); sin informar: $(unreported | wc -l); inconclusos: $(found | wc -l)"
end_of_checks
