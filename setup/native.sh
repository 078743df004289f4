#!/bin/bash
# Installs what the native edition and its tests need.
. "$(dirname "$0")/common.sh"

install_packages g++ make cmake ninja-build pkg-config openssl sqlite3 \
    libsqlite3-dev libxml2-dev libfmt-dev libcli11-dev libtomlplusplus-dev \
    unixodbc-dev tdsodbc libsqliteodbc \
    libexpat1-dev libssl-dev libhpdf-dev zlib1g-dev libfontconfig-dev libpng-dev libturbojpeg0-dev libgif-dev libcups2-dev cups-ipp-utils dbus-daemon \
    fonts-liberation poppler-utils \
    libgtest-dev libgmock-dev libbenchmark-dev
