# What the scripts of this project share: the Debian packages and how they are installed, builds, and a
# place to run without a display. Sourced by bash; the caller stands in the project's folder.

processi=$(nproc)

# Debian 12 packages by what needs them.
pacchettiCostruzione=(g++ cmake ninja-build ccache pkgconf qt6-base-dev libxcb1-dev libsqlite3-dev libmariadb-dev
    unixodbc-dev libgtest-dev libgmock-dev fonts-dejavu-core fonts-dseg)
# The drivers of the servers, which are loaded when a connection is opened.
pacchettiEsecuzione=(libqt6sql6-mysql libqt6sql6-odbc tdsodbc)
pacchettiProva=("${pacchettiEsecuzione[@]}" python3 clang-format mariadb-server-core mariadb-client-core
    odbc-mariadb libsqliteodbc python3-sqlglot mdbtools)
pacchettiSchermoVirtuale=(xvfb openbox xdotool imagemagick)

comeAmministratore() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

installato() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Installs those of the given packages that are missing; nothing is asked of the network when none is.
installaMancanti() {
    local pacchetto mancanti=()
    for pacchetto in "$@"; do
        installato "$pacchetto" || mancanti+=("$pacchetto")
    done
    [ ${#mancanti[@]} -eq 0 ] && return 0
    echo "Installing: ${mancanti[*]}"
    local installa=(env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends)
    # The package lists are renewed only when those at hand do not do.
    if ! comeAmministratore "${installa[@]}" "${mancanti[@]}" >/dev/null 2>&1; then
        comeAmministratore apt-get update -qq
        comeAmministratore "${installa[@]}" "${mancanti[@]}"
    fi
}

# costruisci PRESET [TARGET...]
costruisci() {
    local preset=$1
    shift
    cmake --preset "$preset"
    cmake --build --preset "$preset" -j "$processi" ${@:+--target "$@"}
}

# Leaves in `cartellaSessione` a folder of our own for sockets and scratch files; it goes with the script.
apriSessione() {
    cartellaSessione=$(mktemp -d)
    chmod 0700 "$cartellaSessione"
    export XDG_RUNTIME_DIR=$cartellaSessione
    trap 'rm -rf "$cartellaSessione"' EXIT
}
