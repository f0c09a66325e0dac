#include "counter/fields.h"
#include "gesti.h"
#include "sale/row_writer.h"

namespace {

using Icona = OperatorPort::Icona;
using Visto = OperatoreScritto::Visto;

// Every box of the product entry: its title, its icon and its buttons.
struct EntryBoxes : testing::Test {
    Negozio n;
    int id = n.prodotto({.codice = "P", .listino1 = 10, .barcode = "8001", .descrizione = "Pala"});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void entra() {
        c.digita("P");
        c.invio();
    }
    void esaurito(double giacenza) {
        gSottoScorta = 1;
        n.sql(QString("UPDATE Prodotti SET SETGIACENZA = 1, GIACENZA = %1").arg(giacenza));
    }
    std::vector<Visto> unaDomanda() const { return {{"Bottegon", Icona::Domanda, {"Sì", "No"}}}; }
    std::vector<Visto> unMessaggio(Icona icona) const { return {{"Bottegon", icona, {"OK"}}}; }
};

TEST_F(EntryBoxes, ReplacedProductIsAQuestion) {
    const int nuovo = n.prodotto({.codice = "NU", .listino1 = 1, .descrizione = "Nuovo"});
    n.sql(QString("UPDATE Prodotti SET FK_SOSTITUITO = %1 WHERE RID = %2").arg(nuovo).arg(id));
    n.operatore.attendiDomanda(
        "Il prodotto [Pala] è stato sostituito.\nScegliere quello relativo [NU - Nuovo]?",
        OperatorPort::Risposta::No);
    entra();
    EXPECT_EQ(n.operatore.visti, unaDomanda());
}

TEST_F(EntryBoxes, BlockedStockIsAQuestion) {
    esaurito(0);
    gBloccaSottoScorta = true;
    n.operatore.attendiDomanda(
        "Impossibile scaricare il prodotto [Pala].\nLa scorta di [0,00] è inferiore al limite consentito.\n"
        "Si desidera effettuare il reso?",
        OperatorPort::Risposta::No);
    entra();
    EXPECT_EQ(n.operatore.visti, unaDomanda());
}

TEST_F(EntryBoxes, LowStockIsAQuestion) {
    esaurito(0);
    gAvvisaSottoScorta = true;
    n.operatore.attendiDomanda(
        "Attenzione! La giacenza del prodotto [Pala] è inferiore a [1].\nScegliere [Sì] per continuare "
        "oppure "
        "[No] per annullare l'operazione",
        OperatorPort::Risposta::No);
    entra();
    EXPECT_EQ(n.operatore.visti, unaDomanda());
}

TEST_F(EntryBoxes, QuantityBeyondTheStockIsCritical) {
    esaurito(3);
    gBloccaSottoScorta = true;
    entra();
    n.operatore.attendiMessaggio(
        "Impossibile scaricare la quantità desiderata per il prodotto [Pala].\nLa scorta di [3,00] è "
        "inferiore alla quantità [4,00] scelta!");
    scriviELascia(c, v.txtQta, "4");
    EXPECT_EQ(n.operatore.visti, unMessaggio(Icona::Critica));
}

TEST_F(EntryBoxes, QuantityBeyondTheStockCanBeAQuestion) {
    esaurito(3);
    gAvvisaSottoScorta = true;
    entra();
    n.operatore.attendiDomanda(
        "Attenzione! La giacenza del prodotto [Pala] è inferiore a [4,00].\nScegliere [Sì] per continuare "
        "oppure [No] per annullare l'operazione",
        OperatorPort::Risposta::No);
    scriviELascia(c, v.txtQta, "4");
    EXPECT_EQ(n.operatore.visti, unaDomanda());
}

TEST_F(EntryBoxes, PriceBelowCostIsAQuestion) {
    gSottoCosto = 1;
    gPCType = 1;
    n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 9");
    entra();
    n.operatore.attendiDomanda("Attenzione! Vendita sottocosto.\nContinuare?", OperatorPort::Risposta::No);
    scriviELascia(c, v.txtSconto1, "50");
    EXPECT_EQ(n.operatore.visti, unaDomanda());
}

TEST_F(EntryBoxes, MissingQuantityIsAWarning) {
    entra();
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Quantità] Obbligatorio");
    scriviELascia(c, v.txtQta, "0");
    EXPECT_EQ(n.operatore.visti, unMessaggio(Icona::Esclamazione));
}

TEST_F(EntryBoxes, ProductThatIsThereHasATitleOfItsOwn) {
    gPrdEsistente = 1;
    entra();
    c.tasto(Qt::Key_F6);
    n.operatore.attendiMessaggio("Prodotto già inserito!");
    entra();
    EXPECT_EQ(n.operatore.visti, (std::vector<Visto>{{"Avviso", Icona::Nessuna, {"OK"}}}));
}

TEST_F(EntryBoxes, ReturnThatCannotBeTakenBackIsCritical) {
    esaurito(0);
    gBloccaSottoScorta = true;
    n.operatore.attendiDomanda(
        "Impossibile scaricare il prodotto [Pala].\nLa scorta di [0,00] è inferiore al limite consentito.\n"
        "Si desidera effettuare il reso?",
        OperatorPort::Risposta::Si);
    entra();
    n.operatore.visti.clear();
    n.operatore.attendiMessaggio(
        "Impossibile modificare l'operazione! Per il prodotto selezionato Il Reso è l'unica operazione "
        "consentita.");
    spuntaCambiata(c, v.chkReso, 0);
    EXPECT_EQ(n.operatore.visti, unMessaggio(Icona::Critica));
}

TEST_F(EntryBoxes, RowToDeleteIsAQuestion) {
    entra();
    n.operatore.attendiDomanda("Eliminare il prodotto [Pala]?", OperatorPort::Risposta::No);
    c.tasto(Qt::Key_F9);
    EXPECT_EQ(n.operatore.visti, unaDomanda());
}

TEST_F(EntryBoxes, PriceThatIsNoNumberIsAskedFor) {
    entra();
    v.txtPrezzoNetto.testo("abc");
    n.operatore.attendiMessaggio("Attenzione:\n - Campo [Prezzo] Obbligatorio", Icona::Esclamazione);
    EXPECT_FALSE(controllaElemento(v));
    EXPECT_EQ(c.fuocoSu(), &v.txtCodProdotto);
    EXPECT_EQ(cella(v, 1, Colonna::Importo), "12,20");
}

TEST_F(EntryBoxes, WhatIsMissingIsAskedForInOneBox) {
    entra();
    c.clic(v.txtDescProdotto);
    v.txtQta.testo({});
    v.txtPrezzoNetto.testo({});
    n.operatore.attendiMessaggio(
        "Attenzione:\n - Campo [Quantità] Obbligatorio\n - Campo [Prezzo] Obbligatorio", Icona::Esclamazione);
    EXPECT_FALSE(controllaElemento(v));
    EXPECT_EQ(n.operatore.visti, unMessaggio(Icona::Esclamazione));
}

}  // namespace
