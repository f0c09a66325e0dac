#!/bin/bash
# Fails on the first sources that clang-format would change.
#   check_format.sh CLANG_FORMAT
set -euo pipefail
cd "$(dirname "$0")/.."

cartelle=()
for cartella in src tools tests bench; do
    if [ -d "$cartella" ]; then cartelle+=("$cartella"); fi
done
find "${cartelle[@]}" \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -P "$(nproc)" -n 40 "$1" --dry-run -Werror
