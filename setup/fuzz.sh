#!/bin/bash
# Installs what builds the targets of trials/fuzz/ with libFuzzer.
. "$(dirname "$0")/common.sh"

install_packages clang-14 libclang-rt-14-dev
