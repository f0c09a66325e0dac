#pragma once

#include <gtest/gtest.h>

#include "register/receipt_log.h"

// The list of receipts, told what the books and the link would tell it.
class ReceiptLog : public testing::Test {
  protected:
    using Esito = RegistroScontrini::Esito;

    void consegna(const QString& vendita, int cornici) {
        r.inizia(vendita);
        r.consegnato(cornici);
    }
    // The same, and the sale is saved.
    void vende(const QString& vendita, int cornici) {
        consegna(vendita, cornici);
        r.salvataggioConcluso(true);
    }
    void invia(int cornici) {
        for (int i = 0; i < cornici; ++i) {
            if (i > 0) r.accettata();
            r.inviata();
        }
    }
    QStringList voci() const {
        QStringList tutte;
        for (const auto& voce : r.voci()) {
            tutte << voce.vendita + ": " + descrizione(voce);
        }
        return tutte;
    }

    RegistroScontrini r;
};
