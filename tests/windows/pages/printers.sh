# Printers of a spooler of its own inside the test bed, to be sourced; Wine offers them to Windows programs.
spool=$(mktemp -d)

start_spooler() {
    mkdir -p "$spool"/{jobs/tmp,cache,state,root,log}
    cat > "$spool/files.conf" <<- FILE
		ServerRoot $spool/root
		RequestRoot $spool/jobs
		CacheDir $spool/cache
		StateDir $spool/state
		TempDir $spool/jobs/tmp
		AccessLog $spool/log/access
		ErrorLog $spool/log/error
		PageLog $spool/log/page
		SystemGroup sys
		FileDevice Yes
	FILE
    cat > "$spool/cupsd.conf" <<- FILE
		Listen $spool/socket
		Browsing Off
		WebInterface No
		PreserveJobFiles Yes
		DirtyCleanInterval 0
		<Location />
		  Allow all
		</Location>
		<Policy default>
		  <Limit All>
		  </Limit>
		</Policy>
	FILE
    setpriv --pdeathsig TERM /usr/sbin/cupsd -f -c "$spool/cupsd.conf" -s "$spool/files.conf" &
    export CUPS_SERVER=$spool/socket
    local tries
    for ((tries = 0; tries < 100; tries++)); do
        [ ! -S "$CUPS_SERVER" ] || return 0
        sleep 0.1
    done
    echo "cupsd no arrancó" >&2
    return 1
}

# add_printer NAME: its paper goes nowhere, its jobs stay in the spooler.
add_printer() { lpadmin -p "$1" -E -v file:///dev/null -m raw 2> /dev/null; }

# What the spooler keeps of job NUMBER: how it was asked for, and what was to be printed.
request_of() { printf '%s/jobs/c%05d' "$spool" "$1"; }
document_of() { printf '%s/jobs/d%05d-001' "$spool" "$1"; }
number_of_jobs() { find "$spool/jobs" -name 'c*' | wc -l; }

# asks_for NUMBER PATTERN: what the request of a job holds.
asks_for() { LC_ALL=C grep -qaP "$2" "$(request_of "$1")"; }

# --- what is on the paper --------------------------------------------------------------------------------------------

# draw FILE NAME: NAME-1.png, NAME-2.png, …, one for each page, upright.
draw() { gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=png16m -r100 -dTextAlphaBits=4 -dGraphicsAlphaBits=4 -sOutputFile="$2-%d.png" "$1"; }

# Both pictures show the same in the same places: nowhere do they differ by more than the edge of a letter. Shifted by
# three pixels they do (0.33).
look_alike() {
    local difference
    difference=$(compare -metric PAE <(convert "$1" -blur 0x4 png:-) <(convert "$2" -blur 0x4 png:-) null: 2>&1) || true
    difference=${difference##*(}
    echo "$1: difieren en ${difference%)} cuando más"
    awk -v difference="${difference%)}" 'BEGIN { exit !(difference != "" && difference < 0.2) }'
}
