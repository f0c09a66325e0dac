#include "archivio/new_database.h"

#include <algorithm>

#include <QStringList>

#include "archivio/catalogue.h"
#include "archivio/server_archive.h"
#include "core/run_time_error.h"
#include "data/archive_version.h"
#include "data/prepare_sql.h"
#include "data/schema.h"

namespace {

const char* const tabellaMarchio = "BOTTEGONARCHIVIO";

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

QString apici(const QString& testo, int tipoServer) {
    return (tipoServer == SqlServer ? "N'" : "'") + QString(testo).replace('\'', "''") + "'";
}

void creaSeManca(const NomeArchivio& nome) {
    const bool mySql = nome.tipoServer == MySql;
    const QString database = nome.database();
    ArchivioServer server(nome, ArchivioServer::Stato::SenzaDatabase);
    const QString presenti = mySql ? "SELECT COUNT(*) FROM INFORMATION_SCHEMA.SCHEMATA WHERE SCHEMA_NAME = "
                                   : "SELECT COUNT(*) FROM sys.databases WHERE name = ";
    if (server.numero(presenti + apici(database, nome.tipoServer)) > 0) return;
    if (mySql) {
        server.esegui("CREATE DATABASE `" + QString(database).replace('`', "``") + "` CHARACTER SET utf8mb4");
    } else {
        server.esegui("CREATE DATABASE [" + QString(database).replace(']', "]]") + "]");
    }
}

class DatabaseNuovo final : public NuovoArchivio {
  public:
    DatabaseNuovo(const NomeArchivio& nome, bool sovrascrivi)
        : mArchivio(nome, ArchivioServer::Stato::Qualsiasi) {
        daSoli(nome);
        preparaSessione();
        sgombera(nome, sovrascrivi);
        esegui(schema::ddlTabelle(nome.tipoServer) + schema::ddlIndici(nome.tipoServer));
        controlloChiavi("NOCHECK");
        mScrittore = nuovoScrittore(mArchivio);
    }

    Archivio& archivio() override { return mArchivio; }
    Scrittore& scrittore() override { return *mScrittore; }

  protected:
    void completa() override {}
    void mettiInForza() override {
        mArchivio.pretendiContinuita();
        controlloChiavi("WITH CHECK CHECK");
        mArchivio.esegui(cambiaMarchio(schema::versione));
    }

  private:
    void esegui(const QStringList& istruzioni) {
        for (const QString& sql : istruzioni)
            mArchivio.esegui(sql);
    }
    bool mySql() const { return mArchivio.tipoServer() == MySql; }

    // Two makings of one archive would take the tables from under each other.
    void daSoli(const NomeArchivio& nome) {
        const QString turno = apici(("bottegon-archivio " + nome.database()).left(60), nome.tipoServer);
        const qint64 preso =
            mySql() ? mArchivio.numero("SELECT GET_LOCK(" + turno + ", 0)")
                    : 1 + mArchivio.numero("DECLARE @r INT; EXEC @r = sp_getapplock @Resource = " + turno +
                                           ", @LockMode = 'Exclusive', @LockOwner = 'Session', "
                                           "@LockTimeout = 0; SELECT @r");
        if (preso < 1) rifiuta("un altro bottegon-archivio sta scrivendo " + nome.leggibile());
    }

    // The rows come table by table, also those that refer to rows still to come.
    void preparaSessione() {
        if (!mySql()) return;
        mArchivio.esegui("SET SESSION foreign_key_checks = 0");
        mArchivio.esegui("SET SESSION sql_mode = CONCAT(@@sql_mode, ',NO_AUTO_VALUE_ON_ZERO')");
    }
    void controlloChiavi(const QString& come) {
        if (mySql()) return;
        for (const schema::Tabella& t : schema::tabelle())
            mArchivio.esegui("ALTER TABLE " + t.nome + " " + come + " CONSTRAINT ALL");
    }

    void sgombera(const NomeArchivio& nome, bool sovrascrivi) {
        const auto presenti = tabellePresenti(mArchivio);
        QStringList nostre;
        for (const schema::Tabella& t : schema::tabelle()) {
            if (presenti.contains(t.nome.toUpper())) nostre.prepend(t.nome);
        }
        const bool conMarchio = presenti.contains(tabellaMarchio);
        const bool incompleto = conMarchio && mArchivio.numero(leggiMarchio()) == versioneIncompleta;
        if (!nostre.isEmpty() && !incompleto && !sovrascrivi)
            rifiuta(nome.leggibile() + " contiene già un archivio (--sovrascrivi per sostituirlo)");
        segnaIncompleto(conMarchio);
        for (const QString& tabella : nostre)
            mArchivio.esegui("DROP TABLE " + tabella);
    }

    void segnaIncompleto(bool conMarchio) {
        const QStringList nuovo = creaMarchio(versioneIncompleta);
        if (!conMarchio) {
            esegui(nuovo);
        } else if (mArchivio.leggi(leggiMarchio()).eof()) {
            mArchivio.esegui(nuovo.last());
        } else {
            mArchivio.esegui(cambiaMarchio(versioneIncompleta));
        }
    }

    ArchivioServer mArchivio;
    std::unique_ptr<Scrittore> mScrittore;
};

}  // namespace

std::unique_ptr<NuovoArchivio> nuovoDatabase(const NomeArchivio& nome, bool sovrascrivi) {
    creaSeManca(nome);
    return std::make_unique<DatabaseNuovo>(nome, sovrascrivi);
}
