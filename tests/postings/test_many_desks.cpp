#include "core/globals.h"
#include "data/gateway.h"
#include "postings/books.h"
#include "sale/recall.h"

// Desks are processes: each child is one, and saves its sales into the archive that all share.

namespace {

// A save that the server refuses half way.
bool salvaInvano(ContoDiProva& c) {
    const RegistroAvvisi avvisi;
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.startsWith("UPDATE Movimenti")) return std::nullopt;
        return ErroreServer{ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
    };
    c.tasto(Qt::Key_F5);
    sondaIstruzioni() = {};
    return c.vendita().venditaModificata && avvisi.moduli.size() == 1;
}

// One sale after another on account 0; every `guasti`-th is refused first. 0 when all were saved.
int cassa(Negozio& n, int id, int vendite, int guasti) {
    gIDCassa = id;
    ContoDiProva& c = n.apriConto();
    for (int i = 0; i < vendite; ++i) {
        vendi(c, i % 2 == 0 ? "A" : "B");
        if (guasti > 0 && i % guasti == 0 && !salvaInvano(c)) return 2;
        c.tasto(Qt::Key_F5);
        if (c.vendita().venditaModificata || c.vendita().rid() < 1) return 1;
        c.tasto(Qt::Key_F2);
    }
    return 0;
}

void casseInsieme(Negozio& n, int casse, int vendite, int guasti = 0) {
    n.prodotto({.codice = "A", .listino1 = 10});
    n.prodotto({.codice = "B", .listino1 = 5, .idIva = 2});
    gAdo.chiudiConnessioniCalde();
    std::vector<pid_t> figli;
    for (int i = 1; i <= casse; ++i) {
        figli.push_back(avviaFiglio([&n, i, vendite, guasti] { return cassa(n, i, vendite, guasti); }));
    }
    for (const pid_t figlio : figli) {
        EXPECT_EQ(attendiFiglio(figlio), 0);
    }
}

void ogniVenditaHaIlSuoNumero(int casse, int vendite, int guasti = 0) {
    Negozio n;
    n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
    casseInsieme(n, casse, vendite, guasti);
    const int tutte = casse * vendite;
    EXPECT_EQ(n.conta("Movimenti"), tutte);
    EXPECT_EQ(n.conta("DettagliMovimento"), tutte);
    EXPECT_EQ(n.riga("SELECT COUNT(DISTINCT PROGRESSIVO), MIN(PROGRESSIVO), MAX(PROGRESSIVO) FROM Movimenti"),
              QString("%1|1|%1").arg(tutte));
    EXPECT_EQ(n.valore("SELECT NUMERO FROM Contatori").toInt(), tutte);
    EXPECT_EQ(n.valore("SELECT COUNT(*) FROM Movimenti M WHERE TOTDOCUMENTO <> (SELECT SUM(TOTALERIGA) FROM "
                       "DettagliMovimento D WHERE D.FK_MOVIMENTO = M.RID)"),
              "0");
    EXPECT_EQ(n.verifica(), QStringList());
}

}  // namespace

TEST(ManyDesks, TwoGiveNoNumberTwice) {
    ogniVenditaHaIlSuoNumero(2, 25);
}

TEST(ManyDesks, TwoKeepTheirHeadersOfTheDayApart) {
    Negozio n;
    casseInsieme(n, 2, 25);
    EXPECT_EQ(n.conta("Movimenti"), 2);
    EXPECT_EQ(n.conta("DettagliMovimento"), 50);
    EXPECT_EQ(
        n.valore("SELECT COUNT(*) FROM (SELECT DISTINCT FK_MOVIMENTO, EXTRAPROG FROM DettagliMovimento) V"),
        "50");
    EXPECT_EQ(n.valore("SELECT MAX(EXTRAPROG) FROM DettagliMovimento"), "25");
    EXPECT_EQ(n.verifica(), QStringList());
}

TEST(ManyDesks, EightGiveNoNumberTwice) {
    ogniVenditaHaIlSuoNumero(8, 25);
}

TEST(ManyDesks, NumbersOfRefusedSavesLeaveNoGap) {
    ogniVenditaHaIlSuoNumero(4, 15, 3);
}

// ---- On one product, in one header, on one counter

namespace {

// Two products with stock, A in layers of 3 and 3,50, a posting with VAT and a collection.
void riempiMagazzino(Negozio& n, int prezzoMedio) {
    gPrezzoMedio = prezzoMedio;
    n.prodotto({.codice = "A", .listino1 = 10, .giacenza = 500, .gestioneGiacenza = true});
    n.prodotto({.codice = "B", .listino1 = 5, .idIva = 2, .giacenza = 500, .gestioneGiacenza = true});
    n.sql(QString("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES ") +
          (prezzoMedio == 1 ? "(1,1,3,500)" : "(1,1,3,20),(1,1,3.5,480)") + ",(2,1,2,500)");
    n.sql("UPDATE Prodotti SET PREZZOACQUISTO = 2");
    n.sql("UPDATE Causali SET FK_CONTODARE1 = 1, FK_CONTOAVERE1 = 3, FK_CONTOAVERE2 = 4 WHERE RID = 1");
    n.sql("UPDATE Causali SET FK_CONTODARE1 = 2, FK_CONTOAVERE1 = 1 WHERE RID = 2");
}

void lavora(Negozio& n, int casse, const std::function<int(int cassa)>& lavoro) {
    gAdo.chiudiConnessioniCalde();
    std::vector<pid_t> figli;
    for (int i = 1; i <= casse; ++i)
        figli.push_back(avviaFiglio([&lavoro, i] { return lavoro(i); }));
    for (const pid_t figlio : figli)
        EXPECT_EQ(attendiFiglio(figlio), 0);
    EXPECT_EQ(n.verifica(), QStringList());
}

// Every piece that left the shelf is in the books once, and every sale in the journal once.
void nienteDoppioNientePerso(const Negozio& n) {
    for (const char* codice : {"A", "B"}) {
        const QString prodotto = QString(" FROM Prodotti WHERE CODICE = '") + codice + "'";
        const double venduti = n.valore(QString("SELECT COALESCE(SUM(QUANTITA), 0) FROM DettagliMovimento "
                                                "WHERE CODPRODOTTO = '") +
                                        codice + "'")
                                   .toDouble();
        EXPECT_EQ(n.valore("SELECT GIACENZA" + prodotto).toDouble(), 500 - venduti) << codice;
        EXPECT_EQ(n.valore("SELECT SUM(QUANTITA) FROM DettagliProdotto WHERE FK_PRODOTTO = (SELECT RID" +
                           prodotto + ")")
                      .toDouble(),
                  500 - venduti)
            << codice;
    }
    const auto somma = [&](const char* query) { return n.valore(query).toDouble(); };
    constexpr double unDecimillesimo = 0.0001;
    const double venduto = somma("SELECT SUM(TOTALERIGA) FROM DettagliMovimento");
    EXPECT_NEAR(somma("SELECT SUM(IMPORTO) FROM PrimaNota WHERE FK_CAUSALE = 1"), venduto, unDecimillesimo);
    EXPECT_NEAR(somma("SELECT SUM(DARE) FROM PrimaNotaDettagli WHERE FK_CONTO = 2"), venduto,
                unDecimillesimo);
}

void dueCasseSuUnProdotto(int prezzoMedio) {
    Negozio n;
    riempiMagazzino(n, prezzoMedio);
    lavora(n, 2, [&n](int id) { return cassa(n, id, 30, 5); });
    EXPECT_EQ(n.conta("DettagliMovimento"), 60);
    nienteDoppioNientePerso(n);
}

}  // namespace

TEST(ManyDesks, TwoSellOneProductByLayers) {
    dueCasseSuUnProdotto(0);
}

TEST(ManyDesks, TwoSellOneProductAtTheAverage) {
    dueCasseSuUnProdotto(1);
}

// The same desk number twice, as after a till was copied.
TEST(ManyDesks, TwoUnderOneHeaderGetASubNumberEach) {
    Negozio n;
    riempiMagazzino(n, 0);
    gIDCassa = 1;
    ASSERT_EQ(cassa(n, 1, 1, 0), 0);
    n.vendita().schermo.scarica();
    lavora(n, 2, [&n](int) { return cassa(n, 1, 20, 5); });
    EXPECT_EQ(n.conta("Movimenti"), 1);
    EXPECT_EQ(n.riga("SELECT COUNT(DISTINCT EXTRAPROG), MAX(EXTRAPROG) FROM DettagliMovimento"), "41|41");
    EXPECT_EQ(n.conta("PrimaNota"), 2);
    nienteDoppioNientePerso(n);
}

// Each of its sales is deleted at once by the desk that saved it, every other time.
TEST(ManyDesks, TwoSellAndDelete) {
    Negozio n;
    riempiMagazzino(n, 0);
    lavora(n, 2, [&n](int id) {
        gIDCassa = id;
        ContoDiProva& c = n.apriConto();
        for (int i = 0; i < 20; ++i) {
            vendi(c, i % 2 == 0 ? "A" : "B");
            c.tasto(Qt::Key_F5);
            if (c.vendita().venditaModificata) return 1;
            if (i % 2 == 1) {
                const QString numero = c.vendita().txtProg.testo() + "/" + c.vendita().txtSottoProg.testo();
                n.operatore.attendiDomanda("Eliminare il movimento con progressivo " + numero + "?",
                                           OperatorPort::Risposta::Si);
                c.tasto(Qt::Key_F7, Qt::ShiftModifier);
            } else {
                c.tasto(Qt::Key_F2);
            }
        }
        return n.operatore.esaurito() ? 0 : 2;
    });
    EXPECT_EQ(n.conta("DettagliMovimento"), 20);
    EXPECT_EQ(n.conta("DettagliMovimento", "CODPRODOTTO = 'B'"), 0);
    nienteDoppioNientePerso(n);
}

// ---- One sale on two screens

namespace {

const char* const cambiata =
    "La vendita non è più nell'archivio come la si vede: un'altra cassa l'ha cambiata o cancellata.\n"
    "Richiamarla e ripetere l'operazione.";

// Two sales under one header; the first stands on two screens, and one of them has deleted it.
struct TwoScreens : testing::Test {
    TwoScreens() {
        riempiMagazzino(n, 0);
        ContoDiProva& prima = n.apriConto();
        for (const char* codice : {"A", "B"}) {
            vendi(prima, codice);
            prima.tasto(Qt::Key_F5);
            prima.tasto(Qt::Key_F2);
        }
        const int rid = n.valore("SELECT RID FROM Movimenti").toInt();
        showVendita(prima.vendita(), rid, -1, 1, -1);
        EXPECT_TRUE(apriContoConVendita(rid));
        altra = static_cast<ContoDiProva*>(gConti[1].get());
        showVendita(altra->vendita(), rid, -1, 1, -1);
        cancella(prima);
        libriPrima = libri(n);
    }
    void cancella(ContoDiProva& c, const QString& messaggio = {}) {
        n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?",
                                   OperatorPort::Risposta::Si);
        if (!messaggio.isEmpty()) n.operatore.attendiMessaggio(messaggio);
        c.tasto(Qt::Key_F7, Qt::ShiftModifier);
    }
    void rifiutata() {
        EXPECT_EQ(libri(n), libriPrima);
        EXPECT_TRUE(n.operatore.esaurito());
        nienteDoppioNientePerso(n);
    }

    Negozio n;
    ContoDiProva* altra = nullptr;
    QStringList libriPrima;
};

}  // namespace

TEST_F(TwoScreens, ASaleIsNotDeletedTwice) {
    cancella(*altra, cambiata);
    rifiutata();
}

TEST_F(TwoScreens, ADeletedSaleIsNotChanged) {
    altra->clicRiga(1);
    altra->clic(altra->vendita().txtQta);
    altra->digita("3");
    altra->tasto(Qt::Key_F6);
    n.operatore.attendiMessaggio(cambiata);
    altra->tasto(Qt::Key_F5);
    rifiutata();
}

// Minutes of a busy Saturday.
TEST(ManyDesksLong, EightSaveTwoHundredSalesEach) {
    ogniVenditaHaIlSuoNumero(8, 200, 20);
}
