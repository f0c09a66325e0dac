#!/bin/bash
# Builds the counter and starts it on a demonstration shop. Without a display the same program runs under
# a virtual one, rings up a sale by itself and leaves pictures of it in build/demo.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/ambiente.sh

uscita=build/release
programma=$uscita/bin/bottegon
strumento=$uscita/bin/bottegon-archivio
archivio=$uscita/Bottegon.mdb  # one folder above the program: where a new desk looks for it

installaMancanti "${pacchettiCostruzione[@]}" "${pacchettiEsecuzione[@]}"
costruisci release bottegon bottegon-archivio prgECRSimulatore

# The demonstration shop of an older program is put aside, not thrown away.
if [[ -e $archivio && $("$strumento" verifica "$archivio" || true) == *"altra versione"* ]]; then
    vecchio=$archivio.vecchio-$(date +%Y%m%d-%H%M%S)
    for parte in "" -wal -shm; do
        [ ! -e "$archivio$parte" ] || mv "$archivio$parte" "$vecchio$parte"
    done
fi
[ -e "$archivio" ] || "$strumento" crea --demo "$archivio"

# A desk that has no settings yet begins with those of the demonstration.
impostazioni=${XDG_CONFIG_HOME:-$HOME/.config}/Orbelune/prgBottegonClientVB.ini
if [ ! -e "$impostazioni" ]; then
    mkdir -p "$(dirname "$impostazioni")"
    (umask 077 && printf '[Client]\nNuovaVenditaDopoSalva=1\n' >"$impostazioni")
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    # A desk without a register gets the simulated one, so that there is a receipt to see.
    "$uscita/bin/prgECRSimulatore" --collega
    exec "$programma"
fi
installaMancanti "${pacchettiSchermoVirtuale[@]}"
exec scripts/demo.sh "$programma" "$strumento" "$archivio" build/demo
