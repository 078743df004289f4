#!/bin/bash
# docs_test.sh TOLVEX WORK: what the documents show is so. Their orders run in a shop of their own, their code stands in
# the examples, their links lead somewhere, and the index names them all.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
project=$(cd "$here/../.." && pwd)
. "$here/../windows/checks.sh"
tolvex=$(readlink -f "$1") work=$(realpath -m "$2")

# --- a shop: the demonstration, and invoices of March 2011 up to folio 15 ----------------------------------------------

make_shop() {
    rm -rf "$work"
    mkdir -p "$work"
    "$tolvex" demo --carpeta "$work/shop" > /dev/null
    cd "$work/shop"
    sed 's/|[0-9]*-[0-9]*-[0-9]* [0-9:]*|/|2011-03-15 14:05:09|/' factura.txt > marzo.txt
    for ((i = 4; i <= 15; i++)); do "$tolvex" emite marzo.txt &> /dev/null; done
    ln -s tolvex.db tienda.db
    mkdir sello reportes build
    cp certificado.cer nuevo.cer
    cp llave.key nuevo.key
    cp "$project/printing/layouts/factura.rdl" mio.rdl
    echo 12345678a > clave.txt
    blocks_of "$project/docs/maestros.md" toml > tienda.toml
    ln -s "$tolvex" build/tolvex
    "$tolvex" demo --carpeta demo > /dev/null
}

# --- the orders --------------------------------------------------------------------------------------------------------

# Indented lines that begin with the program's name; what comes after two blanks explains them.
orders_of() { sed -nE 's/^ {4,}((setsid |build\/)?tolvex .*)/\1/p' "$1" | sed -E 's/ {2,}.*//; s/ --servidor caja --bd ventas --usuario sa/ --bd tienda.db/'; }

# Findings and missing printers are no fault of an order; those that ask get their answer.
runs() {
    local order=$1 status=0
    [[ $order != *" borra "* ]] || order+=' --si'
    PATH=$work/bin:$PATH setsid bash -c "$order" < clave.txt > said.txt 2>&1 || status=$?
    case $order in
        *diagnostico* | *verifica*) [ "$status" -le 1 ] ;;
        *" imprime "*--pdf*) [ "$status" = 0 ] ;;
        *" imprime "*) [ "$status" = 0 ] || grep -qE 'impresora|visor' said.txt ;;
        *) [ "$status" = 0 ] ;;
    esac || { cat said.txt && return 1; }
}

orders_run() {
    local document order
    make_shop
    mkdir "$work/bin"
    ln -s "$tolvex" "$work/bin/tolvex"
    for document in "$project"/docs/*.md "$project/README.md"; do
        rm -rf "$work/here"
        cp -r "$work/shop" "$work/here"
        cd "$work/here"
        while read -r order; do
            expect "$(basename "$document"): $order" runs "$order"
        done < <(orders_of "$document")
    done
    cd "$project"
}

# --- the rest ----------------------------------------------------------------------------------------------------------

# What stands in blocks of a language.
blocks_of() { sed -n "/^\`\`\`$2/,/^\`\`\`/p" "$1" | grep -v '^```'; }
# Lines of VBScript, without blanks at their ends and what explains them.
bare_code() { sed -E "s/ +' .*//; s/^ +//; s/ +$//" | grep -v '^$'; }

code_is_in_examples() {
    local document line
    cat "$project"/examples/vbscript/*.vbs | bare_code > "$work/examples.txt"
    for document in "$project"/docs/*.md; do
        while read -r line; do
            expect "$(basename "$document"): $line" grep -qxF -- "$line" "$work/examples.txt"
        done < <(blocks_of "$document" vb | bare_code || true)
    done
}

links_lead_somewhere() {
    local document link
    for document in "$project"/docs/*.md "$project"/README.md "$project"/examples/README.md; do
        while read -r link; do
            expect "$(basename "$document"): $link" [ -e "$(dirname "$document")/$link" ]
        done < <(grep -oE '\]\([^)#]+' "$document" | sed 's/^](//' | grep -v '^http')
    done
}

index_is_whole() {
    local document
    for document in "$project"/docs/*.md; do
        document=$(basename "$document")
        [ "$document" = indice.md ] || expect "el índice nombra $document" grep -qF "($document)" "$project/docs/indice.md"
    done
}

orders_run
code_is_in_examples
links_lead_somewhere
index_is_whole
end_of_checks
