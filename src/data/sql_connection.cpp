#include "data/sql_connection.h"

#include <cstdlib>
#include <set>
#include <utility>

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QThread>

namespace {

// A connection that has rested so long is asked before it is used, in milliseconds.
constexpr int riposo = 1000;
// A connection lost later than this was waited for in vain: sending again would only double the wait.
constexpr int perditaImmediata = 1000;
// Between two tries, at first and later, in milliseconds.
constexpr int pausaBreve = 5;
constexpr int pausaLunga = 25;
constexpr int attesaBreve = 50;

const char* const testoTransazioneAnnullata = "La transazione è stata annullata dal server.";

// QtSql's own globals go before the gateway does: the connections must be closed by then. The set outlives
// both.
using DatabaseQt = std::optional<QSqlDatabase>;
std::set<DatabaseQt*>& aperti() {
    static auto& tutti = *new std::set<DatabaseQt*>;
    return tutti;
}

void dimentica(DatabaseQt& database) {
    const QString nome = database->connectionName();
    database.reset();
    QSqlDatabase::removeDatabase(nome);
}

void chiudiAllaFine() {
    for (DatabaseQt* database : std::exchange(aperti(), {}))
        dimentica(*database);
}

DatabaseQt nuovoDatabase(const QString& pluginQt) {
    static int numero = 0;
    auto database = QSqlDatabase::addDatabase(pluginQt, "bottegon" + QString::number(++numero));
    database.setNumericalPrecisionPolicy(QSql::HighPrecision);
    static const int registrata = std::atexit(chiudiAllaFine);
    Q_UNUSED(registrata);
    return database;
}

bool soloLettura(const QString& sql) {
    const QStringView testo = QStringView(sql).trimmed();
    return testo.startsWith(u"SELECT", Qt::CaseInsensitive);
}

}  // namespace

ConnessioneSql::ConnessioneSql(const QString& pluginQt, QString luogo, const int& attesaMassima)
    : mLuogo(std::move(luogo)), mAttesaMassima(attesaMassima), mDatabase(nuovoDatabase(pluginQt)) {
    aperti().insert(&mDatabase);
}

ConnessioneSql::~ConnessioneSql() {
    if (aperti().erase(&mDatabase) > 0) dimentica(mDatabase);
}

// ---- Open and closed

bool ConnessioneSql::connetti() {
    mErrore = {};
    if (apriSessione()) {
        mProvata = true;
        mUltimaRisposta.start();
        return true;
    }
    chiudi();
    return false;
}

void ConnessioneSql::chiudi() {
    mDatabase->close();
    mProvata = false;
    if (mTransazione == Transazione::Aperta) mTransazione = Transazione::Perduta;
}

bool ConnessioneSql::riapri() {
    chiudi();
    return connetti();
}

bool ConnessioneSql::ancoraValida() {
    if (!mDatabase->isOpen()) return false;
    mProvata = false;
    return mUltimaRisposta.elapsed() < riposo || assicura();
}

bool ConnessioneSql::daTenere() {
    mAttesa = {};
    return annulla() && mDatabase->isOpen();
}

// For what may not be sent twice: this connection answers, or a new one does. A server that has kept silent
// is not waited for again.
bool ConnessioneSql::assicura() {
    if (mProvata) return true;
    QElapsedTimer attesa;
    attesa.start();
    mProvata = mDatabase->isOpen() && pronta();
    if (mProvata) mUltimaRisposta.start();
    return mProvata || (attesa.elapsed() < perditaImmediata && riapri());
}

// ---- Statements

bool ConnessioneSql::fallita(ErroreServer errore) {
    mErrore = std::move(errore);
    if (mErrore.classe == ErroreServer::Classe::ConnessionePersa) chiudi();
    return false;
}

bool ConnessioneSql::spedisci(const QString& sql, Recordset* righe) {
    mErrore = {};
    if (sondaIstruzioni()) {
        if (auto errore = sondaIstruzioni()(sql)) return fallita(*errore);
    }
    if (!inviabile(sql, mDatabase->driverName(), mErrore)) return false;
    QSqlQuery query(*mDatabase);
    query.setForwardOnly(true);
    if (!query.exec(sql)) return fallita(erroreDi(query.lastError(), &query));
    return leggiRisultati(query, righe);
}

// A batch may answer several times: the first rows count, and an error in any part is the batch's.
bool ConnessioneSql::leggiRisultati(QSqlQuery& query, Recordset* righe) {
    mRigheModificate = query.numRowsAffected();
    Recordset lette;
    do {
        if (righe == nullptr || !query.isSelect() || lette.campi() > 0) continue;
        QStringList colonne;
        const QSqlRecord record = query.record();
        for (int i = 0; i < record.count(); ++i)
            colonne.append(record.fieldName(i));
        lette = Recordset(std::move(colonne), celleDi(query, tipiColonne(query)));
        if (query.lastError().isValid()) break;
    } while (query.nextResult());
    if (query.lastError().isValid()) return fallita(erroreDi(query.lastError(), &query));
    if (righe != nullptr) *righe = std::move(lette);
    mProvata = true;
    mUltimaRisposta.start();
    return true;
}

bool ConnessioneSql::eseguiNativo(const QString& sql, Recordset* righe) {
    if (mTransazione == Transazione::Perduta) {
        mErrore = {ErroreServer::Classe::Conflitto, 0, testoTransazioneAnnullata, mDatabase->driverName()};
        return false;
    }
    const bool lettura = soloLettura(sql);
    const bool daAssicurare = mTransazione == Transazione::Nessuna && (!lettura || !mDatabase->isOpen());
    if (daAssicurare && !assicura()) return false;
    QElapsedTimer inizio;
    inizio.start();
    bool riaperta = false;
    while (!spedisci(sql, righe)) {
        if (!siPuoRipetere(lettura && !riaperta, inizio)) {
            if (mTransazione == Transazione::Aperta) mTransazione = Transazione::Perduta;
            return false;
        }
        if (mDatabase->isOpen()) continue;
        riaperta = true;
        if (!connetti()) return false;
    }
    return true;
}

bool ConnessioneSql::siPuoRipetere(bool lettura, const QElapsedTimer& inizio) {
    if (mTransazione != Transazione::Nessuna && !siPuoRipetereDentro()) return false;
    switch (mErrore.classe) {
        case ErroreServer::Classe::ConnessionePersa:
            return lettura && inizio.elapsed() < perditaImmediata;
        case ErroreServer::Classe::Conflitto:
            return pazienta(inizio);
        default:
            return false;
    }
}

// After the first error in a transaction nothing more runs in it but the rollback: a server that has rolled
// back by itself would commit what comes next statement by statement. Only a wait for a lock may go on, where
// the server promises that it left no trace and then says that the transaction stands.
bool ConnessioneSql::siPuoRipetereDentro() {
    if (mErrore.classe != ErroreServer::Classe::Conflitto || !attesaSenzaTraccia()) return false;
    const ErroreServer errore = mErrore;
    const bool viva = verificaTransazione();
    mErrore = errore;
    return viva;
}

bool ConnessioneSql::pazienta(const QElapsedTimer& inizio) const {
    const auto trascorsi = static_cast<int>(inizio.elapsed());
    if (trascorsi >= mAttesaMassima) return false;
    if (mAttesa) mAttesa(trascorsi);
    QThread::msleep(trascorsi < attesaBreve ? pausaBreve : pausaLunga);
    return true;
}

// ---- The turn

bool ConnessioneSql::inizia() {
    if (mTransazione != Transazione::Nessuna || !(mDatabase->isOpen() || connetti())) return false;
    QElapsedTimer inizio;
    inizio.start();
    bool riaperta = false;
    Turno turno = Turno::Occupato;
    while ((turno = prendiTurno()) != Turno::Preso) {
        if (turno == Turno::Occupato) {
            if (pazienta(inizio)) continue;
            chiudi();
            mErrore = {ErroreServer::Classe::Conflitto, 0,
                       QString("Un'altra cassa sta salvando: il turno non si è liberato in %1 secondi. "
                               "Riprovare.")
                           .arg(mAttesaMassima / 1000.0),
                       mDatabase->driverName()};
            return false;
        }
        const bool persa = mErrore.classe == ErroreServer::Classe::ConnessionePersa;
        if (!persa || riaperta || inizio.elapsed() >= perditaImmediata || !connetti()) break;
        riaperta = true;
    }
    if (turno == Turno::Preso && apriTransazione()) {
        mTransazione = Transazione::Aperta;
        return true;
    }
    chiudi();
    return false;
}

bool ConnessioneSql::conferma() {
    mErrore = {};
    if (!inTransazione() || !verificaTransazione()) {
        if (mErrore.classe != ErroreServer::Classe::ConnessionePersa) {
            mErrore = {ErroreServer::Classe::Conflitto, 0, testoTransazioneAnnullata,
                       mDatabase->driverName()};
        }
        return false;
    }
    if (chiudiTransazione(true)) {
        mTransazione = Transazione::Nessuna;
        if (!lasciaTurno()) chiudi();
        return true;
    }
    if (mErrore.classe == ErroreServer::Classe::ConnessionePersa) {
        mErrore.classe = ErroreServer::Classe::EsitoIgnoto;
        mErrore.descrizione = "La risposta del server alla conferma non è arrivata. " + mErrore.descrizione;
    }
    return false;
}

// A connection that cannot roll back is closed, and then its server does.
bool ConnessioneSql::annulla() {
    if (std::exchange(mTransazione, Transazione::Nessuna) == Transazione::Nessuna) return true;
    if (mDatabase->isOpen() && !(chiudiTransazione(false) && lasciaTurno())) chiudi();
    return true;
}
