#include "doubles/cliente_mariadb.h"

#include <gtest/gtest.h>
#include <mysql.h>

#include "doubles/celle.h"

namespace {

QVariant valoreDi(const MYSQL_FIELD& campo, const char* byte, unsigned long lunghezza) {
    if (byte == nullptr) return {};
    const QString testo = QString::fromUtf8(byte, static_cast<qsizetype>(lunghezza));
    switch (campo.type) {
        case MYSQL_TYPE_TINY:
        case MYSQL_TYPE_SHORT:
        case MYSQL_TYPE_LONG:
        case MYSQL_TYPE_INT24:
        case MYSQL_TYPE_LONGLONG:
            return testo.toLongLong();
        case MYSQL_TYPE_NEWDECIMAL:
        case MYSQL_TYPE_FLOAT:
        case MYSQL_TYPE_DOUBLE:
            return testo.toDouble();
        case MYSQL_TYPE_DATETIME:
            return dataOraArchivio(testo);
        default:
            return testo;
    }
}

}  // namespace

ClienteMariaDb::ClienteMariaDb(const QString& bancaDati)
    : ClienteMariaDb(qEnvironmentVariable("BOTTEGON_PROVA_MYSQL_SOCKET"), "prova", "prova", bancaDati) {}

ClienteMariaDb::ClienteMariaDb(const QString& socket, const QString& utente, const QString& password,
                               const QString& bancaDati)
    : mServer(mysql_init(nullptr), &mysql_close) {
    EXPECT_FALSE(socket.isEmpty()) << "no server: run the program by private_mariadb.sh run";
    mysql_options(mServer.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
    EXPECT_TRUE(mysql_real_connect(mServer.get(), nullptr, qPrintable(utente), qPrintable(password),
                                   bancaDati.isEmpty() ? nullptr : qPrintable(bancaDati), 0,
                                   qPrintable(socket), 0))
        << mysql_error(mServer.get());
    esegui("SET sql_mode = 'PIPES_AS_CONCAT,NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES', lock_wait_timeout = 10");
}

ClienteMariaDb::~ClienteMariaDb() = default;

bool ClienteMariaDb::viva() const {
    return mysql_ping(mServer.get()) == 0;
}

int ClienteMariaDb::prova(const QString& sql) {
    const QByteArray testo = sql.toUtf8();
    if (mysql_real_query(mServer.get(), testo.constData(), static_cast<unsigned long>(testo.size())) != 0)
        return static_cast<int>(mysql_errno(mServer.get()));
    return 0;
}

Recordset ClienteMariaDb::leggi() {
    const std::unique_ptr<MYSQL_RES, void (*)(MYSQL_RES*)> esito(mysql_store_result(mServer.get()),
                                                                 &mysql_free_result);
    if (!esito) return {};
    QStringList colonne;
    std::vector<QVariant> celle;
    const unsigned campi = mysql_num_fields(esito.get());
    const MYSQL_FIELD* campo = mysql_fetch_fields(esito.get());
    for (unsigned i = 0; i < campi; ++i) {
        colonne << QString::fromUtf8(campo[i].name);
    }
    while (MYSQL_ROW riga = mysql_fetch_row(esito.get())) {
        const unsigned long* lunghezze = mysql_fetch_lengths(esito.get());
        for (unsigned i = 0; i < campi; ++i) {
            celle.push_back(valoreDi(campo[i], riga[i], lunghezze[i]));
        }
    }
    return {colonne, std::move(celle)};
}

Recordset ClienteMariaDb::esegui(const QString& sql) {
    const int errore = prova(sql);
    if (errore == 0) return leggi();
    ADD_FAILURE() << errore << " " << mysql_error(mServer.get()) << "\n" << sql.toStdString();
    return {};
}

QString ClienteMariaDb::valore(const QString& sql) {
    const Recordset righe = esegui(sql);
    return righe.eof() ? QString() : testoCella(righe.campo(0));
}
