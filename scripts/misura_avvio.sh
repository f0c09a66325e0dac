#!/bin/bash
# Measures the start of the release program on the demo shop, on a virtual display: milliseconds from the
# start of the process to its visible window, and resident memory then; median of RUNS (default 9).
#   misura_avvio.sh [RUNS]
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/ambiente.sh
prove=${1:-9}

installaMancanti "${pacchettiCostruzione[@]}" "${pacchettiSchermoVirtuale[@]}"
apriSessione
costruisci release bottegon bottegon-archivio >/dev/null
export XDG_CONFIG_HOME=$cartellaSessione/config
build/release/bin/bottegon-archivio crea --demo "$cartellaSessione/demo.mdb" >/dev/null
mkdir -p "$XDG_CONFIG_HOME/Orbelune"
printf '[Server]\nPath=%s\n' "$cartellaSessione/demo.mdb" >"$XDG_CONFIG_HOME/Orbelune/prgBottegon.ini"

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$cartellaSessione/display" 2>/dev/null &
schermo=$!
until [ -s "$cartellaSessione/display" ]; do sleep 0.05; done
DISPLAY=:$(cat "$cartellaSessione/display")
export DISPLAY
until xdotool getmouselocation >/dev/null 2>&1; do sleep 0.05; done

millisecondi() { echo $(($(date +%s%N) / 1000000)); }
mediana() { sort -n | sed -n "$(((prove + 1) / 2))p"; }

for ((i = 0; i <= prove; ++i)); do
    inizio=$(millisecondi)
    env -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb build/release/bin/bottegon >/dev/null 2>&1 &
    programma=$!
    until xdotool search --onlyvisible --name 'Client di vendita al banco' >/dev/null 2>&1; do
        kill -0 "$programma" || exit 1
    done
    fine=$(millisecondi)
    memoria=$(awk '/^VmRSS/ { print $2 }' "/proc/$programma/status")
    kill "$programma"
    wait "$programma" 2>/dev/null || true
    # The first start fills the caches and does not count.
    [ "$i" -eq 0 ] || echo "$((fine - inizio)) $memoria"
done >"$cartellaSessione/misure"
kill "$schermo"
echo "start to visible window: $(cut -d' ' -f1 "$cartellaSessione/misure" | mediana) ms"
echo "resident memory: $(($(cut -d' ' -f2 "$cartellaSessione/misure" | mediana) / 1024)) MiB"
