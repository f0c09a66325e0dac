#include "postings/books_model.h"

#include <algorithm>
#include <cmath>

#include <QVariant>

#include "doubles/negozio.h"

const QString tipoBanco = "VB";
const QString tipoFattura = "FT";
const QString tipoCarico = "CAR";
const QString tipoTrasferimento = "DT";

namespace {

using Importo = Decimillesimi;

// TipoDocumenti: causal, counter and description.
struct Tipo {
    int causale;
    int numeratore;
    QString descrizione;
};

const std::map<QString, Tipo>& tipi() {
    static const std::map<QString, Tipo> tutti{
        {tipoBanco, {1, 1, "Vendita al banco"}},
        {tipoFattura, {3, 2, "Fattura"}},
        {tipoCarico, {9, 9, "Carico"}},
        {tipoTrasferimento, {4, 4, "Trasferimento"}},
    };
    return tutti;
}
constexpr int causaleIncasso = 2;

QString testo(Importo importo) {
    return QVariant(static_cast<double>(importo) / 10000.0).toString();
}

QString testo(QDate data) {
    return data.toString("yyyy-MM-dd") + " 00:00:00";
}

QString titolo(const QString& inizio, int numero, QDate data) {
    return inizio + " N° " + QString("%1").arg(numero, 4, 10, QChar('0')) + " del " +
           data.toString("dd/MM/yyyy");
}

// To the cent, a half away from zero.
Importo alCentesimo(Importo importo) {
    constexpr Importo centesimo = 100;
    const Importo meta = importo < 0 ? -centesimo / 2 : centesimo / 2;
    return (importo + meta) / centesimo * centesimo;
}

}  // namespace

int ModelloLibri::aggiungiProdotto(const Prodotto& prodotto, int giacenza, Importo costo) {
    mProdotti.push_back(prodotto);
    mGiacenze.push_back(giacenza);
    mStrati.emplace_back();
    mDeposito.emplace_back();
    if (prodotto.gestito) mStrati.back().push_back({costo, giacenza});
    return static_cast<int>(mProdotti.size()) - 1;
}

std::vector<ModelloLibri::Riga> ModelloLibri::righeDi(int prodotto, int quantita) const {
    std::vector<Riga> righe{{prodotto, quantita, -1}};
    for (const auto& [parte, pezzi] : mProdotti[static_cast<size_t>(prodotto)].parti)
        righe.push_back({parte, quantita * pezzi, -1, true});
    return righe;
}

void ModelloLibri::cambiaQuantita(std::vector<RigaRisalvata>& righe, size_t riga, int quantita) const {
    for (const Riga& nuova : righeDi(righe[riga].riga.prodotto, quantita)) {
        righe[riga].riga.quantita = nuova.quantita;
        righe[riga++].stato = RigaRisalvata::Modificata;
    }
}

// ---- Stock

ModelloLibri::Strati::iterator ModelloLibri::strato(Strati& strati, Importo costo) const {
    if (mPrezzoMedio && !strati.empty()) return strati.begin();
    const auto trovato =
        std::find_if(strati.begin(), strati.end(), [&](const Strato& s) { return s.costo == costo; });
    return trovato != strati.end() ? trovato : strati.insert(strati.end(), {costo, 0});
}

// Of what was bought in the window, else the latest purchase, else the product's own price.
Importo ModelloLibri::costoMedio(int prodotto, QDate oggi) const {
    long long pezzi = 0;
    Importo valore = 0;
    Importo ultimo = mProdotti[static_cast<size_t>(prodotto)].prezzoAcquisto;
    for (const Carico& c : mCarichi) {
        if (c.prodotto != prodotto) continue;
        ultimo = c.costo;
        if (c.data < oggi.addMonths(-mesiDelModello)) continue;
        pezzi += c.quantita;
        valore += c.quantita * c.costo;
    }
    return pezzi == 0 ? ultimo
                      : static_cast<Importo>(std::llroundl(static_cast<long double>(valore) /
                                                           static_cast<long double>(pezzi)));
}

Importo ModelloLibri::costoDaScaricare(const Strati& strati) {
    const auto pieno =
        std::find_if(strati.begin(), strati.end(), [](const Strato& s) { return s.quantita > 0; });
    return (pieno != strati.end() ? pieno : strati.begin())->costo;
}

void ModelloLibri::muovi(int prodotto, int delta, Importo& taglio, QDate oggi) {
    if (!mProdotti[static_cast<size_t>(prodotto)].gestito) {
        taglio = std::max(taglio, Importo{0});
        return;
    }
    Strati& strati = mStrati[static_cast<size_t>(prodotto)];
    if (mPrezzoMedio) {
        taglio = strati.front().costo = costoMedio(prodotto, oggi);
    } else if (taglio < 0) {
        taglio = costoDaScaricare(strati);
    }
    strato(strati, taglio)->quantita -= delta;
    mGiacenze[static_cast<size_t>(prodotto)] -= delta;
}

void ModelloLibri::carica(int prodotto, int quantita, Importo costo, QDate data) {
    mCarichi.push_back({prodotto, quantita, costo, data});
    strato(mStrati[static_cast<size_t>(prodotto)], costo)->quantita += quantita;
    mGiacenze[static_cast<size_t>(prodotto)] += quantita;
    Documento& d = mDocumenti[nuovoDocumento(tipoCarico, 0, data, false)];
    d.vendite[1].push_back({prodotto, quantita, costo});
}

// ---- Documents

Importo ModelloLibri::netto(const Riga& r) const {
    const Prodotto& p = mProdotti[static_cast<size_t>(r.prodotto)];
    if (!p.parti.empty()) return 0;
    return r.alCosto ? alCentesimo(r.taglio * r.quantita) : p.prezzo * r.quantita;
}

// At the cost a server's fraction of the tax is cut twice: to four decimals, and then to the cent.
Importo ModelloLibri::imposta(const Riga& r) const {
    const Prodotto& p = mProdotti[static_cast<size_t>(r.prodotto)];
    if (!p.parti.empty()) return 0;
    if (!r.alCosto) return p.prezzo * p.aliquota / 100 * r.quantita;
    return alCentesimo((r.taglio * p.aliquota + 50) / 100) * r.quantita;
}

Importo ModelloLibri::impostaDelleRighe(const Documento& d) const {
    Importo somma = 0;
    for (const auto& [extra, righe] : d.vendite) {
        for (const Riga& r : righe)
            somma += imposta(r);
    }
    return somma;
}

Importo ModelloLibri::totaleDelleRighe(const Documento& d) const {
    Importo somma = impostaDelleRighe(d);
    for (const auto& [extra, righe] : d.vendite) {
        for (const Riga& r : righe)
            somma += netto(r);
    }
    return somma;
}

// On credit by the customer's terms, if there are any.
int ModelloLibri::pagamentoDi(int cliente, bool pagato) const {
    const auto suo = mPagamenti.find(cliente);
    return pagato || suo == mPagamenti.end() ? pagamentoDelBanco : suo->second;
}

int ModelloLibri::nuovoDocumento(const QString& tipo, int cliente, QDate data, bool pagato) {
    Documento d{.tipo = tipo, .data = data, .cliente = cliente, .pagato = pagato};
    d.pagamento = pagamentoDi(cliente, pagato);
    d.numero = ++mContatori[tipo];
    mDocumenti[++mUltimaChiave] = d;
    return mUltimaChiave;
}

int ModelloLibri::salva(const QString& tipo, int cliente, QDate data, bool pagato, std::vector<Riga> righe) {
    const auto delGiorno = std::find_if(mDocumenti.begin(), mDocumenti.end(), [&](const auto& voce) {
        const Documento& d = voce.second;
        return cliente == clienteDelBanco && d.tipo == tipo && d.cliente == cliente && d.data == data;
    });
    const int chiave =
        delGiorno != mDocumenti.end() ? delGiorno->first : nuovoDocumento(tipo, cliente, data, pagato);
    Documento& d = mDocumenti[chiave];
    const int extra = d.vendite.empty() ? 1 : d.vendite.rbegin()->first + 1;
    for (Riga& r : righe)
        muovi(r.prodotto, r.quantita, r.taglio, data);
    d.vendite[extra] = righe;
    contabilizza(d);
    return chiave;
}

void ModelloLibri::risalva(int documento, int extra, const std::vector<RigaRisalvata>& righe, QDate oggi) {
    Documento& d = mDocumenti[documento];
    std::vector<Riga> rimaste;
    for (const RigaRisalvata& r : righe) {
        Riga nuova = r.riga;
        const int dopo = r.stato == RigaRisalvata::Cancellata ? 0 : nuova.quantita;
        if (r.stato != RigaRisalvata::Invariata)
            muovi(nuova.prodotto, dopo - r.quantitaPrima, nuova.taglio, oggi);
        if (r.stato != RigaRisalvata::Cancellata) rimaste.push_back(nuova);
    }
    d.vendite[extra] = rimaste;
    contabilizza(d);
}

bool ModelloLibri::cancella(int documento, int extra, QDate oggi) {
    const ModelloLibri prima = *this;
    Documento& d = mDocumenti[documento];
    for (Riga& r : d.vendite[extra])
        muovi(r.prodotto, -r.quantita, r.taglio, oggi);
    d.vendite.erase(extra);
    const Importo totale = totaleDelleRighe(d);
    const Importo dovuta = impostaDelleRighe(d);
    if (dovuta < 0) {
        *this = prima;
        return false;
    }
    if (d.vendite.empty()) {
        mPrimaNota.erase(d.registrazione);
        mPrimaNota.erase(d.incasso);
        mDocumenti.erase(documento);
        return true;
    }
    // Posted anew for what remains, under words of its own; the header keeps the totals of the last save.
    const QString resto = titolo("Vendita al Banco", d.numero, d.data);
    const QString partita = "VB/" + QString::number(d.numero);
    registra(d.registrazione,
             {d.data, tipi().at(d.tipo).causale, d.cliente, resto, partita, totale, dovuta, d.pagamento});
    registra(d.incasso,
             {d.data, causaleIncasso, d.cliente, "Incasso " + resto, partita, totale, dovuta, d.pagamento});
    return true;
}

void ModelloLibri::converti(int documento, const QString& tipo, const std::vector<RigaRisalvata>& righe,
                            QDate oggi) {
    const Documento origine = mDocumenti[documento];
    std::vector<Riga> rimaste;
    for (const RigaRisalvata& r : righe) {
        if (r.stato != RigaRisalvata::Cancellata) rimaste.push_back(r.riga);
    }
    salva(tipo, origine.cliente, oggi, origine.pagato, rimaste);
    cancella(documento, origine.vendite.begin()->first, oggi);
}

// Both ends at the layer of the shop's that the goods are taken from; nobody owes anything for them.
int ModelloLibri::trasferisci(QDate data, std::vector<Riga> righe) {
    const int chiave = nuovoDocumento(tipoTrasferimento, 0, data, false);
    for (Riga& r : righe) {
        const size_t p = static_cast<size_t>(r.prodotto);
        r.alCosto = true;
        r.taglio = mProdotti[p].gestito ? costoDaScaricare(mStrati[p]) : 0;
        if (!mProdotti[p].gestito) continue;
        strato(mStrati[p], r.taglio)->quantita -= r.quantita;
        const auto arrivo = strato(mDeposito[p], r.taglio);
        arrivo->quantita += r.quantita;
        arrivo->costo = r.taglio;
    }
    Documento& d = mDocumenti[chiave];
    d.vendite[1] = righe;
    d.totale = totaleDelleRighe(d);
    d.imposta = impostaDelleRighe(d);
    return chiave;
}

// ---- Journal

void ModelloLibri::registra(int& numero, const Registrazione& registrazione) {
    if (numero == 0) numero = mPrimaNota.empty() ? 1 : mPrimaNota.rbegin()->first + 1;
    mPrimaNota[numero] = registrazione;
}

void ModelloLibri::scadenzia(const Documento& d, Importo importo) {
    auto& scadenze = mPrimaNota[d.registrazione].scadenze;
    scadenze.clear();
    const Termini& termini = mTermini.at(d.pagamento);
    if (termini.acconto > 0) scadenze.emplace_back(d.data, importo * termini.acconto / 100);
    for (const auto& [giorni, percentuale] : termini.rate)
        scadenze.emplace_back(d.data.addDays(giorni), importo * percentuale / 100);
}

void ModelloLibri::contabilizza(Documento& d) {
    d.totale = totaleDelleRighe(d);
    d.imposta = impostaDelleRighe(d);
    const Tipo& tipo = tipi().at(d.tipo);
    const QString nome = titolo(tipo.descrizione, d.numero, d.data);
    const QString partita = d.tipo + "/" + QString::number(d.numero);
    registra(d.registrazione,
             {d.data, tipo.causale, d.cliente, nome, partita, d.totale, d.imposta, d.pagamento});
    if (d.pagato || d.cliente == clienteDelBanco)
        registra(d.incasso, {d.data, causaleIncasso, d.cliente, "Incasso " + nome, partita, d.totale,
                             d.imposta, d.pagamento});
    if (d.cliente != clienteDelBanco) scadenzia(d, d.totale);
}

// ---- As lines

void ModelloLibri::statoMagazzino(const QString& inizio, const Strati& strati, QStringList& righe) {
    for (size_t s = 0; s < strati.size(); ++s)
        righe << QString("DettagliProdotto|%1|%2|%3|%4")
                     .arg(inizio)
                     .arg(s)
                     .arg(testo(strati[s].costo))
                     .arg(strati[s].quantita);
}

void ModelloLibri::statoGiacenze(QStringList& righe) const {
    for (size_t p = 0; p < mProdotti.size(); ++p) {
        const QString& codice = mProdotti[p].codice;
        righe << "Prodotti|" + codice + "|" + QString::number(mGiacenze[p]);
        statoMagazzino(codice + "|1", mStrati[p], righe);
        statoMagazzino(codice + "|2", mDeposito[p], righe);
    }
}

void ModelloLibri::statoDocumenti(QStringList& righe) const {
    for (const auto& [tipo, numero] : mContatori)
        righe << QString("Contatori|%1|%2").arg(tipi().at(tipo).numeratore).arg(numero);
    for (const auto& [chiave, d] : mDocumenti) {
        const QString nome = d.tipo + "|" + QString::number(d.numero);
        const auto numero = [](int n) { return n == 0 ? QString() : QString::number(n); };
        if (d.tipo != tipoCarico)
            righe << QStringList{"Movimenti",
                                 nome,
                                 testo(d.data),
                                 numero(d.cliente),
                                 testo(d.totale - d.imposta),
                                 testo(d.imposta),
                                 testo(d.totale),
                                 numero(d.registrazione),
                                 numero(d.incasso),
                                 numero(d.pagamento)}
                         .join('|');
        for (const auto& [extra, vendute] : d.vendite) {
            size_t testa = 0;
            for (size_t i = 0; i < vendute.size(); ++i) {
                const Riga& r = vendute[i];
                if (!r.componente) testa = i + 1;
                const Importo iva = d.tipo == tipoCarico ? 0 : imposta(r);
                const Importo imponibile = d.tipo == tipoCarico ? 0 : netto(r);
                righe << QString("DettagliMovimento|%1|%2|%3|%4|%5|%6|%7|%8|%9")
                             .arg(nome)
                             .arg(extra)
                             .arg(i + 1)
                             .arg(r.componente ? QString::number(testa) : QString(),
                                  mProdotti[static_cast<size_t>(r.prodotto)].codice)
                             .arg(r.quantita)
                             .arg(testo(iva), testo(imponibile + iva), testo(r.taglio));
            }
        }
    }
}

void ModelloLibri::statoContabile(QStringList& righe) const {
    for (const auto& [numero, r] : mPrimaNota) {
        const QString inizio = "|" + QString::number(numero) + "|";
        righe << "PrimaNota" + inizio +
                     QStringList{testo(r.data),
                                 QString::number(r.causale),
                                 QString::number(r.cliente),
                                 r.descrizione,
                                 testo(r.importo),
                                 r.partita,
                                 QString::number(r.pagamento)}
                         .join('|');
        const auto riga = [&](int conto, Importo dare, Importo avere) {
            righe << "PrimaNotaDettagli" + inizio + QString::number(conto) + "|" + testo(dare) + "|" +
                         testo(avere);
        };
        if (r.causale == causaleIncasso) {
            riga(2, r.importo, 0);
            riga(1, 0, r.importo);
        } else {
            // VAT goes to an account of its own; a negative one is not taken off the revenue.
            riga(1, r.importo, 0);
            riga(3, 0, r.imposta > 0 ? r.importo - r.imposta : r.importo);
            riga(4, 0, r.imposta);
        }
        for (const auto& [data, importo] : r.scadenze)
            righe << "Scadenze" + inizio + testo(data) + "|" + testo(importo);
    }
}

QStringList ModelloLibri::stato() const {
    QStringList righe;
    statoGiacenze(righe);
    statoDocumenti(righe);
    statoContabile(righe);
    righe.sort();
    return righe;
}

namespace {

QStringList lette(const Negozio& n, const QString& tabella, const QString& query) {
    QStringList righe = n.righe(query);
    for (QString& riga : righe)
        riga.prepend(tabella + "|");
    return righe;
}

// The layers of a product in a warehouse count from 0, the oldest first.
QStringList stratiLetti(const Negozio& n) {
    QStringList righe;
    std::map<QString, int> visti;
    for (const QString& riga : n.righe("SELECT P.CODICE, D.FK_MAGAZZINO, D.TAGLIO, D.QUANTITA FROM "
                                       "DettagliProdotto D INNER JOIN Prodotti P ON D.FK_PRODOTTO = P.RID "
                                       "ORDER BY D.RID")) {
        const QString dove = riga.section('|', 0, 1);
        righe << QString("DettagliProdotto|%1|%2|%3").arg(dove).arg(visti[dove]++).arg(riga.section('|', 2));
    }
    return righe;
}

}  // namespace

QStringList statoLibri(const Negozio& n) {
    QStringList righe = stratiLetti(n);
    righe += lette(n, "Prodotti", "SELECT CODICE, GIACENZA FROM Prodotti");
    righe += lette(n, "Contatori", "SELECT FK_NUMERATORE, NUMERO FROM Contatori");
    righe += lette(n, "Movimenti",
                   "SELECT T.CODICE, M.PROGRESSIVO, M.DATA, A.NUMERO, M.TOTIMPONIBILE, M.TOTIMPOSTA, "
                   "M.TOTDOCUMENTO, P.PROGRESSIVO, I.PROGRESSIVO, M.FK_PAGAMENTO FROM Movimenti M INNER JOIN "
                   "TipoDocumenti T "
                   "ON M.FK_TIPODOCUMENTO = T.RID LEFT JOIN Anagrafiche A ON M.FK_CONTROPARTITA = A.RID LEFT "
                   "JOIN PrimaNota P ON M.FK_PRIMANOTA = P.RID LEFT JOIN PrimaNota I ON M.FK_PNPAGAMENTO = "
                   "I.RID WHERE T.CODICE <> 'CAR'");
    righe += lette(n, "DettagliMovimento",
                   "SELECT T.CODICE, M.PROGRESSIVO, D.EXTRAPROG, D.POS, K.POS, D.CODPRODOTTO, D.QUANTITA, "
                   "D.TOTALEIVA, D.TOTALERIGA, D.TAGLIO FROM DettagliMovimento D INNER JOIN Movimenti M ON "
                   "D.FK_MOVIMENTO = M.RID INNER JOIN TipoDocumenti T ON M.FK_TIPODOCUMENTO = T.RID LEFT "
                   "JOIN DettagliMovimento K ON D.IK_DETTAGLIOMOVIMENTO = K.RID");
    righe += lette(
        n, "PrimaNota",
        "SELECT P.PROGRESSIVO, P.DATA, P.FK_CAUSALE, A.NUMERO, P.DESCRIZIONE, P.IMPORTO, "
        "P.CODICEPARTITA, P.FK_PAGAMENTO FROM PrimaNota P INNER JOIN Anagrafiche A ON P.FK_ANAGRAFE = A.RID");
    righe += lette(n, "PrimaNotaDettagli",
                   "SELECT P.PROGRESSIVO, D.FK_CONTO, D.DARE, D.AVERE FROM PrimaNotaDettagli D INNER JOIN "
                   "PrimaNota P ON D.FK_PRIMANOTA = P.RID");
    righe += lette(n, "Scadenze",
                   "SELECT P.PROGRESSIVO, S.DATA, S.IMPORTO FROM Scadenze S INNER JOIN PrimaNota P ON "
                   "S.FK_PRIMANOTA = P.RID");
    righe.sort();
    return righe;
}
