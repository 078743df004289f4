# Reads the table of rooms in docs/architecture.md, then every source. Each room of the table must exist; each source
# must lie in one of them and include only what the table lets that room include.
#   awk -f rooms.awk docs/architecture.md SOURCE…
BEGIN { FS = "|" }

function complain(what) { print FILENAME ":" FNR ": " what; faults++ }

# The innermost room that a path lies in; empty when there is none.
function room_of(path) {
    while (path != "" && !(path in may_include)) if (!sub(/\/[^\/]*$/, "", path)) path = ""
    return path
}

# A room: | `its/`, `names/` | `what/`, `they/` may include, "and below" with all that those may include | contents |
NR == FNR && /^[|] `/ && NF == 5 {
    gsub(/\/?`,?/, " ")
    allowed = $3
    if ($3 ~ /and below/) for (i = split($3, below, " "); i > 0; i--) allowed = allowed " " may_include[below[i]]
    for (i = split($2, names, " "); i > 0; i--) {
        may_include[names[i]] = " " allowed " "
        if (system("test -d " names[i]) != 0) complain("there is no room " names[i] "/")
    }
}

NR == FNR { next }

FNR == 1 {
    room = room_of(FILENAME)
    if (room == "") complain("docs/architecture.md names no room for this file")
}

room != "" && /^#include ["<]/ && may_include[room] !~ / everything / {
    split($0, parts, /["<>]/)
    sub(/^tolvex\//, "include/tolvex/", parts[2])
    included = room_of(parts[2])
    if (parts[2] ~ /^\.\./ || (included != "" && included != room && !index(may_include[room], " " included " ")))
        complain(room "/ may not include " parts[2])
}

END { exit faults > 0 }
