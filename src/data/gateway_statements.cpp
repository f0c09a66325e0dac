#include "core/errors.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/server_drivers.h"
#include "data/stored_date.h"

std::unique_ptr<Recordset> cAdoSqlServer::leggi(QString& sql, const QString& sorgente, const char* operazione,
                                                const char* nomeTesto) {
    adatta(sql);
    if (!apriSeServe()) return nullptr;
    auto righe = std::make_unique<Recordset>();
    if (esegui(sql, righe.get())) return righe;
    segnala(operazione, sorgente, nomeTesto + ("=" + sql));
    fallita();
    return nullptr;
}

std::unique_ptr<Recordset> cAdoSqlServer::getNewRecordset(QString& sql, const QString& sorgente,
                                                          int /*tipoCursore*/, int /*tipoBlocco*/,
                                                          int /*posizioneCursore*/) {
    return leggi(sql, sorgente, "getNewRecordset", "SQL");
}

std::unique_ptr<Recordset> cAdoSqlServer::getNewRecordsetByCmd(const QString& testo,
                                                               const QString& sorgente) {
    QString sql = testo;
    return leggi(sql, sorgente, "getNewRecordsetByCmd", "CmdText");
}

std::unique_ptr<Recordset> cAdoSqlServer::getNewRecordsetByCmd(const Comando& comando,
                                                               const QString& sorgente) {
    return getNewRecordsetByCmd(QString(comando.testo).remove("exec", Qt::CaseInsensitive).trimmed(),
                                sorgente);
}

bool cAdoSqlServer::executeSQL(QString& sql, const QString& sorgente) {
    adatta(sql);
    if (!apriSeServe()) return false;
    if (esegui(sql, nullptr)) {
        chiudiSeServe();
        return true;
    }
    if (mErrore.classe == ErroreServer::Classe::Integrita) {
        segnalaIntegrita(true);
    } else {
        segnala("executeSQL", sorgente, "SQL=" + sql);
    }
    return fallita();
}

int cAdoSqlServer::executeSQLWithRA(QString& sql, const QString& sorgente) {
    adatta(sql);
    if (!apriSeServe()) return -1;
    if (esegui(sql, nullptr)) {
        const int righe = mConn->righeModificate();
        chiudiSeServe();
        return righe;
    }
    if (mErrore.classe == ErroreServer::Classe::Integrita) {
        segnalaIntegrita(false);
    } else {
        segnala("executeSQLWithRA", sorgente, "SQL=" + sql);
    }
    fallita();
    return -1;
}

bool cAdoSqlServer::executeCmd(const Comando& comando, const QString& sorgente) {
    QString testo = comando.testo;
    if (!testo.startsWith("exec ", Qt::CaseInsensitive)) testo.prepend("exec ");
    mUltimoSQL = testo;
    if (!apriSeServe()) return false;
    mErrori.clear();
    if (esegui(testo, nullptr)) {
        chiudiSeServe();
        return true;
    }
    mErrori.clear();
    segnala("executeCmd", sorgente, "Cmd=" + testo);
    return fallita();
}

bool cAdoSqlServer::checkForErrors(const QString& sorgente) {
    if (mErrori.empty()) return false;
    mErrore = mErrori.front();
    segnala("checkForErrors", sorgente, {});
    mErrori.clear();
    return true;
}

int cAdoSqlServer::getIDByInsert(QString& sql, const QString& sorgente, const QString& campoID,
                                 const QString& tabella) {
    QString sql2;
    const auto dettagli = [&] {
        return QString("SQL1=%1\nServerTipo=%2\nSQL2=%3").arg(sql, QString::number(TipoServer), sql2);
    };
    if (sql.isEmpty()) {
        const RunTimeError errore(RunTimeError::ErroreApplicazione,
                                  "Testo del Comando SQL non impostato in getIDByInsert",
                                  "ORBLN::" + mNomeClasse);
        segnalaErrore(errore, mNomeClasse, "getIDByInsert -> " + sorgente, dettagli());
        return -1;
    }
    adatta(sql);
    if (!apriSeServe()) return -1;
    Recordset chiave;
    bool riuscita = true;
    if (TipoServer == SqlServer) {
        riuscita =
            esegui(QString("SET NOCOUNT ON @01 SELECT SCOPE_IDENTITY() SET NOCOUNT OFF").replace("@01", sql),
                   &chiave);
    } else if (TipoServer == Access || TipoServer == MySql) {
        sql2 = "SELECT MAX(" + campoID + ") FROM " + tabella;
        riuscita = esegui(sql, nullptr) && esegui(sql2, &chiave);
    }
    if (!riuscita) {
        segnala("getIDByInsert", sorgente, dettagli());
        fallita();
    }
    chiudiSeServe();
    return riuscita && !chiave.eof() ? chiave.campo(0).toInt() : -1;
}

QVariant cAdoSqlServer::primoValore(std::unique_ptr<Recordset> righe) {
    if (!righe) return {};
    const QVariant valore = righe->eof() ? QVariant() : righe->campo(0);
    chiudiSeServe();
    return valore;
}

QVariant cAdoSqlServer::primoValore(const QString& sql, const QString& sorgente) {
    QString testo = sql;
    return primoValore(getNewRecordset(testo, sorgente));
}

QVariant cAdoSqlServer::getValueBySQL(const QString& sql, const QString& sorgente) {
    return primoValore(sql, mNomeClasse + ".getValueBySQL -> " + sorgente);
}

QDateTime cAdoSqlServer::getDataOraServer(const QString& sorgente) {
    const char* const sql = TipoServer == SqlServer ? "SELECT GetDate()" : "SELECT Now()";
    const QVariant valore = primoValore(sql, mNomeClasse + ".getDataOraServer -> " + sorgente);
    if (valore.typeId() == QMetaType::QDateTime) return valore.toDateTime();
    return dataOraArchivio(valore.toString());
}

QVariant cAdoSqlServer::getStoredResult(const QString& testo, const QString& sorgente) {
    return primoValore(getNewRecordsetByCmd(testo, sorgente));
}

void cAdoSqlServer::setNewTable(const QString& rifForm, const QString& nome) {
    try {
        registraTabella(rifForm, nome);
    } catch (const std::exception&) {
        segnalaErrore(erroreInCorso(), mNomeClasse, "setNewTable", "Table=" + rifForm + "\nDesc=" + nome);
    }
}

// A statement that fails has been reported by its own operation.
void cAdoSqlServer::registraTabella(const QString& rifForm, const QString& nome) {
    const QString sorgente = mNomeClasse + ".setNewTable";
    const QVariant quante =
        getValueBySQL("SELECT COUNT(*) FROM ElencoTabelle WHERE RifForm = " + testoSQL(rifForm), sorgente);
    if (quante.isNull() || quante.toInt() != 0) return;
    const int tabella = getIDByInsert("INSERT INTO ElencoTabelle (RifForm, Nome) VALUES (" +
                                          testoSQL(rifForm) + ", " + testoSQL(nome) + ")",
                                      sorgente, "ID", "ElencoTabelle");
    if (tabella < 1) return;
    mErrore = {};
    const QVariant gruppo = getValueBySQL("SELECT RID FROM GRUPPOUTENTI WHERE AMMINISTRATORE=1", sorgente);
    if (mErrore.classe != ErroreServer::Classe::Nessuno) return;
    // Nobody is there to be given the rights.
    if (gruppo.isNull()) throw RunTimeError(RunTimeError::TipoNonCorrispondente);
    executeSQL(
        "INSERT INTO GRUPPOPERMESSI (FK_GRUPPOUTENTI, FK_TABELLE, VISUALIZZA, SCRIVI, ELIMINA, STAMPA) "
        "VALUES (" +
            gruppo.toString() + ", " + QString::number(tabella) + ", 1, 1, 1, 1)",
        sorgente);
}
