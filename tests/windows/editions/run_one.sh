#!/bin/bash
# run_one.sh 64|32 COMPONENT SCRIPT_HOST ARGUMENT…    inside the test bed: one host; all its documents must be issued
set -euo pipefail

bits=$1
shift 2
said=$("$(dirname "$0")/../run_in_testbed.sh" "$bits" 300 "$@" | iconv -f CP850 -t UTF-8 | tr -d '\r')
echo "$said"
refused=$(grep -c '^Documento: .* Falso' <<< "$said" || true)
[[ $said =~ FIN$ ]] || { echo "el guion no llegó a su fin" && exit 1; }
echo "FIN: $(grep -c '^Documento: ' <<< "$said") comprobaciones, $refused fallas"
