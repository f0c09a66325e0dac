#include "core/globals.h"
#include "doubles/kit_di_prova.h"
#include "postings/delete_sale.h"
#include "postings/expected_books.h"
#include "postings/receipt_text.h"
#include "postings/save_sale.h"
#include "register/register_link.h"
#include "sale/document_info.h"

namespace {

// A register that remembers what it was handed.
class RegistratoreDiProva final : public CollegamentoRegCassa {
  public:
    RegistratoreDiProva() { impostaCollegamentoRegCassa(this); }
    ~RegistratoreDiProva() override { impostaCollegamentoRegCassa(nullptr); }
    RegistratoreDiProva(const RegistratoreDiProva&) = delete;
    RegistratoreDiProva& operator=(const RegistratoreDiProva&) = delete;

    bool statoConnessione() const override {
        ++chiesto;
        return connesso;
    }
    void sendData(const QString& buffer) override { scontrini << buffer; }

    bool connesso = true;
    mutable int chiesto = 0;
    QStringList scontrini;
};

// ---- The text of one row

struct ReceiptText : testing::Test {
    struct Riga {
        QString quantita = "1,00";
        QString netto = "1,00";
        QString iva = "0,22";
        QString aliquota = "22,00";
        QString codice = "A";
        QString descrizione = "B";
    };
    void riga(const Riga& r) {
        const int posizione = griglia.aggiungi();
        griglia.scrivi(posizione, Colonna::Codice, r.codice);
        griglia.scrivi(posizione, Colonna::Descrizione, r.descrizione);
        griglia.scrivi(posizione, Colonna::Quantita, r.quantita);
        griglia.scrivi(posizione, Colonna::PrezzoNetto, r.netto);
        griglia.scrivi(posizione, Colonna::IvaProd, r.iva);
        griglia.scrivi(posizione, Colonna::Iva, r.aliquota);
        testo.aggiungiRiga(griglia, posizione);
    }
    Negozio n;
    FlexVB griglia;
    TestoScontrino testo;
};

}  // namespace

TEST_F(ReceiptText, OneRow) {
    riga({.quantita = "2,00", .netto = "1,23", .iva = "0,27", .codice = "ABC1", .descrizione = "PENNA BLU"});
    EXPECT_EQ(testo.chiudi(), "REPABC1¤PENNA BLU¤2¤1.5¤1¤22¤¥TOT3¤");
}

TEST_F(ReceiptText, RowsFollowEachOther) {
    riga({});
    riga({.quantita = "3,00", .iva = "0,10", .aliquota = "10,00", .codice = "C", .descrizione = "D"});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤1¤1.22¤1¤22¤¥REPC¤D¤3¤1.1¤1¤10¤¥TOT4.52¤");
}

TEST_F(ReceiptText, WithoutRowsIsTheTotalAlone) {
    EXPECT_EQ(testo.chiudi(), "TOT0¤");
}

TEST_F(ReceiptText, HalvesOfACentGoUp) {
    riga({.quantita = "1,5", .netto = "1,63", .iva = "0,36"});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤1.5¤1.99¤1¤22¤¥TOT2.99¤");
}

TEST_F(ReceiptText, TotalIsNotTheSumOfTheShownPrices) {
    riga({.quantita = "3,00", .netto = "1,0041", .iva = "0,00"});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤3¤1¤1¤22¤¥TOT3.01¤");
}

TEST_F(ReceiptText, ReturnIsNegative) {
    riga({.quantita = "-2,00"});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤-2¤1.22¤1¤22¤¥TOT-2.44¤");
}

TEST_F(ReceiptText, NumbersHaveNoThousands) {
    riga({.quantita = "1.000,00", .netto = "1.234,50", .iva = "0,00", .aliquota = "4,50"});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤1000¤1234.5¤1¤4.5¤¥TOT1234500¤");
}

TEST_F(ReceiptText, WhatIsNoNumberIsNull) {
    riga({.aliquota = "esente"});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤1¤1.22¤1¤Null¤¥TOT1.22¤");
}

TEST_F(ReceiptText, EmptyCellIsNullAndCountsAsNothing) {
    riga({.quantita = ""});
    riga({.aliquota = ""});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤Null¤1.22¤1¤22¤¥REPA¤B¤1¤1.22¤1¤Null¤¥TOT1.22¤");
}

TEST_F(ReceiptText, ThousandthsOfAQuantityAreKept) {
    riga({.quantita = "1,125"});
    EXPECT_EQ(testo.chiudi(), "REPA¤B¤1.125¤1.22¤1¤22¤¥TOT1.37¤");
}

TEST_F(ReceiptText, MarksInATextStandAsTheyAre) {
    riga({.codice = "A¤1", .descrizione = "B¥2 'x'"});
    EXPECT_EQ(testo.chiudi(), "REPA¤1¤B¥2 'x'¤1¤1.22¤1¤22¤¥TOT1.22¤");
}

// ---- When it is sent

namespace {

struct Receipt : testing::Test {
    Receipt() { gRegCassa = "prova"; }
    Bottega n;
    RegistratoreDiProva registratore;
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();
};

const char* const dueA = "REPA¤A¤2¤12.2¤1¤22¤¥TOT24.4¤";

}  // namespace

TEST_F(Receipt, SaleIsSentAsOneText) {
    vendi(c, "A", "2");
    vendi(c, "B", "3");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(registratore.scontrini, QStringList{"REPA¤A¤2¤12.2¤1¤22¤¥REPB¤Biscotti¤3¤5.5¤1¤10¤¥TOT40.9¤"});
}

TEST_F(Receipt, FreeRowIsSentLikeAnyOther) {
    n.prodotto({.codice = "/LAV", .listino1 = 5, .descrizione = "Lavoro"});
    vendi(c, "/LAV", "2");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(registratore.scontrini, QStringList{"REP/LAV¤Lavoro¤2¤6.1¤1¤22¤¥TOT12.2¤"});
}

// By then the VAT is that of the cost, 6,00, and the net price that of the sale.
TEST_F(Receipt, TransferIsSentAsItsColumnsStand) {
    gTipoDocVb = 6;
    setInfoDocumento(v, 6);
    vendi(c, "A", "2");
    ASSERT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(registratore.scontrini, QStringList{"REPA¤A¤2¤11.32¤1¤22¤¥TOT22.64¤"});
}

TEST_F(Receipt, LeavesBeforeTheCommit) {
    vendi(c, "A", "2");
    int primaDelCommit = -1;
    sondaIstruzioni() = [&](const QString& sql) -> std::optional<ErroreServer> {
        if (sql == "COMMIT") primaDelCommit = static_cast<int>(registratore.scontrini.size());
        return std::nullopt;
    };
    ASSERT_TRUE(salvaVendita(v, false, -1));
    EXPECT_EQ(primaDelCommit, 1);
}

TEST_F(Receipt, StandsWhenALaterStepRollsBack) {
    vendi(c, "A", "2");
    const RegistroAvvisi avvisi;
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.startsWith("INSERT INTO PrimaNota ")) return std::nullopt;
        return ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"};
    };
    EXPECT_FALSE(salvaVendita(v, false, -1));
    sondaIstruzioni() = {};
    EXPECT_EQ(registratore.scontrini, QStringList{dueA});
    EXPECT_EQ(n.conta("Movimenti"), 0);
}

TEST_F(Receipt, RowThatCannotBeWrittenSendsNothing) {
    vendi(c, "A", "2");
    vendi(c, "B");
    const RegistroAvvisi avvisi;
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.contains("'Biscotti'")) return std::nullopt;
        return ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"};
    };
    EXPECT_FALSE(salvaVendita(v, false, -1));
    sondaIstruzioni() = {};
    EXPECT_EQ(registratore.scontrini, QStringList());
}

TEST_F(Receipt, SumThatCannotBeReadSendsNothing) {
    vendi(c, "A", "2");
    const RegistroAvvisi avvisi;
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.contains("SUM(TOTALERIGA)")) return std::nullopt;
        return ErroreServer{ErroreServer::Classe::Altro, 1, "guasto", "prova"};
    };
    EXPECT_FALSE(salvaVendita(v, false, -1));
    sondaIstruzioni() = {};
    EXPECT_EQ(registratore.scontrini, QStringList());
}

TEST_F(Receipt, RegisterThatIsAwayIsNotSpokenTo) {
    registratore.connesso = false;
    vendi(c, "A", "2");
    EXPECT_TRUE(salvaERilegge(v));
    EXPECT_EQ(registratore.scontrini, QStringList());
    EXPECT_GE(registratore.chiesto, 1);
}

TEST_F(Receipt, DeskWithoutARegisterAsksButSendsNothing) {
    gRegCassa = "";
    vendi(c, "A", "2");
    EXPECT_TRUE(salvaERilegge(v));
    EXPECT_EQ(registratore.scontrini, QStringList());
    EXPECT_GE(registratore.chiesto, 1);
}

TEST_F(Receipt, OnlyNewRowsOfASavedSaleAreSent) {
    vendi(c, "B", "3");
    ASSERT_TRUE(salvaERilegge(v));
    vendi(c, "A");
    vendi(c, "C", "4");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(registratore.scontrini.value(1), "REPA¤A¤1¤12.2¤1¤22¤¥REPC¤Caffè¤4¤2.34¤1¤4¤¥TOT21.56¤");
}

TEST_F(Receipt, ChangedAndDeletedRowsAreNotSent) {
    vendi(c, "A", "2");
    vendi(c, "B", "3");
    ASSERT_TRUE(salvaERilegge(v));
    c.clicRiga(1);
    c.clic(v.txtQta);
    c.digita("5");
    c.tasto(Qt::Key_F6);
    c.clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [Biscotti]?", OperatorPort::Risposta::Si);
    c.tasto(Qt::Key_F9);
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(registratore.scontrini.mid(1), QStringList{"TOT0¤"});
}

TEST_F(Receipt, DeletionOfASaleIsNotSent) {
    vendi(c, "A", "2");
    ASSERT_TRUE(salvaERilegge(v));
    ASSERT_TRUE(cancellaVendita(v, v.rid(), false));
    EXPECT_EQ(registratore.scontrini, QStringList{dueA});
}

// A kit goes as it stands in the grid: its head at the sum of its components, and the components too.
TEST_F(Receipt, KitIsSentRowByRow) {
    distinta(n, "%KIT", {{1, 2, 3}, {2, 1, 0, 2}});
    vendi(c, "%KIT");
    v.flxVB.scrivi(1, Colonna::PrezzoNetto, "11,00");
    v.flxVB.scrivi(1, Colonna::IvaProd, "1,82");
    ASSERT_TRUE(salvaERilegge(v));
    EXPECT_EQ(registratore.scontrini,
              QStringList{"REP%KIT¤Kit KIT¤1¤12.82¤1¤22¤¥REPA¤A¤2¤3.66¤1¤22¤¥REPB¤Biscotti¤1¤5.5¤1¤10¤¥"
                          "TOT25.64¤"});
}
