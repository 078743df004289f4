# A station with windows of $dpi, to be sourced inside the test bed: a Wine prefix with the component registered.
original_prefix=$WINEPREFIX

windows() { "$here/../run_in_testbed.sh" "$bits" 120 "$@"; }

# makes_station PREFIX: its registry and what lies in C:\ are its own, the system's files those of the test bed.
makes_station() {
    export WINEPREFIX=$1
    mkdir -p "$WINEPREFIX/drive_c"
    cp -P -r "$original_prefix"/{*.reg,dosdevices,.update-timestamp} "$WINEPREFIX"
    ln -s "$original_prefix"/drive_c/* "$WINEPREFIX/drive_c"
    windows reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f > /dev/null
    windows "$(system_folder "$bits")\\regsvr32.exe" /s "$(windows_path "$component")"
}

ends_station() { /usr/lib/wine/wineserver -k || true; }
