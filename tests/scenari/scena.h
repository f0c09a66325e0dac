#pragma once

#include <map>

#include <QStringList>

#include "doubles/negozio.h"
#include "scenari/operatore_stampato.h"

// A scene at the counter: a text script of scans and keys is played on a shop of its own, and what the
// shop sees is written down. The words of the script are told in README.md.
class Scena {
  public:
    Scena();
    ~Scena();
    Scena(const Scena&) = delete;
    Scena& operator=(const Scena&) = delete;

    // Plays the lines; false when one is not understood or a question was not foreseen, with the reason as
    // the last line of the protocol.
    bool recita(const QStringList& copione);
    const QStringList& protocollo() const { return mRighe; }

  private:
    bool esegui(const QString& parola, const QString& resto);
    bool prodotto(const QString& resto);
    bool cliente(const QString& resto);
    bool conto(const QString& resto);
    bool campo(const QString& nome);
    bool tasto(const QString& nome);
    bool rispondi(const QString& resto);
    bool scegli(const QString& resto);
    bool ora(const QString& resto);
    bool mostra();
    bool libri();
    void mostraRiga(const Vendita& v, int riga);
    void stampaElenco(Recordset& righe, const QString& colonne);
    void stampaRighe(const QString& query, const std::map<int, int>& decimali);
    ContoDiProva* davanti();

    QStringList mRighe;
    OperatoreStampato mOperatore{mRighe};
    Negozio mNegozio;
    std::vector<std::unique_ptr<ContoDiProva>> mConti;
    int mConto = 0;
};
