# Documents to print, to be sourced.

# issue_long_invoice TOLVEX FOLDER: the demonstration's station and documents (1 is cancelled, 2 a credit note), and
# document 4, an invoice of 150 lines.
issue_long_invoice() {
    "$1" demo --carpeta "$2" > /dev/null
    awk -F'|' -v OFS='|' '/^DETALLE/ { if (!written++) for (i = 1; i <= 150; i++) { $4 = "CAF-" i; print } next } { print }' \
        "$2/factura.txt" > "$2/larga.txt"
    "$1" emite "$2/larga.txt" --bd "$2/tolvex.db" > /dev/null
}
