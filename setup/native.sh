#!/bin/bash
# Installs what the native edition and its tests need.
. "$(dirname "$0")/common.sh"

install_packages g++ make cmake ninja-build pkg-config openssl sqlite3 \
    libsqlite3-dev libxml2-dev libfmt-dev libcli11-dev libtomlplusplus-dev \
    unixodbc-dev tdsodbc libsqliteodbc \
    libgtest-dev libgmock-dev libbenchmark-dev
