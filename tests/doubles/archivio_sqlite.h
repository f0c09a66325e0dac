#pragma once

#include "doubles/archivio_di_prova.h"

// The shop's books in a file of the test's own, a copy of archivioModello().
class ArchivioSqlite : public ArchivioDiProva {
  public:
    explicit ArchivioSqlite(const QString& cartella);

    int tipoServer() const override;
    QString stringaConnessione() const override;
    std::unique_ptr<ServerDriver> driver() const override;
    Recordset esegui(const QString& sql) override;
    QStringList verifica() override;

    static QString percorso(const QString& cartella) { return cartella + "/Bottegon.mdb"; }

  private:
    QString mPercorso;
};
