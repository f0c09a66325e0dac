#!/bin/bash
# Measures the start of the release program on the demo shop, on a virtual display: milliseconds from the
# start of the process to its visible window and to the row of the first scan, and resident memory then; median
# of RUNS (default 9). Whoever rings up scans again until the row is there, and so does this script: a scan that
# comes before the window has the keys is lost.
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

openbox >/dev/null 2>&1 &
gestore=$!
until xdotool get_num_desktops >/dev/null 2>&1; do sleep 0.05; done

# The program writes down what is being rung up as soon as there is a row.
rigaScritta() { compgen -G "$XDG_CONFIG_HOME/Orbelune/vendite_aperte_*.giornale" >/dev/null; }
scansiona() { xdotool key --delay 1 dollar 8 0 0 9 0 0 0 0 0 0 0 1 2 Return; }

millisecondi() { echo $(($(date +%s%N) / 1000000)); }
mediana() { sort -n | sed -n "$(((prove + 1) / 2))p"; }

for ((i = 0; i <= prove; ++i)); do
    inizio=$(millisecondi)
    env -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb build/release/bin/bottegon >/dev/null 2>&1 &
    programma=$!
    until xdotool search --onlyvisible --name 'Client di vendita al banco' >/dev/null 2>&1; do
        kill -0 "$programma" || exit 1
    done
    visibile=$(millisecondi)
    until rigaScritta; do
        kill -0 "$programma" || exit 1
        scansiona
        for attesa in 1 2 3 4 5; do rigaScritta || sleep 0.01; done
    done
    fine=$(millisecondi)
    memoria=$(awk '/^VmRSS/ { print $2 }' "/proc/$programma/status")
    # Asked to end it would offer to save the sale.
    kill -9 "$programma"
    wait "$programma" 2>/dev/null || true
    rm -f "$XDG_CONFIG_HOME"/Orbelune/vendite_aperte_*
    # The first start fills the caches and does not count.
    [ "$i" -eq 0 ] || echo "$((visibile - inizio)) $((fine - inizio)) $memoria"
done >"$cartellaSessione/misure"
kill "$gestore" "$schermo"
echo "start to visible window: $(cut -d' ' -f1 "$cartellaSessione/misure" | mediana) ms"
echo "start to the row of the first scan: $(cut -d' ' -f2 "$cartellaSessione/misure" | mediana) ms"
echo "resident memory: $(($(cut -d' ' -f3 "$cartellaSessione/misure" | mediana) / 1024)) MiB"
