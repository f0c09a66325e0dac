#pragma once

#include <gtest/gtest.h>
#include <memory>

#include "core/globals.h"
#include "data/gateway.h"
#include "data/mysql_connection.h"
#include "doubles/cliente_mariadb.h"
#include "faults/own_server.h"
#include "postings/books.h"
#include "postings/lost_commit.h"

inline const char* const testoIncerta =
    "Non si sa se la vendita è stata salvata: il server non risponde o è occupato.\n"
    "La vendita resta sullo schermo; quando la si salva di nuovo si controlla prima se è già nell'archivio.";

// A shop on a server of its own, and on its screen a sale of two rows, 12,20 and 12,10, ready to be saved.
class NegozioGuasto : public testing::Test {
  protected:
    NegozioGuasto() {
        gNomeModulo = "bBottegonClientVB";
        n->prodotto({.codice = "A", .listino1 = 10});
        n->prodotto({.codice = "B", .listino1 = 5.5, .idIva = 2});
        mBancaDati = n->valore("SELECT DATABASE()");
        collega(server.porta());
        MySqlConnection::attesaMassima = 500;
        MySqlConnection::secondiRisposta = 2;
        attesaVerificaCommit() = 300;
        conto = &n->apriConto();
        vendi(*conto, "A");
        vendi(*conto, "B", "2");
        prima = schermata(conto->vendita());
    }
    ~NegozioGuasto() override {
        server.ristabilisci();
        n.reset();
        MySqlConnection::attesaMassima = 10000;
        MySqlConnection::secondiRisposta = 30;
        attesaVerificaCommit() = 15000;
    }

    // The till goes by the network, with its own account.
    void collega(int porta) {
        gAdo.chiudiConnessioniCalde();
        gStrConnessione = server.stringaCassa(mBancaDati, porta);
    }
    void salva() { conto->tasto(Qt::Key_F5); }
    Vendita& vendita() { return conto->vendita(); }

    // The save is reported as failed with these words, and the sale stands on the screen as it was.
    void salvaInvano(const QString& modulo, const QString& parole) {
        n->operatore.attendiAvviso(modulo);
        salva();
        ASSERT_FALSE(n->operatore.avvisi.empty());
        EXPECT_TRUE(n->operatore.avvisi.back().descrizione.contains(parole))
            << n->operatore.avvisi.back().descrizione.toStdString();
        EXPECT_FALSE(n->operatore.avvisi.back().avanzate.contains("Pwd=cassa"));
        EXPECT_EQ(schermata(vendita()), prima);
        EXPECT_FALSE(gAdo.inTransazione());
        EXPECT_EQ(n->operatore.clessidre, 0);
        EXPECT_EQ(n->operatore.attesa, QString());
    }
    // The save ends with nobody knowing whether it is in the books.
    void attendiVenditaIncerta() {
        n->operatore.attendiMessaggio(testoIncerta, OperatorPort::Icona::Critica);
    }
    void nienteNeiLibri() {
        EXPECT_EQ(n->conta("Movimenti"), 0);
        EXPECT_EQ(n->conta("DettagliMovimento"), 0);
        EXPECT_EQ(n->conta("Contatori"), 0);
    }
    // The sale is there once, under number 1.
    void venditaNeiLibri() {
        EXPECT_EQ(n->riga("SELECT COUNT(*), MAX(PROGRESSIVO), SUM(TOTDOCUMENTO) FROM Movimenti"), "1|1|24.3");
        EXPECT_EQ(n->conta("DettagliMovimento"), 2);
        EXPECT_EQ(n->valore("SELECT SUM(NUMERO) FROM Contatori"), "1");
        EXPECT_EQ(n->verifica(), QStringList());
        EXPECT_FALSE(vendita().venditaModificata);
        EXPECT_EQ(vendita().txtProg.testo(), "0001");
    }
    void nienteEPoiSalvata() {
        nienteNeiLibri();
        salva();
        venditaNeiLibri();
    }

    ServerProprio& server = ServerProprio::questo();
    std::unique_ptr<Negozio> n = std::make_unique<Negozio>();
    ContoDiProva* conto = nullptr;
    QStringList prima;

  private:
    QString mBancaDati;
};
