# The assertions of the shell tests, to be sourced; a test ends with end_of_checks.
checks=0 failures=0

# expect WHAT COMMAND [ARGUMENT]…
expect() {
    local what=$1
    shift
    checks=$((checks + 1))
    "$@" && return
    failures=$((failures + 1))
    echo "FALLA: $what"
}

end_of_checks() {
    echo "FIN: $checks comprobaciones, $failures fallas"
    [ "$failures" = 0 ]
}

# A user at a screen of the test bed: plays SECONDS SCRIPT [ARGUMENT]…, whose words go to $work/said too.
plays() {
    "$runner" --display session "$@" | tee "$work/said"
    grep -q 'FIN: [1-9][0-9]* comprobaciones, 0 fallas$' "$work/said"
}

windows_path() { echo "Z:${1//\//\\}"; }

# system_folder 64|32: where the system's programs of that bitness lie.
system_folder() { [ "$1" = 64 ] && echo 'C:\windows\system32' || echo 'C:\windows\syswow64'; }
