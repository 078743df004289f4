#!/bin/bash
# faults.sh TOLVEX FAULTY_SYSTEM FILE_SERVER WORK [STEP]: each operation is done again and again, each time with another
# of its calls going wrong, until a run makes fewer calls: the points come from the run itself. What is left is held
# against the table of documented outcomes below. STEP: only every STEP-th point.
set -euo pipefail

. "$(dirname "$0")/embedded.sh"
tolvex=$(readlink -f "$1") faulty=$(readlink -f "$2") server=$(readlink -f "$3") work=$(realpath -m "$4") step=${5:-1}
shop=$work/shop here=$work/here database=$work/here/tolvex.db

# Operation | what is left | what the caller is told | whether "tolvex verifica" finds something | in words
outcomes='
emite    | 0 0 0 0 0 - | error | calla | nada
emite    | 1 0 0 0 0 ? | error | avisa | el documento solo
emite    | 1 1 0 0 0 ? | error | avisa | el documento y su receptor
emite    | 1 1 [12] 0 0 ? | error | avisa | una parte de los renglones
emite    | 1 1 3 0 0 ? | error | avisa | todos los renglones, el folio sin tomar
emite    | 1 1 3 1 0 ? | error | avisa | sin XML
emite    | 1 1 3 1 1 0 | error | avisa | emitido con el sello vacío
emite    | 1 1 3 1 1 1 | -     | calla | emitido
cancela  | 0 0         | error | calla | vigente
cancela  | 1 0         | -     | calla | cancelado
borra    | 1 1 1 3     | error | calla | nada se borró
borra    | 0 1 1 3     | error | avisa | sin receptor
borra    | 0 0 1 3     | error | avisa | el documento solo
borra    | 0 0 0 3     | -     | avisa | borrado: su folio falta
maestros | 0 0 0       | error | calla | nada
maestros | 1 0 0       | error | calla | la primera empresa
maestros | 1 1 0       | error | calla | las dos empresas
maestros | 1 1 1       | -     | calla | todo
reporte  | anterior    | error | calla | el archivo anterior
reporte  | una parte   | error | calla | lo que se alcanzó a escribir
reporte  | entero      | -     | calla | el archivo nuevo
imprime  | anterior    | error | calla | el PDF anterior
imprime  | entero      | -     | calla | el PDF nuevo'
outcomes=$(sed 's/ *| */|/g' <<< "$outcomes")

# --- the operations ----------------------------------------------------------------------------------------------------

# The demonstration's shop has come to folio 3, its documents to number 4.
make_shop() {
    rm -rf "$work"
    mkdir -p "$work"
    "$tolvex" demo --carpeta "$here" > /dev/null # where it will be run: paths are kept in it
    cd "$here"
    read -r year month < <(ask "select strftime('%Y %m', dFecha) from FE_VENTAS_RESUMEN where nID = 1")
    report=1DEM110101AAA$month$year.TXT
    "$tolvex" reporte --empresa 1 --mes "$month" --anio "$year" --carpeta . --bd tolvex.db > /dev/null
    mv "$report" "$work/whole_report"
    echo anterior | tee "$report" > FacturaElec_1.pdf
    mkdir otra
    printf '[[empresa]]\nnombre = "Abarrotes"\nrfc = "DEM110101AAA"\ntelefono = "5550000000"\n' > alta.toml
    printf '[[empresa]]\nnombre = "Otra"\nrfc = "OTR110101AAA"\n' >> alta.toml
    printf '[[empresa.certificado]]\ncer = "certificado.cer"\nkey = "llave.key"\ncarpeta_sello = "otra"\n' >> alta.toml
    cd "$work"
    mv "$here" "$shop"
    printf '[SQL Server]\nDriver=%s\n' "$server" > "$work/odbcinst.ini"
}

words_of() {
    case $1 in
        emite) echo emite factura.txt ;;
        cancela) echo cancela 2 --empresa 1 --sucursal 1 ;;
        borra) echo borra 3 --empresa 1 --sucursal 1 --si ;;
        maestros) echo maestros alta.toml ;;
        reporte) echo reporte --empresa 1 --mes "$month" --anio "$year" --carpeta "$here" ;;
        imprime) echo imprime 1 --empresa 1 --pdf ;;
    esac
}

# do_operation OPERATION [VARIABLE=VALUE]…: away from the terminal, so that openssl reads the key's password from here.
do_operation() {
    local place=(--bd "$database")
    [ "$way" = archivo ] || place+=(--servidor archivo --usuario sa)
    timeout 60 setsid -w env ODBCSYSINI="$work" TOLVEX_CLAVE=x "${@:2}" \
        "$tolvex" $(words_of "$1") "${place[@]}" > "$work/out" 2> "$work/err" <<< 12345678a
}

# Of documents and masters how many there are; of a file whether it is whole.
left_by() {
    case $1 in
        emite)
            local file=0
            [ ! -e Facturas/A4.xml ] || file=1
            ask "select (select count(*) from FE_VENTAS_RESUMEN where nID = 5) || ' ' ||
                (select count(*) from FE_ClienteFactura where nidFE = 5) || ' ' ||
                (select count(*) from FE_VENTAS_RESUMEN_DET where nIdFe = 5) || ' ' ||
                (select nUltimoFolio - 3 from FE_FOLIOS where nFolio = 1) || ' $file ' ||
                ifnull((select cSelloDigital <> '' from FE_VENTAS_RESUMEN where nID = 5), '-')" ;;
        cancela)
            ask "select (select count(*) from FE_VENTAS_RESUMEN where cDocumento = '2' and cStatus = 'C'
                    and dFechaCan is not null) || ' ' ||
                (select count(*) from FE_VENTAS_RESUMEN where cDocumento = '3' and cStatus = 'C')" ;;
        borra)
            ask "select (select count(*) from FE_ClienteFactura where nidFE = 4) || ' ' ||
                (select count(*) > 0 from FE_VENTAS_RESUMEN_DET where nIdFe = 4) || ' ' ||
                (select count(*) from FE_VENTAS_RESUMEN where nID = 4) || ' ' ||
                (select count(*) from FE_VENTAS_RESUMEN where nID < 4)" ;;
        maestros)
            ask "select (select count(*) from FE_EMPRESAS where cTelefono = '5550000000') || ' ' ||
                (select count(*) from FE_EMPRESAS where cRfc = 'OTR110101AAA') || ' ' ||
                (select count(*) from FE_CERTIFICADOS where nEmpresa = 2)" ;;
        reporte) state_of_file "$report" cmp -s "$report" "$work/whole_report" ;;
        imprime) state_of_file FacturaElec_1.pdf ends_as_pdf ;;
    esac
}

# state_of_file FILE IS_WHOLE…
state_of_file() {
    if "${@:2}"; then
        echo entero
    elif [ "$(cat "$1")" = anterior ]; then
        echo anterior
    else
        echo una parte
    fi
}

ends_as_pdf() { [ "$(tail -c 6 FacturaElec_1.pdf)" = '%%EOF' ]; }

# --- one point ---------------------------------------------------------------------------------------------------------

# fault_in OPERATION CALLS KIND PLACE: did the run come to that place?
fault_in() {
    rm -rf "$here" "$work/point"
    cp -r "$shop" "$here"
    cd "$here"
    status=0
    do_operation "$1" LD_PRELOAD="$faulty" FAULT_CALLS="$2" FAULT_KIND="$3" FAULT_AT="$4" FAULT_LOG="$work/point" \
        2> /dev/null || status=$?
    [ -e "$work/point" ]
}

# The row of the table: told|verified|words.
documented() {
    local operation state told verified words
    while IFS='|' read -r operation state told verified words; do
        [ "$operation" = "$1" ] && [[ $2 == $state ]] || continue
        echo "$told|$verified|$words" && return
    done <<< "$outcomes"
    echo "-|-|fuera de la tabla: $2"
}

says_why() { grep -q '^tolvex: ' "$work/err" && ! grep -qE 'std::|terminate' "$work/err"; }

# is_told KIND TOLD: a caller who was killed is told nothing; success only where the table admits it.
is_told() {
    case $status in
        137) [ "$1" = killed ] ;;
        0) [ "$1" != killed ] && [ "$2" = - ] ;;
        1) [ "$1" != killed ] && says_why ;;
        *) false ;;
    esac
}

# is_verified VERIFIED
is_verified() {
    if "$tolvex" verifica --bd "$database" > "$work/verified" 2>&1; then [ "$1" != avisa ]; else [ "$1" != calla ]; fi
}

# Done once more, with nothing going wrong, it comes to its end.
is_done_again() {
    do_operation "$1" || [ "$1" = borra ] || return 1
    case $1 in
        emite) grep -q 'Facturas/A[45].xml' "$work/out" ;;
        *) [ "$(documented "$1" "$(left_by "$1")" | cut -d '|' -f 1)" = - ] ;;
    esac
}

judge() {
    local operation=$1 kind=$2 told verified words what
    IFS='|' read -r told verified words < <(documented "$operation" "$(left_by "$operation")")
    what="$operation, $way: $kind en $(cat "$work/point") ($3): $words"
    seen["$operation: $words"]=$((${seen["$operation: $words"]:-0} + 1))
    expect "$what" [ "${words#fuera de la tabla}" = "$words" ]
    expect "$what, y la base de datos está sana" is_sound
    expect "$what, y termina con $status: $(head -c 200 "$work/err")" is_told "$kind" "$told"
    expect "$what, y verifica $verified" is_verified "$verified"
    expect "$what, y se vuelve a hacer" is_done_again "$operation"
    points=$((points + 1))
}

# try_calls WAY CALLS STEP KIND…
try_calls() {
    local kind place operation
    way=$1
    for operation in emite cancela borra maestros reporte imprime; do
        for kind in "${@:4}"; do
            for ((place = 1; ; place += $3)); do
                fault_in "$operation" "$2" "$kind" "$place" || break
                judge "$operation" "$kind" "$place"
                [ ! -t 2 ] || printf '\r%-10s %-10s %-10s %6d\e[K' "$operation" "$way" "$kind" "$place" >&2
            done
        done
    done
}

# --- every call --------------------------------------------------------------------------------------------------------

# What touches files, starts programs or speaks to the server, but for what fails without a consequence.
calls='^(f?open|f?(read|write|puts?c?|flush)|fclose|p?(read|write)v?|re(name|move)|unlink|(read|sym)?link|mk(dir|dtemp|stemp)|rmdir'
calls+='|flock|fcntl|f?truncate|f(data)?sync|fallocate|[fl]?stat|access|f?chmod|mmap|pipe|posix_spawnp?|waitpid)(at)?[0-9]*$'
calls+='|^SQL([ABCGMN]|De|DriverC|E|Fe|SetC|SetS)'

names() { sed -nE 's/.* [TU] (\w+)(@.*)?$/\1/p' | sort -u; }

# Of what the program and its database ask the C library and ODBC for.
untried() {
    local engine
    engine=$(ldd "$tolvex" | awk '/libsqlite3/ { print $3 }')
    comm -23 <(nm -D --undefined-only "$tolvex" "$engine" | names | grep -E "$calls") <(nm -D --defined-only "$faulty" | names)
}

make_shop
forgotten=$(untried)
expect "se prueba cada llamada: $forgotten" [ -z "$forgotten" ]
declare -A seen
points=0
try_calls archivo files "$step" fails full killed
try_calls servidor statements "$step" fails lost unanswered killed
try_calls archivo memory $((step * 100)) fails
echo "puntos: $points"
for outcome in "${!seen[@]}"; do printf '%6d %s\n' "${seen[$outcome]}" "$outcome"; done | sort -k 2
end_of_checks
