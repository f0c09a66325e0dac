#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QElapsedTimer>

#include "data/archive_version.h"
#include "data/mysql_connection.h"
#include "data/prepare_sql.h"
#include "doubles/cliente_mariadb.h"

// A database of its own on the private server: Prova, with Figli that refer to it.
class DatabaseMySql {
  public:
    explicit DatabaseMySql(const QString& nome = {})
        : mNome(nome.isEmpty() ? "driver_" + QString::number(getpid()) : nome) {
        altro.esegui("DROP DATABASE IF EXISTS `" + mNome + "`");
        altro.esegui("CREATE DATABASE `" + mNome + "` CHARACTER SET utf8mb4 COLLATE utf8mb4_unicode_520_ci");
        altro.esegui("USE `" + mNome + "`");
        altro.esegui(
            "CREATE TABLE Prova (RID INT AUTO_INCREMENT PRIMARY KEY, CODICE VARCHAR(50) UNIQUE, "
            "NOTE LONGTEXT, N INT, D DECIMAL(19,4), R DOUBLE, Q DATETIME, G DATE, O TIME, "
            "F SMALLINT, T TINYINT, B BIT(3), M BIGINT UNSIGNED) ENGINE=InnoDB");
        altro.esegui(
            "CREATE TABLE Figli (RID INT AUTO_INCREMENT PRIMARY KEY, FK_PROVA INT, "
            "FOREIGN KEY (FK_PROVA) REFERENCES Prova (RID)) ENGINE=InnoDB");
    }
    ~DatabaseMySql() { altro.esegui("DROP DATABASE `" + mNome + "`"); }
    DatabaseMySql(const DatabaseMySql&) = delete;
    DatabaseMySql& operator=(const DatabaseMySql&) = delete;

    // `voci` stands in the place of the database's pair, when given.
    QString stringa(const QString& voci = {}) const {
        const QString server = qEnvironmentVariable("BOTTEGON_PROVA_MYSQL");
        EXPECT_FALSE(server.isEmpty()) << "BOTTEGON_PROVA_MYSQL: no server to try on";
        return server + (voci.isEmpty() ? "Database=" + mNome + ";" : voci);
    }
    // The connection string without its account.
    QString indirizzo() const { return stringa().section("Uid=", 0, 0) + "Database=" + mNome + ";"; }
    const QString& nome() const { return mNome; }

    std::unique_ptr<MySqlConnection> apri() const { return apri(stringa()); }
    static std::unique_ptr<MySqlConnection> apri(const QString& stringa) {
        const AperturaSenzaVerifica senzaVerifica;
        ErroreServer errore;
        auto connessione = MySqlConnection::apri(stringa, 5, errore);
        EXPECT_TRUE(connessione) << errore.descrizione.toStdString();
        return connessione;
    }
    // What opening answers; empty when it opens.
    static QString rifiuto(const QString& stringa) {
        const AperturaSenzaVerifica senzaVerifica;
        ErroreServer errore;
        return MySqlConnection::apri(stringa, 5, errore) ? QString() : errore.descrizione;
    }

    // Another client sees to it that the server drops this connection.
    void uccidi(MySqlConnection& connessione) {
        Recordset numero;
        ASSERT_TRUE(connessione.eseguiNativo("SELECT CONNECTION_ID()", &numero));
        const QString id = numero.campo(0).toString();
        altro.esegui("KILL CONNECTION " + id);
        const QString viva = "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE ID = " + id;
        QElapsedTimer attesa;
        attesa.start();
        while (altro.valore(viva) != "0")
            ASSERT_LT(attesa.elapsed(), 5000);
    }

    ClienteMariaDb altro;

  private:
    const QString mNome;
};

inline bool esegui(Connessione& connessione, const QString& sql) {
    const bool riuscita = connessione.eseguiNativo(sql, nullptr);
    EXPECT_TRUE(riuscita) << connessione.errore().descrizione.toStdString() << "\n"
                          << sql.left(300).toStdString();
    return riuscita;
}

// The first column of the first row.
inline QVariant valore(Connessione& connessione, const QString& sql) {
    Recordset righe;
    EXPECT_TRUE(connessione.eseguiNativo(sql, &righe)) << connessione.errore().descrizione.toStdString();
    return righe.eof() ? QVariant("nessuna riga") : righe.campo(0);
}
