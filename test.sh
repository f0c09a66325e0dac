#!/bin/bash
# Builds and runs all tests, then again under the address and undefined-behaviour sanitizers.
#   ./test.sh            the suite
#   ./test.sh --lungo    the suite, then the long runs
set -euo pipefail
cd "$(dirname "$0")"
. scripts/ambiente.sh

lungo=no
case "${1:-}" in
    "") ;;
    --lungo) lungo=si ;;
    *)
        echo "Usage: $0 [--lungo]" >&2
        exit 2
        ;;
esac

# prova PRESET OPTION...
prova() {
    local preset=$1
    shift
    ctest --preset "$preset" -j "$processi" --output-on-failure --no-tests=error "$@"
}

installaMancanti "${pacchettiCostruzione[@]}" "${pacchettiProva[@]}"
if [ $lungo = si ]; then installaMancanti "${pacchettiSchermoVirtuale[@]}"; fi
apriSessione
export QT_QPA_PLATFORM=offscreen

costruisci release
if [ $lungo = si ]; then prova release -L lungo; fi
prova release -LE lungo
costruisci asan
prova asan -LE lungo
