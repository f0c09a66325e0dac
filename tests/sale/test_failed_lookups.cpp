#include "gesti.h"
#include "sale/price_tables.h"
#include "sale/sale_discount.h"

namespace {

// A look-up of prices or discounts that the server refuses, and the name that it is reported by.
struct LetturaFallita {
    const char* nome;
    const char* istruzione;
    std::function<void(ContoDiProva&, int prodotto)> cerca;
};

class FailedLookup : public testing::TestWithParam<LetturaFallita> {};

TEST_P(FailedLookup, IsReportedByItsName) {
    Negozio n;
    n.sql("INSERT INTO FasceClienti (RID, CODICE, DESCRIZIONE) VALUES (1,'F','Fascia F')");
    n.sql("INSERT INTO CategorieSconti (RID, CODICE, DESCRIZIONE) VALUES (1,'C','Cat C')");
    n.sql("INSERT INTO ScontiImmediati (RID, CODICE, DESCRIZIONE, VALORE) VALUES (4,'S20','Venti',20)");
    n.sql("UPDATE Anagrafiche SET FK_FASCIACLIENTE = 1");
    const int prodotto = n.prodotto({.codice = "P", .listino1 = 10});
    n.sql("UPDATE Prodotti SET FK_CATSCOVEN = 1");
    ContoDiProva& c = n.apriConto();
    n.operatore.attendiAvviso("cAdoSqlServer.getNewRecordset -> frmMain." + QString(GetParam().nome));
    const IstruzioneRotta rotta(GetParam().istruzione);
    GetParam().cerca(c, prodotto);
    EXPECT_TRUE(n.operatore.esaurito());
}

void prezzoVendita(ContoDiProva& c, int prodotto) {
    bool daListino = false;
    EXPECT_EQ(getPrezzoVendita(c.vendita().cliente(), prodotto, daListino, true), Currency::daIntero(10));
}

void scontiVendita(ContoDiProva&, int prodotto) {
    float s1 = 9;
    float s2 = 9;
    float s3 = 9;
    Currency prezzo;
    getScontiVendita(1, 0, 1, 1, prodotto, s1, s2, s3, prezzo);
    EXPECT_EQ(s1, 0.0F);
}

void datiProdotto(ContoDiProva& c, int prodotto) {
    Currency netto;
    Currency finale;
    float giacenza = 9;
    getDatiProdotto(c.vendita().cliente(), prodotto, -1, netto, finale, giacenza);
    EXPECT_EQ(netto, Currency());
    EXPECT_EQ(giacenza, 0.0F);
}

void scontoImmediato(ContoDiProva& c, int) {
    c.rispondeRicerca("4|");
    getScontoImmediato(c.vendita());
    EXPECT_EQ(c.vendita().cmdComando[16].testo(), " ");
}

INSTANTIATE_TEST_SUITE_P(
    Procedures, FailedLookup,
    testing::Values(
        LetturaFallita{"setSconti", "SELECT FK_MARCA, FK_CatScoAcq",
                       [](ContoDiProva& c, int prodotto) { EXPECT_TRUE(setSconti(c.vendita(), prodotto)); }},
        LetturaFallita{"setScontiVendita", "CatScVenditeSconti",
                       [](ContoDiProva& c, int prodotto) {
                           EXPECT_FALSE(setScontiVendita(c.vendita(), 1, 0, 1, 1, prodotto));
                       }},
        LetturaFallita{"getFasciaCliente", "FK_FASCIACLIENTE FROM",
                       [](ContoDiProva& c, int) { EXPECT_EQ(getFasciaCliente(c.vendita().cliente()), 0); }},
        LetturaFallita{"getPrezzoVendita", "SELECT LISTINO, SCONTO FROM", prezzoVendita},
        LetturaFallita{"getPrezzoNettoAcquisto", "SELECT PREZZOACQUISTO",
                       [](ContoDiProva&, int prodotto) {
                           EXPECT_EQ(getPrezzoNettoAcquisto(prodotto, 1, -1), Currency());
                       }},
        LetturaFallita{"getDatiProdotto", "p.Listino1", datiProdotto},
        LetturaFallita{"getScontiVendita", "CatScVenditeSconti", scontiVendita},
        LetturaFallita{"getScontoImmediato", "SELECT VALORE, CODICE", scontoImmediato}),
    [](const auto& info) { return std::string(info.param.nome); });

}  // namespace
