#include "archivio/trial_server.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "data/prepare_sql.h"

namespace {

QString server() {
    const QString stringa = qEnvironmentVariable("BOTTEGON_PROVA_MYSQL");
    EXPECT_FALSE(stringa.isEmpty()) << "no private server: run by ctest";
    return stringa;
}

}  // namespace

DatabaseDiProva::DatabaseDiProva() {
    static int quanti = 0;
    mDatabase = QString("archivio_%1_%2").arg(getpid()).arg(++quanti);
}

DatabaseDiProva::~DatabaseDiProva() {
    ArchivioServer({MySql, server()}, ArchivioServer::Stato::SenzaDatabase)
        .esegui("DROP DATABASE IF EXISTS " + mDatabase);
}

QString DatabaseDiProva::stringa() const {
    return server() + ";Database=" + mDatabase;
}

QString DatabaseDiProva::nome() const {
    return "mysql:" + stringa();
}

std::unique_ptr<ArchivioServer> DatabaseDiProva::apri() const {
    return std::make_unique<ArchivioServer>(NomeArchivio{MySql, stringa()}, ArchivioServer::Stato::Qualsiasi);
}

void DatabaseDiProva::esegui(const QString& sql) const {
    apri()->esegui(sql);
}

QString DatabaseDiProva::valore(const QString& sql) const {
    const Recordset righe = apri()->leggi(sql);
    return righe.eof() ? QString() : righe.campo(0).toString();
}
