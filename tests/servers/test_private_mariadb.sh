#!/bin/bash
# The private server goes with the test run that it serves, also when that is killed, and two runs do not
# disturb each other.
set -euo pipefail
script=$(realpath "$(dirname "$0")")/private_mariadb.sh
stato=$(mktemp -d)
trap 'kill -KILL "${prima:-}" "${seconda:-}" 2>/dev/null || true; rm -rf "$stato"' EXIT

# A test run that has started its server and goes on; its folder is written to the file.
corsa() {
    bash -c '"$1" start "$2" && . "$2/$$" && echo "$cartella" >"$3" && while :; do read -r -t 1 <> <(:) || true; done' \
        corsa "$script" "$stato" "$1" &
}

# aspetta MESSAGE CONDITION...
aspetta() {
    local messaggio=$1 _
    shift
    for _ in {1..600}; do
        if "$@"; then return 0; fi
        read -r -t 0.05 <> <(:) || true
    done
    echo "$messaggio" >&2
    exit 1
}
manca() { [ ! -e "$1" ]; }
risponde() { mariadb --no-defaults -S "$1/s" -u prova -pprova -e "DO 0" >/dev/null 2>&1; }

corsa "$stato/prima.cartella"
prima=$!
corsa "$stato/seconda.cartella"
seconda=$!
aspetta "the first server did not start" test -s "$stato/prima.cartella"
aspetta "the second server did not start" test -s "$stato/seconda.cartella"
una=$(cat "$stato/prima.cartella")
altra=$(cat "$stato/seconda.cartella")

kill -KILL "$prima"
aspetta "a server outlived its run" manca "$una"
risponde "$altra" || {
    echo "the other run lost its server" >&2
    exit 1
}
kill -KILL "$seconda"
aspetta "the second server outlived its run" manca "$altra"
