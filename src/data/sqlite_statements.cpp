#include "data/sqlite_statements.h"

#include <algorithm>
#include <sqlite3.h>

namespace {

// A counter uses some forty; the screens of the back office a few each.
constexpr size_t pronteMassime = 100;

void lega(sqlite3_stmt* istruzione, int posizione, const IstruzioneParametrica::Valore& valore) {
    if (const auto* testo = std::get_if<QByteArray>(&valore)) {
        sqlite3_bind_text64(istruzione, posizione, testo->constData(),
                            static_cast<sqlite3_uint64>(testo->size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    } else if (const auto* intero = std::get_if<qint64>(&valore)) {
        sqlite3_bind_int64(istruzione, posizione, *intero);
    } else {
        sqlite3_bind_double(istruzione, posizione, std::get<double>(valore));
    }
}

}  // namespace

ColonneSqlite::ColonneSqlite(sqlite3_stmt* istruzione) {
    for (int i = 0; i < sqlite3_column_count(istruzione); ++i) {
        const char* tipo = sqlite3_column_decltype(istruzione, i);
        nomi.append(QString::fromUtf8(sqlite3_column_name(istruzione, i)));
        date.push_back(tipo != nullptr && qstricmp(tipo, "DATETIME") == 0);
    }
}

const IstruzioniPronte::Pronta* IstruzioniPronte::trova(sqlite3* db, const QByteArray& testo) {
    const auto nota = mPronte.find(testo);
    if (nota != mPronte.end()) {
        nota->second.uso = ++mUsi;
        return sqlite3_stmt_busy(nota->second.istruzione) == 0 ? &nota->second : nullptr;
    }
    sqlite3_stmt* istruzione = nullptr;
    const char* resto = nullptr;
    const int esito = sqlite3_prepare_v3(db, testo.constData(), static_cast<int>(testo.size()) + 1,
                                         SQLITE_PREPARE_PERSISTENT, &istruzione, &resto);
    if (esito != SQLITE_OK || istruzione == nullptr || !QByteArray(resto).trimmed().isEmpty()) {
        sqlite3_finalize(istruzione);
        return nullptr;
    }
    sfoltisci();
    return &(mPronte[testo] = {istruzione, ColonneSqlite(istruzione), ++mUsi});
}

const IstruzioniPronte::Pronta* IstruzioniPronte::prendi(sqlite3* db, const IstruzioneParametrica& i) {
    const Pronta* pronta = trova(db, i.testo);
    if (pronta == nullptr ||
        sqlite3_bind_parameter_count(pronta->istruzione) != static_cast<int>(i.valori.size()))
        return nullptr;
    int posizione = 0;
    for (const auto& valore : i.valori)
        lega(pronta->istruzione, ++posizione, valore);
    return pronta;
}

void IstruzioniPronte::riponi(sqlite3_stmt* istruzione) {
    sqlite3_reset(istruzione);
    sqlite3_clear_bindings(istruzione);
}

// The one that has rested longest goes.
void IstruzioniPronte::sfoltisci() {
    if (mPronte.size() < pronteMassime) return;
    const auto vecchia = std::min_element(mPronte.begin(), mPronte.end(), [](const auto& a, const auto& b) {
        return a.second.uso < b.second.uso;
    });
    sqlite3_finalize(vecchia->second.istruzione);
    mPronte.erase(vecchia);
}

void IstruzioniPronte::svuota() {
    for (auto& [testo, pronta] : mPronte)
        sqlite3_finalize(pronta.istruzione);
    mPronte.clear();
}
