#!/bin/bash
# A private MariaDB for the tests: a folder of its own, a free port of 127.0.0.1 and a socket; no service of
# the machine is touched, and any user may run it. It has one account, prova/prova, that may do everything.
#
#   private_mariadb.sh start STATE           starts it for the calling test run
#   private_mariadb.sh stop STATE            stops it
#   private_mariadb.sh run STATE PROGRAM...  runs a program against it; without a server that was started for
#                                            the calling test run, the program gets one for itself
#   private_mariadb.sh install FOLDER        makes the data folder FOLDER/data
#   private_mariadb.sh serve FOLDER PORT [OPTION...]
#                                            becomes the server on that data folder
#
# The program finds the server by BOTTEGON_PROVA_MYSQL, a connection string without a database, and
# BOTTEGON_PROVA_MYSQL_SOCKET. STATE is a folder of the build; in it each test run (the parent process) has
# its own server, which ends with that run however the run ends.
set -euo pipefail
PATH=$PATH:/usr/sbin
questo=$(realpath "$0")

errore() {
    echo "private_mariadb.sh: $*" >&2
    exit 1
}

# ---- The server itself

installa() {
    mkdir -p "$1"
    local opzioni=(--no-defaults --auth-root-authentication-method=normal --skip-test-db
        --innodb-log-file-size=16M "--datadir=$1/data")
    if [ "$(id -u)" -eq 0 ]; then opzioni+=(--user=root); fi
    # Of its own: a server that starts sweeps the folder for what others left there.
    TMPDIR=$1 mariadb-install-db "${opzioni[@]}" >"$1/install.log" 2>&1 || {
        cat "$1/install.log" >&2
        errore "the data folder could not be made"
    }
    cat >"$1/init.sql" <<'SQL'
CREATE USER IF NOT EXISTS 'prova'@'%' IDENTIFIED BY 'prova';
GRANT ALL PRIVILEGES ON *.* TO 'prova'@'%' WITH GRANT OPTION;
SQL
}

# Quick rather than safe: the data do not outlive the tests. Times are those of the shop's wall.
servi() {
    local cartella=$1 porta=$2
    shift 2
    local opzioni=(--no-defaults "--datadir=$cartella/data" "--socket=$cartella/s" "--port=$porta"
        --bind-address=127.0.0.1 "--pid-file=$cartella/server.pid" "--init-file=$cartella/init.sql"
        "--tmpdir=$cartella" "--log-error=$cartella/server.log" --skip-log-bin --skip-name-resolve
        --character-set-server=utf8mb4 --default-time-zone=+00:00 --performance-schema=off
        --innodb-flush-log-at-trx-commit=0 --innodb-flush-method=nosync --innodb-doublewrite=0
        --innodb-log-file-size=16M --innodb-buffer-pool-size=64M --innodb-stats-persistent=0)
    if [ "$(id -u)" -eq 0 ]; then opzioni+=(--user=root); fi
    exec mariadbd "${opzioni[@]}" "$@" 2>>"$cartella/server.log"
}

# ---- A server for a test run

# When the process was started; a number of a process that has ended may be given again.
nascita() {
    local stato
    stato=$(cat "/proc/$1/stat" 2>/dev/null) || return 1
    set -- ${stato##*)}
    echo "${20}"
}

# In memory when there is room for it, else in the build folder; the path of a socket must stay short.
nuovaCartella() {
    local libero
    libero=$(df --output=avail -k /dev/shm 2>/dev/null | tail -1) || libero=0
    if [ "${libero:-0}" -gt 1048576 ] && [ -w /dev/shm ]; then
        mktemp -d /dev/shm/bottegon-mariadb.XXXXXX
    elif [ ${#1} -lt 80 ]; then
        mktemp -d "$1/mariadb.XXXXXX"
    else
        mktemp -d
    fi
}

# Serves until the server ends or the process that it serves is gone, and leaves nothing behind.
#   sorveglia FOLDER PORT PROCESS BIRTH
sorveglia() {
    bash "$questo" serve "$1" "$2" &
    local server=$!
    trap 'kill $server 2>/dev/null' TERM
    while kill -0 $server 2>/dev/null && [ "$(nascita "$3")" = "$4" ]; do
        sleep 0.5 &
        wait $! || true
    done
    kill $server 2>/dev/null || true
    for _ in {1..50}; do
        kill -0 $server 2>/dev/null || break
        sleep 0.1
    done
    kill -KILL $server 2>/dev/null || true
    wait $server 2>/dev/null || true
    rm -rf "$1"
}

risponde() {
    mariadb --no-defaults -S "$1/s" -u prova -pprova -e "DO 0" >/dev/null 2>&1
}

# Starts a watched server for a process; the port is answered in `porta`, its folder in `cartella`.
#   avvia STATE PROCESS
avvia() {
    local prova
    mkdir -p "$1"
    for _ in {1..10}; do
        cartella=$(nuovaCartella "$1")
        installa "$cartella"
        porta=$((RANDOM % 20000 + 20000))
        setsid bash "$questo" sorveglia "$cartella" "$porta" "$2" "$(nascita "$2")" \
            </dev/null >/dev/null 2>&1 &
        sorvegliante=$!
        for prova in {1..600}; do
            if risponde "$cartella"; then return 0; fi
            kill -0 $sorvegliante 2>/dev/null || break
            sleep 0.05
        done
        # The port may have been another's: the next try takes another one.
        kill $sorvegliante 2>/dev/null || true
    done
    errore "no server came up"
}

scriviStato() {
    cat >"$1" <<FINE
export BOTTEGON_PROVA_MYSQL="Server=127.0.0.1;Port=$porta;Uid=prova;Pwd=prova;"
export BOTTEGON_PROVA_MYSQL_SOCKET="$cartella/s"
cartella="$cartella"
sorvegliante=$sorvegliante
FINE
}

comando=${1:-}
shift || true
case "$comando" in
    install) installa "$@" ;;
    serve) servi "$@" ;;
    sorveglia) sorveglia "$@" ;;
    start)
        avvia "$1" "$PPID"
        scriviStato "$1/$PPID"
        ;;
    stop)
        [ -f "$1/$PPID" ] || exit 0
        . "$1/$PPID"
        rm -f "$1/$PPID"
        kill "$sorvegliante" 2>/dev/null || true
        while [ -d "$cartella" ] && kill -0 "$sorvegliante" 2>/dev/null; do sleep 0.05; done
        ;;
    run)
        stato=$1/$PPID
        shift
        if [ -f "$stato" ]; then
            . "$stato"
        else
            avvia "$(dirname "$stato")" $$
            stato=$(mktemp)
            scriviStato "$stato"
            . "$stato"
            rm -f "$stato"
        fi
        exec "$@"
        ;;
    *)
        sed -n '2,/^set/{s/^# \{0,1\}//;/^set/!p}' "$questo" >&2
        exit 2
        ;;
esac
