#!/bin/bash
# Rings up a sale through the real window, on a virtual display: scans, keys, a removed row, F5. Leaves
# pictures in FOLDER. Succeeds only when the archive then holds the sale with the rows that were scanned
# and passes its own check, and the program has ended by itself.
#   demo.sh PROGRAM ARCHIVE_TOOL ARCHIVE FOLDER
set -euo pipefail

programma=$(realpath "$1")
strumento=$(realpath "$2")
registratore=$(dirname "$programma")/prgECRSimulatore
scontrini=$(dirname "$programma")/Scontrini
archivio=$(realpath "$3")
mkdir -p "$4"
cartella=$(realpath "$4")
cd "$(dirname "$0")/.."
. scripts/ambiente.sh

limite=60  # seconds for any one thing to happen
nomeFinestra='Client di vendita al banco'
pidProgramma=

fallito() {
    echo "FAILED: $*" >&2
    if [ -n "${DISPLAY:-}" ]; then foto failed || true; fi
    exit 1
}

# aspetta WHAT COMMAND...: until the command succeeds.
aspetta() {
    local cosa=$1 fine=$((SECONDS + limite))
    shift
    until "$@" >/dev/null 2>&1; do
        [ -z "$pidProgramma" ] || programmaVivo || fallito "the program ended while waiting for: $cosa"
        [ $SECONDS -lt $fine ] || fallito "waited $limite s for: $cosa"
        sleep 0.1
    done
}

foto() { import -silent -window root "$cartella/$1.png"; }

# Two pictures of the screen taken one after the other are the same.
schermoFermo() {
    local diversi
    foto .prima
    sleep 0.4
    foto .dopo
    diversi=$(compare -metric AE "$cartella/.prima.png" "$cartella/.dopo.png" null: 2>&1) || true
    rm -f "$cartella/.prima.png" "$cartella/.dopo.png"
    [ "${diversi%%[. e]*}" -lt 200 ]  # a caret may blink
}

fotoFerma() {
    aspetta "the screen to settle" schermoFermo
    foto "$1"
}

# ---- Display, window manager, program: each ends with this script

avviati=()
chiudiTutto() {
    local pid
    for pid in "${avviati[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$cartellaSessione"
}

apriSchermo() {
    local numero=$cartellaSessione/display
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$numero" 2>"$cartella/xvfb.log" &
    avviati+=($!)
    aspetta "the virtual display" test -s "$numero"
    DISPLAY=:$(cat "$numero")
    export DISPLAY
    openbox >"$cartella/openbox.log" 2>&1 &
    avviati+=($!)
    aspetta "the window manager" xdotool get_num_desktops
}

# A desk of its own, on this archive.
preparaPostazione() {
    export XDG_CONFIG_HOME=$cartella/config
    rm -rf "$XDG_CONFIG_HOME"
    # A new desk looks one folder above the program; any other place stands in its settings.
    [ "$archivio" -ef "$(dirname "$programma")/../Bottegon.mdb" ] && return 0
    mkdir -p "$XDG_CONFIG_HOME/Orbelune"
    printf '[Server]\nPath=%s\n' "$archivio" >"$XDG_CONFIG_HOME/Orbelune/prgBottegon.ini"
}

# The simulated register, when it lies beside the program, on a port that nobody else is likely to use.
preparaRegistratore() {
    [ -x "$registratore" ] || return 0
    mkdir -p "$XDG_CONFIG_HOME/Orbelune"
    printf '[Client]\nTCPPort=%s\n' $((20000 + RANDOM % 10000)) \
        >"$XDG_CONFIG_HOME/Orbelune/prgBottegonClientVB.ini"
    "$registratore" --collega
    scontriniPrima=$(elencoScontrini)
}

apriProgramma() {
    env -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb "$programma" >"$cartella/bottegon.log" 2>&1 &
    pidProgramma=$!
    avviati+=("$pidProgramma")
    aspetta "the counter" finestraDavanti "$nomeFinestra"
}

# The register has printed; its strip came up without taking the focus from the counter.
elencoScontrini() { [ ! -d "$scontrini" ] || find "$scontrini" -name '*.txt' | sort; }
scontrinoStampato() { [ "$(elencoScontrini)" != "$scontriniPrima" ]; }

# The active window has a name that matches.
finestraDavanti() { xdotool getactivewindow getwindowname | grep -q "$1"; }

# ---- What the shop assistant does

premi() { xdotool key --clearmodifiers "$@"; }

# The scanner types its prefix, the digits and Enter.
scansiona() {
    premi dollar
    xdotool type --delay 8 "$1"
    premi Return
}

quantita() {
    xdotool type --delay 8 "$1"
    premi Return
}

# togliRiga PICTURE DIGITS: a scan comes while the question is on its way up. It is kept until that is answered.
togliRiga() {
    xdotool key --clearmodifiers --delay 0 F9 type --delay 1 --args 1 "\$$2" key --delay 0 Return
    aspetta "the question about the row" finestraDavanti '^Bottegon$'
    fotoFerma "$1"
    premi alt+s
    aspetta "the counter after the question" finestraDavanti "$nomeFinestra"
}

# Barcode of the n-th product of the demonstration shop: twelve digits and the EAN-13 check digit.
codiceDemo() {
    local cifre i somma=0
    cifre=$(printf '8009000000%02d' "$1")
    for i in {0..11}; do somma=$((somma + ${cifre:i:1} * (i % 2 ? 3 : 1))); done
    echo "$cifre$(((10 - somma % 10) % 10))"
}

viti=1 martello=2 pentola=3 lampadina=4 basilico=9

venditaDimostrativa() {
    fotoFerma 1_start
    scansiona "$(codiceDemo $viti)"
    scansiona "$(codiceDemo $martello)"
    scansiona "$(codiceDemo $viti)"
    scansiona "$(codiceDemo $lampadina)"
    quantita 3
    scansiona "$(codiceDemo $basilico)"
    scansiona "$(codiceDemo $pentola)"
    fotoFerma 2_rows
    togliRiga 3_question "$(codiceDemo $martello)"
    fotoFerma 4_before_save
    premi F5
    aspetta "the saved sale in the archive" nuovaVendita
    [ ! -x "$registratore" ] || aspetta "the receipt" scontrinoStampato
    fotoFerma 5_saved
}

chiudiProgramma() {
    premi F10
    aspetta "the program to end" programmaFinito
    wait "$pidProgramma" || fallito "the program ended with code $?"
}

programmaVivo() { kill -0 "$pidProgramma" 2>/dev/null; }
programmaFinito() { ! programmaVivo; }

# ---- What the archive says

ultimaVendita() { "$strumento" vendite "$archivio" --ultime 1; }
nuovaVendita() { [ "$(ultimaVendita)" != "$venditaPrima" ]; }

# Product code and quantity of each row of a printed sale, in order, and its total.
righeVendita() {
    awk '$1 ~ /^[0-9]+$/ { for (i = 3; i <= NF; ++i) if ($i == "x") { print $2, $(i - 1); next } }
         /Totale vendita/ { print "Totale", $3 }'
}

# 2 x 5,32 + 2 x 13,11 + 3 x 3,27 with 22 % of VAT, 2,38 with 5 %, each row to the cent.
righeAttese='VITI440 2,00
MART500 2,00
LED10C 3,00
BASIL14 1,00
Totale 59,44'

controllaArchivio() {
    local vendita righe
    vendita=$(ultimaVendita)
    echo "$vendita"
    righe=$(righeVendita <<<"$vendita")
    [ "$righe" = "$righeAttese" ] || fallito "rows in the archive:"$'\n'"$righe"$'\n'"expected:"$'\n'"$righeAttese"
    "$strumento" verifica "$archivio" || fallito "the archive does not pass its check"
}

apriSessione
trap chiudiTutto EXIT
rm -f "$cartella"/*.png "$cartella"/*.log
venditaPrima=$(ultimaVendita)
apriSchermo
preparaPostazione
preparaRegistratore
apriProgramma
venditaDimostrativa
chiudiProgramma
controllaArchivio
[ ! -x "$registratore" ] || cat "$(elencoScontrini | tail -n 1)"
echo "Pictures are in $cartella"
