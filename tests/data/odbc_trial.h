#pragma once

#include "data/odbc_connection.h"

// A connection through a real ODBC driver to a server of another kind, with that server's plain words for a
// transaction.
class OdbcDiProva : public OdbcConnection {
  public:
    explicit OdbcDiProva(const DatiConnessione& dati) : OdbcConnection("prova", dati, 5, attesa) {}
    static inline int attesa = 500;

  protected:
    bool preparaSessione() override { return true; }
    QString traduci(const QString& sql) const override { return sql; }
    Turno prendiTurno() override { return Turno::Preso; }
    bool apriTransazione() override { return spedisci("BEGIN"); }
    bool chiudiTransazione(bool conferma) override { return spedisci(conferma ? "COMMIT" : "ROLLBACK"); }
    bool lasciaTurno() override { return true; }
    bool verificaTransazione() override { return true; }
    using ConnessioneSql::spedisci;
};

// The first column of the first row; the error when there is none.
inline QVariant primo(Connessione& connessione, const QString& sql) {
    Recordset righe;
    if (!connessione.eseguiNativo(sql, &righe)) return "errore: " + connessione.errore().descrizione;
    return righe.eof() ? QVariant("nessuna riga") : righe.campo(0);
}
