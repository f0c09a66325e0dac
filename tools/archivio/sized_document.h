#pragma once

#include <map>

#include <QDateTime>

#include "archivio/demo_context.h"

// Amounts in ten-thousandths of a euro.
struct TotaliDocumento {
    qint64 totale = 0;
    qint64 imposta = 0;
};

// A document that grows row by row and is written with its totals, journal and schedule at the end.
struct DocumentoInCorso {
    qint64 chiave = 0;
    QDate data;
    int tipo = 0;
    int numeratore = 0;
    int causale = 0;
    qint64 cliente = 0;
    qint64 pagamento = 0;
    bool aScadenza = false;  // paid later, so there is no collection
    int cassa = 0;
    int vendite = 0;  // the last sub-number
    TotaliDocumento totali;
};

// Writes documents as the till does: numbers by counter and year, debit equal to credit.
class RegistroDocumenti {
  public:
    explicit RegistroDocumenti(ContestoDemo& c);

    void riga(DocumentoInCorso& documento, int posizione, const ProdottoVenduto& prodotto, int quantita,
              int sconto, const QDateTime& ora);
    void chiudi(const DocumentoInCorso& documento);
    // After the last document.
    void scriviContatori();

  private:
    qint64 registra(const DocumentoInCorso& documento, int causale, int dare, const QString& descrizione);

    ContestoDemo& mC;
    const TabellaScritta& mTestate;
    const TabellaScritta& mRighe;
    const TabellaScritta& mPrimaNota;
    const TabellaScritta& mDettagliPrimaNota;
    std::map<std::pair<int, int>, int> mNumeri;  // by counter and year
    std::map<int, int> mRegistrazioni;           // by year
};
