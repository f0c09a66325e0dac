#include "archivio/verify_archive.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "postings/books.h"

// Desks are processes: each child is one, and saves its sales into the archive that all share.

namespace {

// One sale after another on account 0; 0 when all were saved.
int cassa(Negozio& n, int id, int vendite) {
    gIDCassa = id;
    ContoDiProva& c = n.apriConto();
    for (int i = 0; i < vendite; ++i) {
        vendi(c, i % 2 == 0 ? "A" : "B");
        c.tasto(Qt::Key_F5);
        if (c.vendita().venditaModificata || c.vendita().rid() < 1) return 1;
        c.tasto(Qt::Key_F2);
    }
    return 0;
}

void casseInsieme(Negozio& n, int casse, int vendite) {
    n.prodotto({.codice = "A", .listino1 = 10});
    n.prodotto({.codice = "B", .listino1 = 5, .idIva = 2});
    gAdo.chiudiConnessioniCalde();
    std::vector<pid_t> figli;
    for (int i = 1; i <= casse; ++i) {
        figli.push_back(avviaFiglio([&n, i, vendite] { return cassa(n, i, vendite); }));
    }
    for (const pid_t figlio : figli) {
        EXPECT_EQ(attendiFiglio(figlio), 0);
    }
}

void ogniVenditaHaIlSuoNumero(int casse, int vendite) {
    Negozio n;
    n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
    casseInsieme(n, casse, vendite);
    const int tutte = casse * vendite;
    EXPECT_EQ(n.conta("Movimenti"), tutte);
    EXPECT_EQ(n.conta("DettagliMovimento"), tutte);
    EXPECT_EQ(n.valore("SELECT COUNT(DISTINCT PROGRESSIVO) || '|' || MAX(PROGRESSIVO) FROM Movimenti"),
              QString("%1|%1").arg(tutte));
    EXPECT_EQ(n.valore("SELECT NUMERO FROM Contatori").toInt(), tutte);
    EXPECT_EQ(verificaArchivio(n.percorso()).errori, QStringList());
    EXPECT_EQ(n.registroErrori(), QString());
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
        n.valore("SELECT COUNT(*) FROM (SELECT DISTINCT FK_MOVIMENTO, EXTRAPROG FROM DettagliMovimento)"),
        "50");
    EXPECT_EQ(n.valore("SELECT MAX(EXTRAPROG) FROM DettagliMovimento"), "25");
    EXPECT_EQ(verificaArchivio(n.percorso()).errori, QStringList());
}

TEST(ManyDesks, EightGiveNoNumberTwice) {
    ogniVenditaHaIlSuoNumero(8, 50);
}
