#include "sale/totals.h"

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/customer.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

struct Somme {
    Currency netto;
    Currency totale;
    Currency lordo;
    float quantita = 0;
    int righe = 0;
};

double fattore(const FlexVB& g, int riga, Colonna sconto) {
    return 1 - static_cast<double>(g.single(riga, sconto)) / 100;
}

void conta(const FlexVB& g, int riga, Somme& somme) {
    const float q = g.single(riga, Colonna::Quantita);
    const double listino = g.currency(riga, Colonna::PrezzoListino).toDouble();
    const double iva = g.currency(riga, Colonna::Iva).toDouble();
    somme.netto +=
        Currency::daDouble(listino * static_cast<double>(q) *
                           (fattore(g, riga, Colonna::Sconto2) * fattore(g, riga, Colonna::Sconto1)) *
                           fattore(g, riga, Colonna::Sconto3));
    somme.totale += g.currency(riga, Colonna::Importo);
    somme.lordo +=
        Currency::daDouble(g.currency(riga, Colonna::Quantita).toDouble() * ((iva / 100 + 1) * listino));
    if (q > 0) somme.quantita += q;  // returned pieces do not reduce the quantity shown
    ++somme.righe;
}

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
    const FlexVB& g = v.flxVB;
    if (g.righe() <= 1) return;
    Somme somme;
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.viva(r) && !testaDistinta(g.cella(r, Colonna::Codice))) conta(g, r, somme);
    }
    v.lblMainDisplay.testoETag(formattaImporto(somme.totale, 2));
    v.lblTotNetto.testo(formattaImporto(somme.netto, 2));
    v.lblTotLordo.testo(formattaImporto(somme.lordo, 2));
    v.lblTOtQta.testo(formattaImporto(somme.quantita, 2));
    v.lblTotRighe.testo(QString::number(somme.righe));
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
