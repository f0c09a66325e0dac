#include "archivio/sized_document.h"

#include <QStringList>

#include "archivio/demo_shop.h"

namespace {

constexpr qint64 centesimo = 100;
constexpr int giorniScadenza = 30;

QVariant importo(qint64 decimillesimi) {
    return static_cast<double>(decimillesimi) / 10000.0;
}

qint64 diviso(qint64 valore, qint64 divisore) {
    return (valore * 2 + divisore) / (divisore * 2);
}

QVariant giorno(QDate data) {
    return data.startOfDay(Qt::UTC);
}

}  // namespace

RegistroDocumenti::RegistroDocumenti(ContestoDemo& c)
    : mC(c),
      mTestate(c.scrittore.tabella(
          "Movimenti", {"RID", "PROGRESSIVO", "ANNO", "DATA", "FK_TIPODOCUMENTO", "FK_ORIGINE",
                        "FK_CONTROPARTITA", "FK_PAGAMENTO", "ID_CASSA", "TOTIMPONIBILE", "TOTIMPOSTA",
                        "TOTDOCUMENTO", "FK_PRIMANOTA", "FK_PNPAGAMENTO"})),
      mRighe(c.scrittore.tabella(
          "DettagliMovimento",
          {"RID",          "FK_MOVIMENTO", "EXTRAPROG", "POS",       "FK_PRODOTTO", "CODPRODOTTO",
           "DESCPRODOTTO", "QUANTITA",     "PREZZO",    "SCONTO",    "PREZZONETTO", "TOTPREZZONETTO",
           "FK_IVA",       "VALOREIVA",    "IVA",       "TOTALEIVA", "TOTALERIGA",  "FK_UM",
           "TAGLIO",       "FK_VENDITORE", "ORA"})),
      mPrimaNota(c.scrittore.tabella("PrimaNota",
                                     {"RID", "PROGRESSIVO", "DATA", "DATAVALUTA", "FK_CAUSALE", "FK_ANAGRAFE",
                                      "DESCRIZIONE", "NUMDOCUMENTO", "IMPORTO", "FK_PAGAMENTO"})),
      mDettagliPrimaNota(
          c.scrittore.tabella("PrimaNotaDettagli", {"RID", "FK_PRIMANOTA", "FK_CONTO", "DARE", "AVERE"})) {}

void RegistroDocumenti::riga(DocumentoInCorso& documento, int posizione, const ProdottoVenduto& p,
                             int quantita, int sconto, const QDateTime& ora) {
    const qint64 prezzo = p.listino1 * centesimo;
    const qint64 netto = diviso(prezzo * (100 - sconto), 100);
    const qint64 iva = diviso(netto * p.iva, 100);
    const qint64 totaleIva = diviso(netto * quantita * p.iva, 100);
    const qint64 totale = diviso(netto * quantita + totaleIva, centesimo) * centesimo;
    documento.totali.totale += totale;
    documento.totali.imposta += totaleIva;
    mC.scrittore.scrivi(mRighe, {mC.scrittore.nuovaChiave("DettagliMovimento"),
                                 documento.chiave,
                                 documento.vendite,
                                 posizione,
                                 p.chiave,
                                 p.codice,
                                 p.descrizione,
                                 quantita,
                                 importo(prezzo),
                                 sconto,
                                 importo(netto),
                                 importo(netto * quantita),
                                 p.chiaveIva,
                                 p.iva,
                                 importo(iva),
                                 importo(totaleIva),
                                 importo(totale),
                                 p.chiaveUnita,
                                 euro(p.acquisto),
                                 1 + documento.chiave % 4,
                                 ora});
}

qint64 RegistroDocumenti::registra(const DocumentoInCorso& d, int causale, int dare,
                                   const QString& descrizione) {
    const qint64 chiave = mC.scrittore.nuovaChiave("PrimaNota");
    const int numero = ++mRegistrazioni[d.data.year()];
    mC.scrittore.scrivi(mPrimaNota, {chiave, numero, giorno(d.data), giorno(d.data), causale, d.cliente,
                                     descrizione, QString::number(mNumeri[{d.numeratore, d.data.year()}]),
                                     importo(d.totali.totale), d.pagamento});
    const auto movimento = [&](int conto, qint64 inDare, qint64 inAvere) {
        mC.scrittore.scrivi(mDettagliPrimaNota, {mC.scrittore.nuovaChiave("PrimaNotaDettagli"), chiave, conto,
                                                 importo(inDare), importo(inAvere)});
    };
    movimento(dare, d.totali.totale, 0);
    if (dare == DemoNegozio::contoClienti) {
        movimento(DemoNegozio::contoVendite, 0, d.totali.totale - d.totali.imposta);
        movimento(DemoNegozio::contoIvaVendite, 0, d.totali.imposta);
    } else {
        movimento(DemoNegozio::contoClienti, 0, d.totali.totale);
    }
    return chiave;
}

void RegistroDocumenti::chiudi(const DocumentoInCorso& d) {
    const int anno = d.data.year();
    const int numero = ++mNumeri[{d.numeratore, anno}];
    const qint64 primaNota = registra(d, d.causale, DemoNegozio::contoClienti, "Vendita");
    QVariant incasso;
    if (d.aScadenza) {
        mC.scrittore.inserisci("Scadenze", {{"FK_PRIMANOTA", primaNota},
                                            {"FK_MOVIMENTO", d.chiave},
                                            {"DATA", giorno(d.data.addDays(giorniScadenza))},
                                            {"IMPORTO", importo(d.totali.totale)}});
    } else {
        incasso = registra(d, DemoNegozio::causaleContanti, DemoNegozio::contoCassa, "Incasso vendita");
    }
    mC.scrittore.scrivi(
        mTestate, {d.chiave, numero, anno, giorno(d.data), d.tipo, DemoNegozio::magazzinoNegozio, d.cliente,
                   d.pagamento, d.cassa, importo(d.totali.totale - d.totali.imposta),
                   importo(d.totali.imposta), importo(d.totali.totale), primaNota, incasso});
}

void RegistroDocumenti::scriviContatori() {
    for (const auto& [dove, numero] : mNumeri) {
        mC.scrittore.inserisci("Contatori", {{"FK_NUMERATORE", dove.first},
                                             {"ANNO", QString::number(dove.second)},
                                             {"NUMERO", numero},
                                             {"NOTE", QString("n/d")}});
    }
}
