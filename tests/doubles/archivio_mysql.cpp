#include "doubles/archivio_mysql.h"

#include <gtest/gtest.h>
#include <map>
#include <unistd.h>
#include <utility>

#include <QFile>

#include "core/clock.h"
#include "data/archive_version.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "data/server_drivers.h"
#include "doubles/archivio_modello.h"
#include "doubles/celle.h"
#include "doubles/cliente_mariadb.h"
#include "doubles/copia_archivio.h"

namespace {

// The database of this process. Children that are forked off use it too; only its maker drops it.
class BancaDati {
  public:
    static BancaDati& delProcesso() {
        static BancaDati questa;
        return questa;
    }
    // A server that is gone by now has taken it along.
    ~BancaDati() {
        const bool serverAcceso = QFile::exists(qEnvironmentVariable("BOTTEGON_PROVA_MYSQL_SOCKET"));
        if (getpid() == mProprietario && serverAcceso) ClienteMariaDb().esegui("DROP DATABASE " + mNome);
    }
    BancaDati(const BancaDati&) = delete;
    BancaDati& operator=(const BancaDati&) = delete;

    const QString& nome() const { return mNome; }

    // What a test has changed is as it was, and so are the keys that come next.
    void azzera() {
        ClienteMariaDb cliente(mNome);
        cliente.esegui("SET foreign_key_checks = 0");
        const Stato ora = stato(cliente);
        bool cambiata = false;
        for (const auto& [tabella, impronta] : ora) {
            if (!mNuova.contains(tabella)) cliente.esegui("DROP TABLE " + tabella);
        }
        for (const auto& [tabella, impronta] : mNuova) {
            if (ora.at(tabella) == impronta) continue;
            cambiata = true;
            cliente.esegui("TRUNCATE TABLE " + tabella);
            if (mRighe.contains(tabella)) cliente.esegui(mRighe.at(tabella));
        }
        if (cambiata) mNuova = stato(cliente);
    }

  private:
    // Of each table: how many row changes it has seen, and its next key.
    using Stato = std::map<QString, std::pair<QString, QString>>;

    BancaDati() : mNome("prova_" + QString::number(getpid())), mProprietario(getpid()) {
        ClienteMariaDb cliente;
        cliente.esegui("CREATE DATABASE " + mNome + " CHARACTER SET utf8mb4");
        cliente.esegui("USE " + mNome);
        for (const QString& istruzione : schema::ddl(MySql)) {
            cliente.esegui(istruzione);
        }
        mRighe = inserimenti(archivioModello());
        mRighe["BottegonArchivio"] = creaMarchio(schema::versione).last();
        cliente.esegui("TRUNCATE TABLE BottegonArchivio");
        cliente.esegui("SET foreign_key_checks = 0");
        for (const auto& [tabella, istruzione] : mRighe) {
            cliente.esegui(istruzione);
        }
        mNuova = stato(cliente);
    }

    Stato stato(ClienteMariaDb& cliente) const {
        Stato tutte;
        for (Recordset t = cliente.esegui("SELECT NAME, MODIFIED_COUNTER, AUTOINC FROM "
                                          "information_schema.INNODB_SYS_TABLESTATS WHERE NAME LIKE '" +
                                          mNome + "/%'");
             !t.eof(); t.moveNext()) {
            tutte[t.testo("NAME").section('/', 1)] = {t.testo("MODIFIED_COUNTER"), t.testo("AUTOINC")};
        }
        return tutte;
    }

    QString mNome;
    pid_t mProprietario;
    std::map<QString, QString> mRighe;  // the statement that fills a table of the new shop
    Stato mNuova;
};

// Gives out the connections of the real driver with the test's time of day.
class DriverConOrologio final : public ServerDriver {
  public:
    explicit DriverConOrologio(std::unique_ptr<ServerDriver> vero) : mVero(std::move(vero)) {}

    std::unique_ptr<Connessione> apri(const QString& stringaConnessione, int secondi,
                                      const AttesaServer& attesa, ErroreServer& errore) override {
        auto connessione = mVero->apri(stringaConnessione, secondi, attesa, errore);
        if (connessione) regola(*connessione);
        return connessione;
    }
    void restituisci(std::unique_ptr<Connessione> connessione) override {
        mVero->restituisci(std::move(connessione));
    }
    void chiudi() override { mVero->chiudi(); }

  private:
    // The tests do not count this statement.
    static void regola(Connessione& connessione) {
        const QDateTime adesso = orologio().adesso();
        const SondaIstruzioni sonda = std::exchange(sondaIstruzioni(), {});
        connessione.eseguiNativo(
            QString("SET time_zone = '+00:00', timestamp = %1")
                .arg(QDateTime(adesso.date(), adesso.time(), Qt::UTC).toSecsSinceEpoch()),
            nullptr);
        sondaIstruzioni() = sonda;
    }

    std::unique_ptr<ServerDriver> mVero;
};

}  // namespace

ArchivioMySql::ArchivioMySql() {
    BancaDati::delProcesso().azzera();
}

ArchivioMySql::~ArchivioMySql() = default;

int ArchivioMySql::tipoServer() const {
    return MySql;
}

QString ArchivioMySql::stringaConnessione() const {
    return qEnvironmentVariable("BOTTEGON_PROVA_MYSQL") + "Database=" + BancaDati::delProcesso().nome() + ";";
}

std::unique_ptr<ServerDriver> ArchivioMySql::driver() const {
    return std::make_unique<DriverConOrologio>(nuovoDriver(MySql));
}

// A child that was forked off must leave its parent's connection alone, and not even close it.
ClienteMariaDb& ArchivioMySql::cliente() {
    const bool ereditata = mProcesso != getpid();
    if (ereditata) static_cast<void>(mCliente.release());
    if (ereditata || !mCliente->viva()) {
        mCliente = std::make_unique<ClienteMariaDb>(BancaDati::delProcesso().nome());
        mProcesso = getpid();
    }
    return *mCliente;
}

Recordset ArchivioMySql::esegui(const QString& sql) {
    return cliente().esegui(sql);
}

QStringList ArchivioMySql::verifica() {
    return verificaCopia([this](const QString& sql) { return esegui(sql); });
}
