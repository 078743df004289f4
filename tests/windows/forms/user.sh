# What a user at the screen does and sees, to be sourced; $dpi is the resolution of the windows, $database what they
# work on. Pictures of them go to $pictures.

# --- the keyboard ----------------------------------------------------------------------------------------------------

press() { [ $# = 0 ] || xdotool key --delay 20 "$@"; }

# With time between: a program under load sees the key before AltGr.
press_with_altgr() { xdotool keydown ISO_Level3_Shift sleep 0.05 key "$1" sleep 0.05 keyup ISO_Level3_Shift; }

# writes TEXT: letters, digits and what paths are made of, on a Latin American keyboard.
writes() {
    local i letter keys=()
    for ((i = 0; i < ${#1}; i++)); do
        letter=${1:i:1}
        case $letter in
            ' ') keys+=(space) ;;
            á) keys+=(dead_acute a) ;;
            é) keys+=(dead_acute e) ;;
            í) keys+=(dead_acute i) ;;
            ó) keys+=(dead_acute o) ;;
            ú) keys+=(dead_acute u) ;;
            ñ) keys+=(ntilde) ;;
            .) keys+=(period) ;;
            :) keys+=(colon) ;;
            \\) press "${keys[@]}" && keys=() && press_with_altgr apostrophe ;;
            *) keys+=("$letter") ;;
        esac
    done
    press "${keys[@]}"
}

# The fields of a form one after the other, Enter after each.
fills() {
    local value
    for value; do
        [ -z "$value" ] || writes "$value"
        press Return
    done
}

# --- the windows -----------------------------------------------------------------------------------------------------

has_window_manager() { xprop -root _NET_SUPPORTING_WM_CHECK 2> /dev/null | grep -q 'window id'; }
title_in_front() { xdotool getactivewindow getwindowname 2> /dev/null || true; }

search() { xdotool search --onlyvisible --name "^$1\$"; }

# A search fails aloud when windows go meanwhile, and is then made again.
finds() { window=$(search "$1" 2> /dev/null | tail -n 1) && [ -n "$window" ]; }
is_closed() {
    local said
    said=$(search "$1" 2>&1) && return 1
    [ -z "$said" ]
}
is_in_front() { [ "$(title_in_front)" = "$1" ]; }

# Half a minute at most; a user who waits in vain goes no further.
wait_until() {
    local tries
    for ((tries = 0; tries < 300; tries++)); do
        "$@" && return
        sleep 0.1
    done
    echo "no llega: $*; al frente está «$(title_in_front)», la pantalla queda en falla-$dpi.png"
    import -window root "$pictures/falla-$dpi.png"
    exit 1
}

sits_down() {
    mkdir -p "$pictures"
    wait_until has_window_manager
    setxkbmap latam
}

appears() { expect "aparece $1" wait_until is_in_front "$1" && sleep 0.2; }
disappears() { expect "desaparece $1" wait_until is_closed "$1"; }

# The window manager gives the focus to nobody when two windows close at once.
turns_to() {
    wait_until finds "$1"
    xdotool windowactivate --sync "$window"
    appears "$1"
}

# clicks TITLE X Y [TIMES]: at a place of the window in pixels of 96 to the inch.
clicks() {
    wait_until finds "$1"
    xdotool mousemove --window "$window" $(($2 * dpi / 96)) $(($3 * dpi / 96)) click --repeat "${4:-1}" --delay 50 1
}

# A picture of the window in front, with its frame.
takes_picture() {
    sleep 0.3
    import -frame -window "$(xdotool getactivewindow)" "$pictures/$1-$dpi.png"
}

# --- the maintenance windows -----------------------------------------------------------------------------------------

# opens METHOD [COMPANY | FOLDER]: in a host with the plainest message loop.
opens() { windows "$host" "$1" "$database" "${@:2}" > "$work/said-$dpi-$1" & }

host_ends() { expect "el anfitrión termina" wait %%; }

closes() {
    appears "$1"
    press alt+F4
    disappears "$1"
    host_ends
}

clicks_new() { clicks "$1" 40 14; }

# reads TITLE PICTURE: a message, which is then closed.
reads() {
    appears "$1"
    takes_picture "$2"
    press Return
}

# saves FORM PICKER
saves() {
    press alt+a
    confirms "$@"
}

# Answers the question of saving and reads the message; the picker comes back.
confirms() {
    appears 'Mensaje...'
    press Return
    appears Aviso
    press Return
    disappears "$1"
    turns_to "$2"
}
