#include <iostream>
#include <random>

#include "core/format.h"
#include "core/globals.h"
#include "doubles/kit_di_prova.h"
#include "postings/books.h"
#include "postings/books_model.h"
#include "postings/delete_sale.h"
#include "postings/save_sale.h"
#include "sale/document_info.h"
#include "sale/recall.h"
#include "sale/returns.h"
#include "sale/sale_document.h"

// A shop at work, at random, beside a model of its books: after each step both tell the same. A failure is
// played again with BOTTEGON_SEME, the seed that was printed.

namespace {

using Risposta = OperatorPort::Risposta;
using RigaRisalvata = ModelloLibri::RigaRisalvata;

constexpr int clienti[] = {7, 8};
// Places of the products in the list; the first keys are given in its order.
constexpr int primoSenzaMezzi = 2;
constexpr int vite = 4;
constexpr int staffa = 5;

unsigned seme() {
    bool detto = false;
    const unsigned numero = qEnvironmentVariable("BOTTEGON_SEME").toUInt(&detto);
    return detto ? numero : std::random_device{}();
}

// The rows that stand by themselves, a kit in its first.
std::vector<size_t> prodottiInteri(const std::vector<RigaRisalvata>& righe) {
    std::vector<size_t> intere;
    for (size_t i = 0; i < righe.size(); ++i) {
        if (!righe[i].riga.componente) intere.push_back(i);
    }
    return intere;
}

class Passeggiata {
  public:
    explicit Passeggiata(int prezzoMedio);
    // The archive tool looks at the books after so many steps each time.
    void passi(int quanti, int traVerifiche);

  private:
    struct Scelta {
        int documento;
        int extra;
    };

    void riempiCatalogo();
    void apriContabilita();
    void apriDocumenti();
    int caso(int quanti) { return static_cast<int>(mCaso() % static_cast<unsigned>(quanti)); }
    QDate oggi() const { return n.orologio.istante.date(); }
    // A saved sale of the counter's document type, if there is one.
    std::optional<Scelta> scegli(bool soloClienti);
    QString numero(const Scelta& s) const;
    // Puts it on a screen: the till's for the walk-in customer, an account of its own for the others.
    ContoDiProva& mostra(const Scelta& s);
    ContoDiProva& contoDel(int cliente);
    void aggiungi(ContoDiProva& c, int prodotto, int quantita);
    std::vector<std::pair<int, int>> merceNuova();
    // On the screen, and the rows that come of it.
    std::vector<ModelloLibri::Riga> aggiungi(ContoDiProva& c, const std::vector<std::pair<int, int>>& merce);

    std::vector<RigaRisalvata> righeSalvate(const Scelta& s) const;
    // Of a sale on the screen: a row's quantity, a row away, rows more.
    void cambia(ContoDiProva& c, std::vector<RigaRisalvata>& righe, size_t r);
    void togli(ContoDiProva& c, std::vector<RigaRisalvata>& righe, size_t r);
    void allunga(ContoDiProva& c, std::vector<RigaRisalvata>& righe);

    void nuova();
    void ritocca();
    void cancella();
    void converti();
    void trasferisci();
    void carica();
    void nuovoGiorno();
    void nuoviTermini();
    void confronta();

    Negozio n;
    ModelloLibri m;
    unsigned mSeme;
    std::mt19937 mCaso;
    std::map<int, QString> mChiavi;  // Movimenti.RID of a document of the model
    QStringList mDiario;             // what was done
};

Passeggiata::Passeggiata(int prezzoMedio) : m(prezzoMedio == 1), mSeme(seme()), mCaso(mSeme) {
    std::cout << "BOTTEGON_SEME=" << mSeme << std::endl;
    gNomeModulo = "bBottegonClientVB";
    gPrezzoMedio = prezzoMedio;
    gMesiPrezzoMedio = mesiDelModello;
    riempiCatalogo();
    apriContabilita();
    apriDocumenti();
    n.apriConto();
}

void Passeggiata::riempiCatalogo() {
    struct Merce {
        const char* codice;
        int centesimi, idIva, aliquota, costo, giacenza;
    };
    for (const Merce& p : {Merce{"A", 1000, 1, 22, 30000, 5},
                           {"B", 550, 2, 10, 12000, 5},
                           {"C", 200, 1, 22, 0, -1},
                           {"D", 50, 3, 4, 2000, 5},
                           {"VITE", 100, 1, 22, 5000, 5},
                           {"STAFFA", 400, 1, 22, 15000, 5}}) {
        const bool gestito = p.giacenza >= 0;
        const int giacenza = gestito ? p.giacenza : 0;
        n.prodotto({.codice = p.codice,
                    .listino1 = p.centesimi / 100.0,
                    .idIva = p.idIva,
                    .giacenza = static_cast<double>(giacenza),
                    .gestioneGiacenza = gestito,
                    .prezzoAcquisto = p.costo / 10000.0});
        m.aggiungiProdotto({p.codice, p.centesimi * 100LL, p.aliquota, p.costo, gestito}, giacenza, p.costo);
    }
    n.sql(
        "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) SELECT RID, 1, "
        "PREZZOACQUISTO, GIACENZA FROM Prodotti WHERE SETGIACENZA <> 0 ORDER BY RID");
    distinta(n, "%KIT", {{vite + 1, 2, 0}, {staffa + 1, 1, 0}});
    m.aggiungiProdotto({"%KIT", 0, 22, 0, false, {{vite, 2}, {staffa, 1}}}, 0, 0);
}

void Passeggiata::apriContabilita() {
    for (const int cliente : clienti)
        n.cliente(cliente, "CLIENTE " + QString::number(cliente));
    n.sql(
        "UPDATE Causali SET GENERASCAD = 1, FK_CONTODARE1 = 1, FK_CONTOAVERE1 = 3, FK_CONTOAVERE2 = 4 "
        "WHERE RID = 1");
    n.sql("UPDATE Causali SET FK_CONTODARE1 = 2, FK_CONTOAVERE1 = 1 WHERE RID = 2");
    n.sql(
        "INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE, ACCONTO, NRATE) VALUES (2,'ACC','Acconto',10,2),"
        "(3,'30','30 giorni',0,1)");
    n.sql(
        "INSERT INTO DettagliPagamenti (FK_PAGAMENTO, NGIORNI, PERCENTUALE) VALUES (2,30,45),(2,60,45),"
        "(3,30,100)");
    m.aggiungiPagamento(ModelloLibri::pagamentoDelBanco, {});
    m.aggiungiPagamento(2, {10, {{30, 45}, {60, 45}}});
    m.aggiungiPagamento(3, {0, {{30, 100}}});
}

// An invoice, a load from a supplier, and a transfer to a second warehouse.
void Passeggiata::apriDocumenti() {
    n.sql(
        "INSERT INTO Causali (RID, CODICE, OPERAZIONE, ORIGINE, DESTINAZIONE, FK_MAGAZZINOORIG, TAGLIO, "
        "GENERAPN, GENERASCAD, FK_CONTODARE1, FK_CONTOAVERE1, FK_CONTOAVERE2) VALUES "
        "(3,'FT',1,3,1,1,0,1,1,1,3,4)");
    n.sql(
        "INSERT INTO Causali (RID, CODICE, OPERAZIONE, ORIGINE, DESTINAZIONE, FK_MAGAZZINODEST) VALUES "
        "(9,'CAR',1,2,3,1)");
    n.sql("INSERT INTO Magazzini (RID, CODICE, DESCRIZIONE) VALUES (2,'DEP','Deposito')");
    n.sql(
        "INSERT INTO Causali (RID, CODICE, OPERAZIONE, ORIGINE, DESTINAZIONE, FK_MAGAZZINOORIG, "
        "FK_MAGAZZINODEST, GENERAPN, GENERASCAD) VALUES (4,'DT',1,3,3,1,2,1,1)");
    n.sql(
        "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
        "NONSTAMPAREVB) VALUES "
        "(2,'FT','Fattura',3,2,0,1),(4,'DT','Trasferimento',4,4,0,1),(9,'CAR','Carico',9,9,0,1)");
}

// ---- Screens

std::optional<Passeggiata::Scelta> Passeggiata::scegli(bool soloClienti) {
    std::vector<Scelta> possibili;
    for (const auto& [chiave, d] : m.documenti()) {
        if (d.tipo != tipoBanco || (soloClienti && d.cliente == ModelloLibri::clienteDelBanco)) continue;
        for (const auto& [extra, righe] : d.vendite)
            possibili.push_back({chiave, extra});
    }
    if (possibili.empty()) return std::nullopt;
    return possibili[static_cast<size_t>(caso(static_cast<int>(possibili.size())))];
}

QString Passeggiata::numero(const Scelta& s) const {
    return QString("%1/%2")
        .arg(m.documenti().at(s.documento).numero, 4, 10, QChar('0'))
        .arg(s.extra, 4, 10, QChar('0'));
}

ContoDiProva& Passeggiata::mostra(const Scelta& s) {
    const int rid = mChiavi[s.documento].toInt();
    if (m.documenti().at(s.documento).cliente != ModelloLibri::clienteDelBanco) {
        EXPECT_TRUE(apriContoConVendita(rid));
        return static_cast<ContoDiProva&>(*gConti[1]);
    }
    ContoDiProva& c = static_cast<ContoDiProva&>(*gConti[0]);
    showVendita(c.vendita(), rid, -1, s.extra, -1);
    return c;
}

ContoDiProva& Passeggiata::contoDel(int cliente) {
    if (cliente == ModelloLibri::clienteDelBanco) {
        ContoDiProva& c = static_cast<ContoDiProva&>(*gConti[0]);
        c.tasto(Qt::Key_F2);
        return c;
    }
    const bool inSospeso = std::any_of(m.documenti().begin(), m.documenti().end(), [&](const auto& voce) {
        return voce.second.tipo == tipoBanco && voce.second.cliente == cliente;
    });
    if (inSospeso)
        n.operatore.attendiDomanda("Attenzione per il cliente selezionato [CLIENTE " +
                                       QString::number(cliente) +
                                       "], \nesiste già un documento non ancora stampato.\nContinuare con "
                                       "quello esistente?",
                                   Risposta::No);
    ContoDiProva& c = n.apriConto(1);
    c.digita(QString::number(cliente));
    c.invio();
    return c;
}

void Passeggiata::aggiungi(ContoDiProva& c, int prodotto, int quantita) {
    c.clic(c.vendita().txtCodProdotto);
    c.digita(m.prodotti()[static_cast<size_t>(prodotto)].codice);
    c.invio();
    if (quantita < 0) c.tasto(Qt::Key_F6, Qt::ShiftModifier);
    c.clic(c.vendita().txtQta);
    c.digita(QString::number(std::abs(quantita)));
    c.tasto(Qt::Key_F6);
}

std::vector<ModelloLibri::Riga> Passeggiata::aggiungi(ContoDiProva& c,
                                                      const std::vector<std::pair<int, int>>& merce) {
    std::vector<ModelloLibri::Riga> righe;
    for (const auto& [prodotto, quantita] : merce) {
        aggiungi(c, prodotto, quantita);
        for (const ModelloLibri::Riga& riga : m.righeDi(prodotto, quantita))
            righe.push_back(riga);
    }
    return righe;
}

// Some products and how many, now and then one that comes back.
std::vector<std::pair<int, int>> Passeggiata::merceNuova() {
    std::vector<std::pair<int, int>> scelti;
    for (int p = 0; p < static_cast<int>(m.prodotti().size()); ++p) {
        if (caso(2) == 0) continue;
        const int quantita = 1 + caso(6);
        scelti.emplace_back(p, caso(8) == 0 ? -quantita : quantita);
    }
    if (scelti.empty()) scelti.emplace_back(0, 1);
    return scelti;
}

// ---- What happens

void Passeggiata::nuova() {
    const int cliente = std::array{1, 1, 7, 8}[static_cast<size_t>(caso(4))];
    const bool pagato = cliente != ModelloLibri::clienteDelBanco && caso(2) == 0;
    ContoDiProva& c = contoDel(cliente);
    if (pagato) c.vendita().chkPagato.valore(1);
    const auto righe = aggiungi(c, merceNuova());
    mDiario << QString("nuova vendita, cliente %1, %2 righe").arg(cliente).arg(righe.size());
    c.tasto(Qt::Key_F5);
    const int chiave = m.salva(tipoBanco, cliente, oggi(), pagato, righe);
    mChiavi[chiave] = c.vendita().lblRID.testo();
}

std::vector<RigaRisalvata> Passeggiata::righeSalvate(const Scelta& s) const {
    std::vector<RigaRisalvata> righe;
    for (const auto& riga : m.documenti().at(s.documento).vendite.at(s.extra))
        righe.push_back({riga, riga.quantita});
    return righe;
}

void Passeggiata::cambia(ContoDiProva& c, std::vector<RigaRisalvata>& righe, size_t r) {
    const int segno = righe[r].riga.quantita < 0 ? -1 : 1;
    m.cambiaQuantita(righe, r, segno * (std::abs(righe[r].riga.quantita) % 7 + 1));
    c.clicRiga(static_cast<int>(r) + 1);
    c.clic(c.vendita().txtQta);
    c.digita(QString::number(std::abs(righe[r].riga.quantita)));
    c.tasto(Qt::Key_F6);
    mDiario << "  quantità della riga " + QString::number(r + 1);
}

void Passeggiata::togli(ContoDiProva& c, std::vector<RigaRisalvata>& righe, size_t r) {
    const QString& codice = m.prodotti()[static_cast<size_t>(righe[r].riga.prodotto)].codice;
    const QString nome = codice.startsWith('%') ? "Kit " + codice.mid(1) : codice;
    n.operatore.attendiDomanda("Eliminare il prodotto [" + nome + "]?", Risposta::Si);
    c.clicRiga(static_cast<int>(r) + 1);
    c.tasto(Qt::Key_F9);
    righe[r].stato = RigaRisalvata::Cancellata;
    // The components go with their kit; the rows below move up, and are written anew.
    bool sue = true;
    for (size_t i = r + 1; i < righe.size(); ++i) {
        sue = sue && righe[i].riga.componente;
        righe[i].stato = sue ? RigaRisalvata::Cancellata : RigaRisalvata::Modificata;
    }
    mDiario << "  via la riga " + QString::number(r + 1);
}

// Some products that the sale does not have yet.
void Passeggiata::allunga(ContoDiProva& c, std::vector<RigaRisalvata>& righe) {
    for (const auto& merce : merceNuova()) {
        const bool presente = std::any_of(righe.begin(), righe.end(), [&](const RigaRisalvata& altra) {
            return altra.riga.prodotto == merce.first && !altra.riga.componente;
        });
        if (presente || caso(2) == 0) continue;
        for (const auto& riga : aggiungi(c, {merce}))
            righe.push_back({riga, 0, RigaRisalvata::Nuova});
        mDiario << "  una riga in più";
    }
}

void Passeggiata::ritocca() {
    const auto scelta = scegli(false);
    if (!scelta) return;
    ContoDiProva& c = mostra(*scelta);
    std::vector<RigaRisalvata> righe = righeSalvate(*scelta);
    const std::vector<size_t> intere = prodottiInteri(righe);
    const size_t r = intere[static_cast<size_t>(caso(static_cast<int>(intere.size())))];
    mDiario << "ritocca " + numero(*scelta);
    if (caso(2) == 0) {
        cambia(c, righe, r);
    } else if (intere.size() > 1) {
        togli(c, righe, r);
    }
    allunga(c, righe);
    c.tasto(Qt::Key_F5);
    m.risalva(scelta->documento, scelta->extra, righe, oggi());
    if (gConti[1]) gConti[1]->scarica();
}

void Passeggiata::cancella() {
    const auto scelta = scegli(false);
    if (!scelta) return;
    mDiario << "cancella " + numero(*scelta);
    n.operatore.attendiDomanda("Eliminare il movimento con progressivo " + numero(*scelta) + "?",
                               Risposta::Si);
    ModelloLibri resto = m;
    if (!resto.cancella(scelta->documento, scelta->extra, oggi())) {
        auto d = m.documenti().at(scelta->documento);
        d.vendite.erase(scelta->extra);
        n.operatore.attendiMessaggio(
            "Impossibile eliminare la vendita: l'IVA di ciò che resterebbe nel documento è negativa (" +
            Format(static_cast<double>(m.impostaDelleRighe(d)) / 10000.0, u"0.00").replace('.', ',') + ").");
        mDiario << "  rifiutata";
    }
    mostra(*scelta).tasto(Qt::Key_F7, Qt::ShiftModifier);
    m = resto;
    if (gConti[1]) gConti[1]->scarica();
}

// As the conversion does it: the rows are saved under the other type, then the source goes, and with it a row
// that was taken away on the screen.
void Passeggiata::converti() {
    const auto scelta = scegli(true);
    if (!scelta) return;
    mDiario << "converti " + numero(*scelta);
    const ModelloLibri::Documento origine = m.documenti().at(scelta->documento);
    if (m.impostaDelleRighe(origine) < 0) return;
    ContoDiProva& c = mostra(*scelta);
    Vendita& v = c.vendita();
    std::vector<RigaRisalvata> righe = righeSalvate(*scelta);
    const std::vector<size_t> intere = prodottiInteri(righe);
    if (intere.size() > 1 && caso(2) == 0)
        togli(c, righe, intere[static_cast<size_t>(caso(static_cast<int>(intere.size())))]);
    const int idOrigine = v.rid();
    const int registrazione = v.idPrimaNota;
    const int incasso = v.idPNPagamento;
    setInfoDocumento(v, 2);
    setForNewMovimento(v);
    EXPECT_TRUE(salvaVendita(v, true, 2));
    const QString nuovo = v.lblRID.testo();
    v.idPrimaNota = registrazione;
    v.idPNPagamento = incasso;
    EXPECT_TRUE(cancellaVendita(v, idOrigine, false));
    gConti[1]->scarica();
    m.converti(scelta->documento, tipoFattura, righe, oggi());
    mChiavi[m.documenti().rbegin()->first] = nuovo;
}

// At the average only products whose tax on any cost has no middle between two amounts.
void Passeggiata::trasferisci() {
    auto merce = merceNuova();
    std::erase_if(merce, [](const auto& m) { return gPrezzoMedio == 1 && m.first < primoSenzaMezzi; });
    for (auto& [prodotto, quantita] : merce)
        quantita = std::abs(quantita);
    if (merce.empty()) return;
    mDiario << QString("trasferimento di %1 prodotti").arg(merce.size());
    gTipoDocVb = 4;
    ContoDiProva& c = n.apriConto(1);
    c.vendita().txtCodCliente.tag("1");
    const auto righe = aggiungi(c, merce);
    EXPECT_TRUE(salvaVendita(c.vendita(), false, -1));
    c.scarica();
    gTipoDocVb = 1;
    mChiavi[m.trasferisci(oggi(), righe)] = n.valore("SELECT MAX(RID) FROM Movimenti");
}

// Goods arrive, booked by another program.
void Passeggiata::carica() {
    const int prodotto = std::array{0, 1, 3}[static_cast<size_t>(caso(3))];
    const int quantita = 1 + caso(20);
    // At the average multiples of a power of two: none of so few pieces stands in the middle between two
    // amounts, where a server's sum of binary fractions falls to either side.
    const Decimillesimi costo = gPrezzoMedio == 1 ? 2048 * (1 + caso(5)) : 1000 + 500 * caso(5);
    m.carica(prodotto, quantita, costo, oggi());
    const auto& [chiave, d] = *m.documenti().rbegin();
    const QString codice = m.prodotti()[static_cast<size_t>(prodotto)].codice;
    mDiario << QString("carico di %1 %2 a %3").arg(quantita).arg(codice).arg(costo);
    const QString data = "'" + oggi().toString(Qt::ISODate) + " 00:00:00'";
    const QString prezzo = QString::number(static_cast<double>(costo) / 10000.0);
    const QString rid = n.valore("SELECT RID FROM Prodotti WHERE CODICE = '" + codice + "'");
    n.sql(QString("INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_DESTINAZIONE) VALUES "
                  "(%1,2026,%2,9,1)")
              .arg(d.numero)
              .arg(data));
    n.sql(
        QString("INSERT INTO DettagliMovimento (FK_MOVIMENTO, EXTRAPROG, POS, FK_PRODOTTO, CODPRODOTTO, "
                "QUANTITA, PREZZONETTO, TOTALEIVA, TOTALERIGA, TAGLIO) SELECT MAX(RID), 1, 1, %1, '%2', %3, "
                "%4, 0, 0, %4 FROM Movimenti")
            .arg(rid, codice)
            .arg(quantita)
            .arg(prezzo));
    n.sql(d.numero == 1 ? QString("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO) VALUES (9,'2026',1)")
                        : QString("UPDATE Contatori SET NUMERO = NUMERO + 1 WHERE FK_NUMERATORE = 9"));
    n.sql(QString("UPDATE Prodotti SET GIACENZA = GIACENZA + %1 WHERE RID = %2").arg(quantita).arg(rid));
    const QString dove = " WHERE FK_MAGAZZINO = 1 AND FK_PRODOTTO = " + rid +
                         (gPrezzoMedio == 1 ? QString() : " AND TAGLIO = " + prezzo);
    if (n.conta("DettagliProdotto", dove.mid(7)) > 0) {
        n.sql(QString("UPDATE DettagliProdotto SET QUANTITA = QUANTITA + %1").arg(quantita) + dove);
    } else {
        n.sql(QString("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES "
                      "(%1,1,%2,%3)")
                  .arg(rid, prezzo)
                  .arg(quantita));
    }
}

void Passeggiata::nuovoGiorno() {
    if (oggi() >= QDate(2026, 12, 30)) return;
    n.orologio.istante = n.orologio.istante.addDays(1);
    mDiario << "è il " + oggi().toString(Qt::ISODate);
}

// A customer has other terms from now on, or none.
void Passeggiata::nuoviTermini() {
    const int cliente = clienti[caso(2)];
    const int pagamento = 1 + caso(3);
    m.assegnaPagamento(cliente, pagamento);
    n.sql(QString("UPDATE Anagrafiche SET FK_PAGAMENTO = %1 WHERE NUMERO = %2")
              .arg(pagamento == ModelloLibri::pagamentoDelBanco ? "NULL" : QString::number(pagamento))
              .arg(cliente));
    mDiario << QString("pagamento %1 per il cliente %2").arg(pagamento).arg(cliente);
}

void Passeggiata::confronta() {
    const QStringList attesi = m.stato();
    const QStringList letti = statoLibri(n);
    if (attesi == letti) return;
    QStringList diversi;
    for (const QString& riga : attesi) {
        if (!letti.contains(riga)) diversi << "manca   " + riga;
    }
    for (const QString& riga : letti) {
        if (!attesi.contains(riga)) diversi << "di più  " + riga;
    }
    ADD_FAILURE() << diversi.join('\n').toStdString();
}

void Passeggiata::passi(int quanti, int traVerifiche) {
    using Passo = void (Passeggiata::*)();
    constexpr Passo passi[] = {
        &Passeggiata::nuova,       &Passeggiata::nuova,       &Passeggiata::nuova,
        &Passeggiata::ritocca,     &Passeggiata::ritocca,     &Passeggiata::ritocca,
        &Passeggiata::carica,      &Passeggiata::cancella,    &Passeggiata::cancella,
        &Passeggiata::converti,    &Passeggiata::nuovoGiorno, &Passeggiata::trasferisci,
        &Passeggiata::nuoviTermini};
    for (int i = 1; i <= quanti && !testing::Test::HasFailure(); ++i) {
        mDiario.clear();
        (this->*passi[caso(std::size(passi))])();
        confronta();
        EXPECT_TRUE(n.operatore.esaurito());
        if (i % traVerifiche == 0 || i == quanti) {
            EXPECT_EQ(n.verifica(), QStringList());
        }
        if (testing::Test::HasFailure())
            ADD_FAILURE() << "BOTTEGON_SEME=" << mSeme << ", passo " << i << ":\n"
                          << mDiario.join('\n').toStdString();
    }
}

}  // namespace

TEST(RandomWalk, BooksAgreeWithTheModelByLayers) {
    Passeggiata(0).passi(200, 5);
}

TEST(RandomWalk, BooksAgreeWithTheModelAtTheAverage) {
    Passeggiata(1).passi(200, 5);
}

TEST(RandomWalkLong, BooksAgreeWithTheModelByLayers) {
    Passeggiata(0).passi(2000, 1);
}

TEST(RandomWalkLong, BooksAgreeWithTheModelAtTheAverage) {
    Passeggiata(1).passi(2000, 1);
}
