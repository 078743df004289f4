# A working folder with openssl, a key and a database with master data, for the tests that issue documents:
# sourced with the arguments 64|32 COMPONENT SQL OPENSSL KEYS. TOLVEX_TEST_FOLDER names another place for it.

bits=$1 component=$2 sql=$3 openssl=$4 keys=$5
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
folder=${TOLVEX_TEST_FOLDER:-$(mktemp -d)/Año}

windows() { "$here/../run_in_testbed.sh" "$bits" 60 "$@"; }
windows_path() { echo "Z:${1//\//\\}"; }
script() { "$here/../run_test.sh" "$bits" "$component" --registered "$@"; }

# run_sql FILE
run_sql() { windows "$sql" "$(windows_path "$folder/facturas.db")" "$(windows_path "$1")" | tr -d '\r'; }
query() {
    echo "$1" > "$folder/query.sql"
    run_sql "$folder/query.sql"
}

mkdir "$folder"
cp "$openssl" "$folder/"
cp "$keys/llave.pem" "$folder/pkey.key.pem"
script "$here/prepare.vbs" "$(windows_path "$folder/facturas.db")" > /dev/null
run_sql "$here/master_data.sql"
