#!/bin/bash
# run_installer.sh WORK    inside the test bed, on a Windows of its own: installs, issues, upgrades and uninstalls
#
# WORK holds setup.exe, the unpacked zip and a folder with openssl.exe.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
. "$here/../windows/checks.sh"
work=$1
runner=$here/../windows/run_in_testbed.sh
installed='C:\Program Files\TOLVEX'
classes='HKLM\Software\Classes\TOLVEX.GeneraDocto'

windows() { "$runner" 64 120 "$@" 2> /dev/null | tr -d '\r'; }
windows_32() { "$runner" 32 120 "$@" 2> /dev/null | tr -d '\r'; }
command_line() { windows 'C:\windows\system32\cmd.exe' /c "$@"; }

# --- a Windows of its own: the system's files are the test bed's, registry, programs and users are not ---------------

makes_windows() {
    local original=$WINEPREFIX
    export WINEPREFIX=$work/prefix WINEPATH=$(windows_path "$work/herramientas")
    drive=$WINEPREFIX/drive_c
    mkdir -p "$drive/Program Files" "$drive/Program Files (x86)" "$drive/ProgramData"
    cp -P -r "$original"/{*.reg,dosdevices,.update-timestamp} "$WINEPREFIX"
    ln -s "$original/drive_c/windows" "$drive/windows"
    cp -r "$original/drive_c/users" "$drive/users"
    program_files=$drive/Program\ Files/TOLVEX
}

# Ten seconds at most.
soon() {
    local tries
    for ((tries = 0; tries < 100; tries++)); do "$@" && return || sleep 0.1; done
}

is_registered() { windows reg query "$1" > registered.txt && grep -qi "${2:-TOLVEX}" registered.txt; }
is_not_registered() { ! is_registered "$@"; }
listed='Software\Microsoft\Windows\CurrentVersion\Uninstall\TOLVEX'
in_list_of_programs() { is_registered "$1\\$listed" DisplayVersion; }
not_in_list_of_programs() { ! in_list_of_programs "$1"; }
# What the installer says that it did; its log is UTF-16.
says() { find "$drive/users" -name tolvex-instalacion.txt -exec iconv -f UTF-16 -t UTF-8 {} + | grep -q "$1"; }

# issues FOLIO BITS: a script of the examples, with the component that is registered.
issues() {
    local folder=System32
    [ "$2" = 64 ] || folder=syswow64
    "windows$([ "$2" = 64 ] || echo _32)" "C:\\windows\\$folder\\cscript.exe" //nologo "$3\\examples\\vbscript\\factura.vbs" 'C:\TOLVEX-demo' |
        grep -qx "Folio: $1"
}
verifies() { windows "$1\\bin64\\tolvex.exe" verifica --bd 'C:\TOLVEX-demo\tolvex.db' > /dev/null; }

# --- the installer ---------------------------------------------------------------------------------------------------

installs() {
    expect "el instalador termina bien" windows_32 "$work/setup.exe" /S
    expect "dice lo que hizo" says "quedó instalado para todos los usuarios en C:.Program Files.TOLVEX"
    expect "lo registra" is_registered "$classes\\CLSID" '{'
    expect "está en la lista de programas" in_list_of_programs HKLM
    command_line "$installed\\examples\\demostracion.cmd" > demo.txt
    expect "la demostración" grep -q 'Verified OK' demo.txt
    expect "un guion de 64 bits emite" issues 4 64 "$installed"
    expect "un guion de 32 bits emite" issues 5 32 "$installed"
    expect "la orden de 32 bits" eval 'windows_32 "$installed\\bin32\\tolvex.exe" --version | grep -q tolvex'
    windows 'C:\windows\system32\cscript.exe' //nologo "$installed\\examples\\vbscript\\imprime.vbs" 4 pdf \
        "$installed\\layouts\\factura.rdl" 'C:\TOLVEX-demo' > imprime.txt
    expect "un guion imprime" [ -s "$drive/TOLVEX-demo/FacturaElec_4.pdf" ]
    expect "lo emitido está bien" verifies "$installed"
}

upgrades() {
    touch "$program_files/mis datos.db" "$program_files/bin64/vieja.dll"
    expect "instala encima" windows_32 "$work/setup.exe" /S
    expect "y lo dice" says "Se quita la versión anterior; los datos quedan"
    expect "los datos quedan" [ -e "$program_files/mis datos.db" ]
    expect "sigue emitiendo" issues 6 64 "$installed"
}

# A host keeps the component loaded: nothing may change.
refuses_while_in_use() {
    printf 'Set c = CreateObject("TOLVEX.ConfigFE")\r\nc.SetDatosConexion "", "", "", ""\r\nWScript.Echo "listo"\r\nt = Timer\r\nDo While Timer < t + 8\r\nLoop\r\n' > ocupa.vbs
    "$runner" 64 60 'C:\windows\system32\cscript.exe' //nologo ocupa.vbs > ocupa.txt 2> /dev/null &
    soon grep -q listo ocupa.txt
    local status=0
    windows_32 "$work/setup.exe" /S || status=$?
    expect "se niega mientras un programa la usa" [ "$status" = 2 ]
    expect "y dice por qué" says "está usando C:.Program Files.TOLVEX.bin64.TOLVEX.dll"
    wait
    expect "nada cambió" issues 7 64 "$installed"
}

uninstalls() {
    windows_32 "$installed\\desinstalar.exe" /S
    soon [ ! -e "$program_files/desinstalar.exe" ]
    expect "sólo quedan los archivos ajenos" [ "$(cd "$program_files" && find . -type f | sort | tr '\n' ' ')" = "./bin64/vieja.dll ./mis datos.db " ]
    expect "nada registrado" is_not_registered "$classes"
    expect "fuera de la lista de programas" not_in_list_of_programs HKLM
    expect "sin accesos directos" [ -z "$(find "$drive" -iname '*TOLVEX*.lnk' -o -name TOLVEX -path '*Menu*')" ]
    expect "lo emitido se queda" [ -s "$drive/TOLVEX-demo/Facturas/A4.xml" ]
}

# As the list of programs calls it.
quiet_uninstall() {
    windows reg query "HKCU\\$listed" /v QuietUninstallString | sed -nE 's/.*"(.*)" \/S$/\1/p'
}

installs_for_one_user() {
    expect "para un usuario" windows_32 "$work/setup.exe" /S /usuario
    expect "en su carpeta" eval '[ -n "$(find "$drive/users" -path "*Programs/TOLVEX/bin64/TOLVEX.dll")" ]'
    expect "en su parte del registro" is_registered 'HKCU\Software\Classes\TOLVEX.GeneraDocto\CLSID' '{'
    expect "y no en la de todos" is_not_registered "$classes"
    expect "en su lista de programas" in_list_of_programs HKCU
    windows_32 "$(quiet_uninstall)" /S
    soon not_in_list_of_programs HKCU
    sleep 1
    expect "se quita todo" eval '[ -z "$(find "$drive/users" -path "*Programs/TOLVEX*")" ]'
    expect "también del registro" is_not_registered 'HKCU\Software\Classes\TOLVEX.GeneraDocto'
}

# --- the zip ---------------------------------------------------------------------------------------------------------

unpacks() {
    mv "$work"/zip/tolvex-* "$drive/Tolvex"
    command_line 'C:\Tolvex\instalar.cmd' > instalar.txt
    expect "el zip se registra donde está" grep -q 'Registrado para todos los usuarios: C:.Tolvex.bin64.TOLVEX.dll' instalar.txt
    expect "y emite" issues 8 64 'C:\Tolvex'
    expect "en los dos tamaños" issues 9 32 'C:\Tolvex'
    command_line 'C:\Tolvex\desinstalar.cmd' > /dev/null
    expect "y se quita" is_not_registered "$classes"
    rm "$drive/Tolvex/bin64/TOLVEX.dll"
    expect "sin componente dice que no se pudo" eval '! command_line "C:\\Tolvex\\instalar.cmd" > instalar.txt'
    expect "y con cuál" grep -q 'No se pudo con C:.Tolvex.bin64.TOLVEX.dll' instalar.txt
}

makes_windows
installs
upgrades
refuses_while_in_use
uninstalls
installs_for_one_user
unpacks
/usr/lib/wine/wineserver -k || true
end_of_checks
