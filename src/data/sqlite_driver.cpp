#include "data/sqlite_driver.h"

#include <algorithm>

namespace {

// More than nested reads ever need at once.
constexpr size_t caldeMassime = 4;

}  // namespace

QString percorsoArchivio(const QString& stringaConnessione) {
    const QString chiave = "Data Source=";
    const auto inizio = stringaConnessione.indexOf(chiave, 0, Qt::CaseInsensitive);
    if (inizio < 0) return {};
    const auto valore = inizio + chiave.size();
    // A path may hold a semicolon: only the known next key ends it.
    auto fine = stringaConnessione.indexOf(";Persist Security Info=", valore, Qt::CaseInsensitive);
    if (fine < 0) fine = stringaConnessione.size();
    return stringaConnessione.mid(valore, fine - valore);
}

std::unique_ptr<SqliteConnection> SqliteDriver::prendiCalda(const QString& percorso) {
    std::erase_if(mCalde, [](const auto& calda) { return !calda->ancoraValida(); });
    const auto trovata = std::find_if(mCalde.rbegin(), mCalde.rend(),
                                      [&](const auto& calda) { return calda->percorso() == percorso; });
    if (trovata == mCalde.rend()) return nullptr;
    auto connessione = std::move(*trovata);
    mCalde.erase(std::next(trovata).base());
    return connessione;
}

std::unique_ptr<Connessione> SqliteDriver::apri(const QString& stringaConnessione, int /*secondi*/,
                                                const AttesaServer& attesa, ErroreServer& errore) {
    const QString percorso = percorsoArchivio(stringaConnessione);
    auto connessione = prendiCalda(percorso);
    if (!connessione) connessione = SqliteConnection::apri(percorso, errore);
    if (connessione) connessione->impostaAttesa(attesa);
    return connessione;
}

void SqliteDriver::restituisci(std::unique_ptr<Connessione> connessione) {
    auto* sqlite = dynamic_cast<SqliteConnection*>(connessione.get());
    if (sqlite == nullptr || mCalde.size() >= caldeMassime) return;
    if (sqlite->inTransazione() && !sqlite->annulla()) return;
    connessione.release();
    mCalde.emplace_back(sqlite);
}
