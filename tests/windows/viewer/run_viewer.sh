#!/bin/bash
# run_viewer.sh 64|32 COMPONENT HOST WORK    inside the test bed: a user reads, searches, prints and saves a document
#
# The same at two resolutions; pictures go to WORK/screenshots, what the viewer saved and printed to WORK. WORK holds the
# database of viewer_test.sh: 4 is a long invoice.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../checks.sh"
. "$here/../forms/user.sh"
. "$here/../forms/station.sh"
. "$here/../pages/printers.sh"
bits=$1 component=$2 host=$3 work=$4 pictures=$4/screenshots

# --- the viewer ------------------------------------------------------------------------------------------------------

# opens_viewer FOLIO…: in a host with the plainest message loop, which says what the viewer shows.
opens_viewer() {
    windows "$host" "$(windows_path "$work/tolvex.db")" "$(windows_path "$work/factura.rdl")" "$@" > "$work/said-$dpi" &
}

last_said() { [[ $(tail -n 1 "$work/said-$dpi" | tr -d '\r') =~ $1 ]]; }
# shows WHAT PATTERN: the boxes and labels of the bar: [page][ de n][zoom][words][ found]
shows() { expect "$1" wait_until last_said "$2"; }

reads_pages() {
    shows "la primera página" '\[1\]\[ de 6\]\['
    takes_picture ancho
    press Next
    press Next
    shows "avanza por pantallas" '\[2\]\[ de 6\]'
    press ctrl+End
    shows "la última página" '\[6\]\[ de 6\]'
    takes_picture ultima
    press ctrl+Home
    shows "la primera otra vez" '\[1\]\[ de 6\]'
    press Right Right
    shows "página a página" '\[3\]\[ de 6\]'
    press ctrl+Prior
    shows "una atrás" '\[2\]\[ de 6\]'
    press ctrl+g 5 Return
    shows "por su número" '\[5\]\[ de 6\]'
    clicks_on_pages 5 # the wheel down
    shows "con la rueda" '\[[56]\]\[ de 6\]'
}

changes_scale() {
    press ctrl+1
    shows "tamaño real" '\[100 %\]'
    press plus
    shows "más cerca" '\[110 %\]'
    takes_picture cerca
    press minus minus
    shows "más lejos" '\[90 %\]'
    press ctrl+plus
    shows "con Ctrl" '\[100 %\]'
    xdotool keydown ctrl && clicks_on_pages 4 && xdotool keyup ctrl
    shows "con la rueda y Ctrl" '\[110 %\]'
    press ctrl+0
    takes_picture pagina-completa
    xdotool mousemove --window "$window" $((20 * dpi / 96)) $((17 * dpi / 96)) # it rests on a button
    sleep 1.5
    import -window root "$pictures/consejo-$dpi.png"
    xdotool mousemove --window "$window" $((300 * dpi / 96)) $((300 * dpi / 96))
    press ctrl+2
}

searches() {
    press ctrl+Home ctrl+f
    writes 'pena guemes'
    shows "sin acentos ni mayúsculas" '\[pena guemes\]\[ 1 de 7\]'
    takes_picture busqueda
    press Return
    shows "la siguiente, en otra página" '\[2\]\[ de 6\].*\[ 2 de 7\]'
    press shift+F3 shift+F3
    shows "hacia atrás pasa por el final" '\[6\]\[ de 6\].*\[ 7 de 7\]'
    press ctrl+f
    writes 'nada de esto'
    shows "lo que no hay" '\[nada de esto\]\[ No se encontró\]'
    press Escape
    shows "Escape deja de buscar" '\[\]\[\]'
}

saves_pdf() {
    press ctrl+s
    appears 'Guardar como PDF'
    takes_picture guardar
    press Home shift+End
    writes 'c:\guardado.pdf'
    press Return
    appears "$title"
    expect "el PDF" wait_until test -s "$WINEPREFIX/drive_c/guardado.pdf"
    cp "$WINEPREFIX/drive_c/guardado.pdf" "$work/guardado-$dpi.pdf"
}

prints() {
    press ctrl+p
    appears Imprimir
    takes_picture imprimir
    press Return
    appears "$title"
    expect "el trabajo llega a la impresora" wait_until test "$(number_of_jobs)" -gt 0
}

# clicks_on_pages BUTTON: 4 and 5 are the wheel.
clicks_on_pages() {
    wait_until finds "$title"
    xdotool mousemove --window "$window" $((300 * dpi / 96)) $((300 * dpi / 96)) click "$1"
}

# The host may end with its viewers open; they go with it.
leaves_two_open() {
    opens_viewer 4 1
    appears 'factura 1'
    takes_picture cancelada
    turns_to 'factura 4'
    turns_to Anfitrión
    press alt+F4
    disappears 'factura 1'
    disappears 'factura 4'
    host_ends
    expect "hasta el final" last_said '^fin$'
}

start_spooler
add_printer Caja
lpadmin -d Caja
for dpi in 96 144; do
    sits_down
    makes_station "$work/prefix-$dpi"
    title='factura 4'
    opens_viewer 4
    appears "$title"
    reads_pages
    changes_scale
    searches
    saves_pdf
    prints
    press Escape
    disappears "$title"
    host_ends
    leaves_two_open
    ends_station
done
end_of_checks
