#include "core/globals.h"
#include "data/gateway.h"
#include "postings/books.h"

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

// Minutes of a busy Saturday.
TEST(ManyDesksLong, EightSaveTwoHundredSalesEach) {
    ogniVenditaHaIlSuoNumero(8, 200, 20);
}
