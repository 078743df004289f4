#!/bin/bash
# Installs what looks over the sources. The version is part of the names: another one lays them out differently.
. "$(dirname "$0")/common.sh"

install_packages clang-format-14 clang-tidy-14
