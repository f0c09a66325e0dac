#!/bin/bash
# The demonstration sale on an archive made for it.
#   demo_test.sh PROGRAM ARCHIVE_TOOL [FOLDER]      the pictures are kept in FOLDER
set -euo pipefail
qui=$(realpath "$(dirname "$0")")
cartella=$(mktemp -d)
trap 'rm -rf "$cartella"' EXIT
"$2" crea --demo "$cartella/prova.mdb"
env -u DISPLAY -u QT_QPA_PLATFORM "$qui/demo.sh" "$1" "$2" "$cartella/prova.mdb" "${3:-$cartella/foto}"
