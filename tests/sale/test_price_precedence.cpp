#include "core/value_helpers.h"
#include "exact_pricing.h"
#include "gesti.h"
#include "price_precedence.h"
#include "sale/grid.h"
#include "sale/price_tables.h"

namespace {

// One customer of each kind, and for it every kind of product.
struct ClienteTipo {
    int listino;
    int sconto;
    int fascia;
};

const int categoriaSconti = 1, categoriaVuota = 2, categoriaNetti = 3;
const int marcaConFasce = 2, marcaSenzaFasce = 3;
const int quantitaProvate[] = {10, 15, 20, 50, 51};              // the entry itself is of one piece
const std::initializer_list<int> listiniProvati = {0, 1, 2, 3};  // 0 stands for 1; 3 holds no price
const Decimale iva{2200, 2};

struct ArticoloTipo {
    QString codice;
    int rid;
    int personale;  // cents, below 0 for none
    int sconto;
    int marca;
    int categoria;
    Fasce nette;
};

Fascia sconti(int da, int a, int s1, int s2, int s3) {
    return {da, a, {{{s1 * 100, 2}, {s2 * 100, 2}, {s3 * 100, 2}}}, {}};
}

Fascia netto(int da, int a, int centesimi) {
    return {da, a, {}, {centesimi, 2}};
}

// The tables of the shop. Band 1 has a brand's rows and general ones, band 2 a brand's only.
const Fasce& fasceDiMarca(int fascia) {
    static const Fasce prima = {sconti(1, 10, 20, 3, 0), sconti(51, 51, 25, 0, 0)};
    static const Fasce seconda = {sconti(1, 100, 30, 0, 1)};
    return fascia == 1 ? prima : seconda;
}

const Fasce& fasceGenerali(int fascia) {
    static const Fasce prima = {sconti(1, 15, 10, 5, 2), sconti(16, 20, 12, 0, 0)};
    static const Fasce nessuna;
    return fascia == 1 ? prima : nessuna;
}

const Fasce nettiDaUnPezzo = {netto(1, 10, 650), netto(20, 50, 600)};
const Fasce nettiDaQuindici = {netto(15, 50, 550)};

// Rows of a table that go in with one statement.
class Righe {
  public:
    explicit Righe(const QString& tabella) : mTabella(tabella) {}
    template <class... Valori>
    void aggiungi(const Valori&... valori) {
        mRighe << "(" + QStringList{sql(valori)...}.join(",") + ")";
    }
    void scrivi(Negozio& n) const { n.sql("INSERT INTO " + mTabella + " VALUES " + mRighe.join(",")); }

  private:
    static QString sql(int numero) { return QString::number(numero); }
    static QString sql(const QString& testo) { return "'" + testo + "'"; }
    static QString sql(Decimale numero) { return piano(numero).replace(',', '.'); }
    static QString sql(std::optional<int> chiave) { return chiave ? sql(*chiave) : "Null"; }

    QString mTabella;
    QStringList mRighe;
};

std::optional<int> chiave(int rid) {
    return rid > 0 ? std::optional(rid) : std::nullopt;
}

struct TuttiIPrezzi : testing::Test {
    Negozio n;
    ClienteTipo tipo{};
    const int idCliente = n.cliente(2, "Cliente");
    std::vector<ArticoloTipo> articoli;

    Righe prodotti{
        "Prodotti (RID, CODICE, DESCRIZIONE, DISABILITATO, FK_IVA, FK_UNITAMISURA, SETGIACENZA, "
        "BLOCCAPREZZO, LISTINO1, LISTINO2, LISTINO3, SCONTO, FK_MARCA, FK_CATSCOVEN)"};
    Righe listini{"Listini (FK_ANAGRAFE, FK_PRODOTTO, PREZZO)"};
    Righe gruppi{"CatScVendita (RID, FK_CATEGORIA, FK_FASCIA, FK_MARCA)"};
    Righe fasce{"CatScVenditeSconti (FK_CATSCVENDITE, RANGEMIN, RANGEMAX, SCONTO1, SCONTO2, SCONTO3)"};
    Righe gruppiNetti{"CatScProdVendita (RID, FK_CATEGORIA, FK_FASCIA, FK_PRODOTTO)"};
    Righe fasceNette{"CatScVenditaProd (FK_CATSCVENDITEPROD, RANGEMIN, RANGEMAX, PREZZO)"};
    int ultimoGruppo = 0;

    void SetUp() override {
        gCatPrezziNetti = categoriaNetti;
        n.sql("INSERT INTO Marche (RID, CODICE, DESCRIZIONE) VALUES (2, 'MB', 'MB'), (3, 'MC', 'MC')");
        n.sql("INSERT INTO FasceClienti (RID, CODICE, DESCRIZIONE) VALUES (1, 'F1', 'F1'), (2, 'F2', 'F2')");
        n.sql(
            "INSERT INTO CategorieSconti (RID, CODICE, DESCRIZIONE) "
            "VALUES (1, 'C1', 'C1'), (2, 'C2', 'C2'), (3, 'C3', 'C3')");
        for (int fascia : {1, 2}) {
            tabella(fascia, marcaConFasce, fasceDiMarca(fascia));
            tabella(fascia, 0, fasceGenerali(fascia));
        }
        tuttiGliArticoli();
        for (const Righe* righe : {&prodotti, &listini, &gruppi, &fasce, &gruppiNetti, &fasceNette}) {
            righe->scrivi(n);
        }
    }

    void tabella(int fascia, int marca, const Fasce& righe) {
        gruppi.aggiungi(++ultimoGruppo, categoriaSconti, fascia, chiave(marca));
        for (const Fascia& f : righe) {
            const Decimale* s = f.percentuali.sconti;
            fasce.aggiungi(ultimoGruppo, f.da, f.a, s[0], s[1], s[2]);
        }
    }

    // Net prices of a product; those of band 2 are higher by a cent.
    void tabellaNetta(int idProdotto, const Fasce& righe) {
        for (int fascia : {1, 2}) {
            gruppiNetti.aggiungi(++ultimoGruppo, categoriaNetti, fascia, idProdotto);
            for (const Fascia& f : righe) {
                fasceNette.aggiungi(ultimoGruppo, f.da, f.a, Decimale{f.prezzo.cifre + fascia - 1, 2});
            }
        }
    }

    void tuttiGliArticoli() {
        for (int personale : {-1, 0, 777}) {
            for (int sconto : {0, 12}) {
                for (int marca : {0, marcaConFasce, marcaSenzaFasce}) {
                    for (int categoria = 0; categoria <= 4; ++categoria) {
                        articolo(personale, sconto, marca, categoria);
                    }
                }
            }
        }
    }

    // Category 4 here: the one of net prices again, for a product that has none below 15 pieces.
    void articolo(int personale, int sconto, int marca, int tipoCategoria) {
        const int categoria = tipoCategoria == 4 ? categoriaNetti : tipoCategoria;
        const Fasce& nette = tipoCategoria == 4 ? nettiDaQuindici : nettiDaUnPezzo;
        const int rid = 100 + static_cast<int>(articoli.size());
        const QString codice = "P" + QString::number(rid);
        prodotti.aggiungi(rid, codice, codice, 0, 1, 1, 0, 0, 10, 9, 0, sconto, chiave(marca),
                          chiave(categoria));
        listini.aggiungi(1, rid, Decimale{111, 2});
        if (personale >= 0) listini.aggiungi(idCliente, rid, Decimale{personale, 2});
        if (categoria == categoriaNetti) tabellaNetta(rid, nette);
        articoli.push_back({codice, rid, personale, sconto, marca, categoria, nette});
    }

    // The customer becomes one of that kind.
    void diventa(const ClienteTipo& altro) {
        tipo = altro;
        n.sql(
            QString("UPDATE Anagrafiche SET LISTINO = %1, SCONTO = %2, FK_FASCIACLIENTE = %3 WHERE RID = %4")
                .arg(tipo.listino)
                .arg(tipo.sconto)
                .arg(tipo.fascia > 0 ? QString::number(tipo.fascia) : "Null")
                .arg(idCliente));
    }

    CasoDiPrezzo caso(const ArticoloTipo& a) const {
        CasoDiPrezzo c;
        c.listino = tipo.listino;
        c.scontoCliente = {tipo.sconto * 100, 2};
        c.haFascia = tipo.fascia > 0;
        c.listini[0] = {1000, 2};
        c.listini[1] = {900, 2};
        if (a.personale >= 0) c.personale = valuta(Decimale{a.personale, 2});
        c.scontoProdotto = {a.sconto * 100, 2};
        c.haCategoria = a.categoria > 0;
        c.prezziNetti = a.categoria == categoriaNetti;
        if (a.categoria == categoriaSconti && c.haFascia) {
            if (a.marca == marcaConFasce) c.diMarca = fasceDiMarca(tipo.fascia);
            c.generali = fasceGenerali(tipo.fascia);
        }
        c.nette = a.nette;
        for (Fascia& f : c.nette) {
            f.prezzo.cifre += tipo.fascia - 1;
        }
        return c;
    }

    std::string descrizione(const ArticoloTipo& a) const {
        return QString(
                   "listino %1, sconto cliente %2, fascia %3; %4: personale %5, sconto %6, marca %7, "
                   "categoria %8")
            .arg(tipo.listino)
            .arg(tipo.sconto)
            .arg(tipo.fascia)
            .arg(a.codice)
            .arg(a.personale)
            .arg(a.sconto)
            .arg(a.marca)
            .arg(a.categoria)
            .toStdString();
    }

    // The editor, and the row that was written from it.
    void confronta(Vendita& v, const PrezzoEffettivo& atteso, int pezzi) {
        SCOPED_TRACE(testing::Message() << pezzi << " pezzi");
        const Percentuali& p = atteso.percentuali();
        const Decimale prezzo = arrotondato(atteso.prezzo(), 2);
        EXPECT_EQ(v.txtPrezzoListino.testo(), mostrato(prezzo));
        EXPECT_EQ(v.txtPrezzoListinoLordo.testo(),
                  mostrato(arrotondato(Decimale{prezzo.cifre * (10000 + iva.cifre), 6}, 2)));
        EXPECT_EQ(v.txtSconto1.testo(), mostrato(p.sconti[0]));
        EXPECT_EQ(v.txtSconto2.testo(), mostrato(p.sconti[1]));
        EXPECT_EQ(v.txtSconto3.testo(), mostrato(p.sconti[2]));
        const int r = v.flxVB.ultima();
        EXPECT_EQ(getValoreCurrency(v.flxVB.cella(r, Colonna::PrezzoListino)).testo(), piano(prezzo));
        EXPECT_EQ(v.flxVB.single(r, Colonna::Quantita), static_cast<float>(pezzi));
        EXPECT_EQ(getValoreCurrency(v.flxVB.cella(r, Colonna::Sconto1)).testo(), piano(p.sconti[0]));
        EXPECT_EQ(getValoreCurrency(v.flxVB.cella(r, Colonna::Sconto2)).testo(), piano(p.sconti[1]));
        EXPECT_EQ(getValoreCurrency(v.flxVB.cella(r, Colonna::Sconto3)).testo(), piano(p.sconti[2]));
        EXPECT_EQ(v.txtPrezzoNetto.testo(), nettoAtteso(prezzo, p, pezzi));
    }

    static QString nettoAtteso(Decimale prezzo, const Percentuali& p, int pezzi) {
        const RigaEditor riga{.listino = prezzo,
                              .iva = iva,
                              .qta = {pezzi, 0},
                              .sconti = {p.sconti[0], p.sconti[1], p.sconti[2]},
                              .prezzoRiga = {}};
        for (const Atteso& atteso : calcoloInAvanti(riga).attesi) {
            if (atteso.campo == QString("txtPrezzoNetto") && !atteso.tag) return atteso.valore;
        }
        return {};
    }

    // The product is sold, and its quantity goes up through the ranges.
    void vendiAllaVolta(ContoDiProva& c, const ArticoloTipo& a, Decimale immediato) {
        SCOPED_TRACE(descrizione(a));
        Vendita& v = c.vendita();
        scrivi(c, v.txtCodProdotto, a.codice);
        c.invio();
        ASSERT_EQ(v.txtCodProdotto.chiave(), a.rid);
        CasoDiPrezzo suo = caso(a);
        suo.immediato = immediato;
        PrezzoEffettivo atteso(suo);
        confronta(v, atteso, 1);
        for (int pezzi : quantitaProvate) {
            scriviELascia(c, v.txtQta, QString::number(pezzi));
            atteso.quantita(pezzi);
            confronta(v, atteso, pezzi);
        }
        c.tasto(Qt::Key_F6);
    }
};

std::vector<ClienteTipo> clienti(std::initializer_list<int> listini) {
    std::vector<ClienteTipo> tutti;
    for (int listino : listini) {
        for (int sconto : {0, 8}) {
            for (int fascia : {0, 1, 2}) {
                tutti.push_back({listino, sconto, fascia});
            }
        }
    }
    return tutti;
}

using PriceLookup = TuttiIPrezzi;

TEST_F(PriceLookup, ListPriceLeavesThePersonalOneWithoutDiscount) {
    for (const ClienteTipo& cliente : clienti(listiniProvati)) {
        diventa(cliente);
        for (const ArticoloTipo& a : articoli) {
            SCOPED_TRACE(descrizione(a));
            for (bool conSconto : {false, true}) {
                bool daListino = false;
                const Currency prezzo = getPrezzoVendita(idCliente, a.rid, daListino, conSconto);
                EXPECT_EQ(prezzo.testo(), piano(prezzoDiListino(caso(a), conSconto)));
                EXPECT_EQ(daListino, a.personale >= 0);
            }
        }
    }
}

TEST_F(PriceLookup, SearchListShowsTheNetAndFinalPriceOfOnePiece) {
    for (const ClienteTipo& cliente : clienti(listiniProvati)) {
        diventa(cliente);
        for (const ArticoloTipo& a : articoli) {
            SCOPED_TRACE(descrizione(a));
            Currency prezzo;
            Currency finale;
            float giacenza = -1;
            getDatiProdotto(idCliente, a.rid, -1, prezzo, finale, giacenza);
            const Decimale atteso = prezzoNettoInRicerca(caso(a));
            const Binario imposta = doppio(atteso) * singolo(iva) / Binario{100, 0};
            EXPECT_EQ(prezzo.testo(), piano(atteso));
            EXPECT_EQ(finale.testo(), piano(somma(atteso, valuta(imposta))));
        }
    }
}

// A customer of each discount and band, who moves through the price lists.
struct PricePrecedence : TuttiIPrezzi, testing::WithParamInterface<ClienteTipo> {
    void vendiTutto(Decimale immediato) {
        diventa(GetParam());
        ContoDiProva& c = n.apriConto(1);  // the till of the day is for the walk-in customer
        scrivi(c, c.vendita().txtCodCliente, "2");
        c.invio();
        ASSERT_EQ(c.vendita().cliente(), idCliente);
        c.vendita().cmdComando[16].tag(piano(immediato));
        for (int listino : listiniProvati) {
            diventa({listino, GetParam().sconto, GetParam().fascia});
            for (const ArticoloTipo& a : articoli) {
                vendiAllaVolta(c, a, immediato);
            }
            svuotaGriglia(c.vendita());
        }
    }
};

TEST_P(PricePrecedence, EveryProductTakesItsPriceAndDiscountsAtEveryQuantity) {
    vendiTutto({0, 2});
}

TEST_P(PricePrecedence, ImmediateDiscountTakesThePlaceOfTheTablesOnly) {
    vendiTutto({350, 2});
}

INSTANTIATE_TEST_SUITE_P(Customers, PricePrecedence, testing::ValuesIn(clienti({1})), [](const auto& caso) {
    return "Discount" + std::to_string(caso.param.sconto) + "Band" + std::to_string(caso.param.fascia);
});

}  // namespace
