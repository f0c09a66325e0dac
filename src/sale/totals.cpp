#include "sale/totals.h"

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/customer.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

Currency sommaRighe(const char* colonna, int idMovimento, const char* procedura, bool& riuscita) {
    const Lettura lettura(
        QString("SELECT SUM(%1) FROM DettagliMovimento WHERE FK_MOVIMENTO = ").arg(colonna) +
            QString::number(idMovimento),
        moduloFrmMain + QString(procedura));
    riuscita = static_cast<bool>(lettura);
    return lettura.trovata() ? getValoreCurrency(lettura->campo(0)) : Currency();
}

}  // namespace

bool iniziaCon(const QString& codice, const QString& prefisso) {
    return !codice.isEmpty() && !prefisso.isEmpty() && codice[0] == prefisso[0];
}

bool testaDistinta(const QString& codice) {
    static const QString predefinita = "%";
    return iniziaCon(codice, gDistintaBase.trimmed().isEmpty() ? predefinita : gDistintaBase);
}

bool rigaLibera(const QString& codice) {
    return iniziaCon(codice, gRigaLibera);
}

void calcolaTotali(Vendita& v, bool ultimoSalvato) {
    if (v.flxVB.righe() <= 1) return;
    Currency netto;
    Currency totale;
    Currency lordo;
    float quantita = 0;
    int righe = 0;
    for (const SommaRiga& riga : v.sommeRighe.di(v.flxVB)) {
        if (!riga.conta) continue;
        netto += riga.netto;
        totale += riga.totale;
        lordo += riga.lordo;
        if (riga.quantita > 0) quantita += riga.quantita;  // returned pieces do not reduce what is shown
        ++righe;
    }
    v.lblMainDisplay.testoETag(formattaImporto(totale, 2));
    v.lblTotNetto.testo(formattaImporto(netto, 2));
    v.lblTotLordo.testo(formattaImporto(lordo, 2));
    v.lblTOtQta.testo(formattaImporto(quantita, 2));
    v.lblTotRighe.testo(QString::number(righe));
    if (ultimoSalvato) {
        v.lblLastMainDisplay.testo(v.lblMainDisplay.testo());
    } else {
        mostraSaldo(v);
    }
}

bool getTotIva(int idMovimento, Currency& totale) {
    bool riuscita = false;
    totale = sommaRighe("TOTALEIVA", idMovimento, ".getTotIva", riuscita);
    return riuscita;
}

bool getTotaleConto(Vendita& v, int idMovimento) {
    bool riuscita = false;
    const Currency totale = sommaRighe("TOTALERIGA", idMovimento, ".getTotaleConto", riuscita);
    if (riuscita) v.lblTotConto.testo(formattaImporto(totale, 2));
    return riuscita;
}
