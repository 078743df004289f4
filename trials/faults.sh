#!/bin/bash
# faults.sh TOLVEX FAULTY_SYSTEM WORK: one document is issued again and again, each time with another call to the system
# going wrong (an error, a full disk, a kill), until a run makes fewer calls. The points come from the run itself. What
# is left is held against the documented outcomes: an issue stops where it stands, so that rows, counter and file are
# there in the order in which they are made; what was reported as issued is whole; the next document is issued.
set -euo pipefail

project=$(cd "$(dirname "$0")/.." && pwd)
. "$project/setup/common.sh"
. "$project/tests/windows/checks.sh"
install_packages sqlite3
tolvex=$(readlink -f "$1") faulty=$(readlink -f "$2") work=$(realpath -m "$3")
shop=$work/shop here=$work/here

# The demonstration's shop has come to folio 3, its documents to number 4.
make_shop() {
    rm -rf "$work"
    mkdir -p "$work"
    "$tolvex" demo --carpeta "$here" > /dev/null # where it will be run: paths are kept in it
    mv "$here" "$shop"
}

# issue_with KIND PLACE: a fault at that place of the issue.
issue_with() {
    rm -rf "$here" "$work/point"
    cp -r "$shop" "$here"
    cd "$here"
    status=0
    { timeout 60 env LD_PRELOAD="$faulty" FAULT_AT="$2" FAULT_KIND="$1" FAULT_LOG="$work/point" \
        "$tolvex" emite factura.txt --bd tolvex.db > "$work/out" 2> "$work/err"; } 2> /dev/null || status=$?
    [ -e "$work/point" ]
}

# document, receiver, lines, counter, file: how many of each.
state() {
    local file=0
    [ ! -e Facturas/A4.xml ] || file=1
    sqlite3 -batch -cmd '.timeout 15000' tolvex.db "select
        (select count(*) from FE_VENTAS_RESUMEN where nID = 5) || ' ' ||
        (select count(*) from FE_ClienteFactura where nidFE = 5) || ' ' ||
        (select count(*) from FE_VENTAS_RESUMEN_DET where nIdFe = 5) || ' ' ||
        (select nUltimoFolio - 3 from FE_FOLIOS where nFolio = 1) || ' $file'"
}

# The documented outcomes, by what is left.
outcome_of() {
    case $1 in
        '0 0 0 0 0') echo "nada" ;;
        '1 0 0 0 0') echo "sólo el documento" ;;
        '1 1 0 0 0') echo "documento y receptor" ;;
        '1 1 1 0 0' | '1 1 2 0 0') echo "una parte de los renglones" ;;
        '1 1 3 0 0') echo "todos los renglones" ;;
        '1 1 3 1 0') echo "sin XML" ;;
        '1 1 3 1 1') echo "emitido" ;;
        *) echo "fuera de la tabla: $1" ;;
    esac
}

is_sound() { [ "$(sqlite3 -batch tolvex.db 'pragma integrity_check')" = ok ]; }
says_why() { [ -s "$work/err" ]; }
next_is_issued() { "$tolvex" emite factura.txt --bd tolvex.db > "$work/next" 2>&1 && grep -q 'Facturas/A[45].xml' "$work/next"; }
unfinished_is_found() { ! "$tolvex" verifica --bd tolvex.db > "$work/verified" 2>&1; }

judge() {
    local kind=$1 what left outcome
    what="$kind en $(cat "$work/point") ($2)"
    left=$(state) outcome=$(outcome_of "$left")
    outcomes[$outcome]=$((${outcomes[$outcome]:-0} + 1))
    expect "$what: $outcome" eval '[[ $outcome != fuera* ]]'
    expect "$what: la base de datos está sana" is_sound
    expect "$what: termina" [ "$status" != 124 ]
    [ "$status" != 0 ] || expect "$what: lo informado está completo, y queda $outcome" [ "$outcome" = emitido ]
    [ "$status" = 0 ] || [ "$kind" = killed ] || expect "$what: dice por qué" says_why
    [ "$outcome" = emitido ] || [ "$outcome" = nada ] || expect "$what: verifica lo halla" unfinished_is_found
    expect "$what: el siguiente se emite" next_is_issued
}

make_shop
declare -A outcomes
points=0
for kind in fails full killed; do
    for ((place = 1; ; place++)); do
        issue_with "$kind" "$place" || break
        judge "$kind" "$place"
        points=$((points + 1))
    done
done
echo "puntos: $points"
for outcome in "${!outcomes[@]}"; do echo "  ${outcomes[$outcome]} $outcome"; done
end_of_checks
