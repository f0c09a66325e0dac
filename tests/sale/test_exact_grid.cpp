#include <cmath>

#include "core/value_helpers.h"
#include "exact_grid.h"
#include "gesti.h"
#include "random_rows.h"
#include "sale/sale_discount.h"
#include "sale/totals.h"

namespace {

constexpr int numeroVendite = 100;
constexpr int righePerVendita = 100;

struct ExactGrid : testing::Test {
    Negozio n;
    Vendita& v = n.apriConto().vendita();
    std::vector<RigaGriglia> righe;

    // A sale of every kind of row, the same for the same seed.
    void vendita(RigheACaso& caso) {
        v.flxVB.svuota();
        righe.clear();
        for (int i = 0; i < righePerVendita; ++i) {
            const RigaEditor r = caso.riga();
            RigaGriglia riga{.iva = r.iva,
                             .qta = r.qta,
                             .listino = r.listino,
                             .sconti = {r.sconti[0], r.sconti[1], r.sconti[2]},
                             .importo = arrotondato(r.prezzoRiga, 2)};
            riga.viva = !caso.unaVoltaSu(10);
            righe.push_back(riga);
            scrivi(riga);
        }
    }

    void scrivi(const RigaGriglia& riga) {
        const int r = v.flxVB.aggiungi();
        v.flxVB.scrivi(r, Colonna::Codice, "P" + QString::number(r));
        v.flxVB.scrivi(r, Colonna::Iva, mostrato(riga.iva));
        v.flxVB.scrivi(r, Colonna::Quantita, mostrato(riga.qta));
        v.flxVB.scrivi(r, Colonna::PrezzoListino, mostrato(riga.listino));
        v.flxVB.scrivi(r, Colonna::Sconto1, mostrato(riga.sconti[0]));
        v.flxVB.scrivi(r, Colonna::Sconto2, mostrato(riga.sconti[1]));
        v.flxVB.scrivi(r, Colonna::Sconto3, mostrato(riga.sconti[2]));
        v.flxVB.scrivi(r, Colonna::Importo, mostrato(riga.importo));
        v.flxVB.scrivi(r, Colonna::Gestione, riga.viva ? "0" : "3");
    }

    std::string descrizione(int r) const {
        const RigaGriglia& riga = righe[static_cast<size_t>(r - 1)];
        QString testo = QString("riga %1: listino %2, qta %3, iva %4, sconti")
                            .arg(r)
                            .arg(mostrato(riga.listino), mostrato(riga.qta), mostrato(riga.iva));
        for (const Decimale& sconto : riga.sconti) {
            testo += " " + mostrato(sconto);
        }
        return testo.toStdString();
    }

    void confronta(int r, const RigaScontata& atteso) {
        SCOPED_TRACE(descrizione(r));
        EXPECT_EQ(cella(v, r, Colonna::ScontoTesto), atteso.scontoTesto);
        EXPECT_EQ(getValoreCurrency(cella(v, r, Colonna::Sconto1)).testo(), piano(valuta(atteso.sconto)));
        EXPECT_EQ(v.flxVB.single(r, Colonna::Sconto2), 0);
        EXPECT_EQ(v.flxVB.single(r, Colonna::Sconto3), 0);
        EXPECT_EQ(cella(v, r, Colonna::PrezzoNetto), atteso.prezzoNetto);
        EXPECT_EQ(cella(v, r, Colonna::PrezzoNettoEsteso), atteso.prezzoNettoEsteso);
        EXPECT_EQ(cella(v, r, Colonna::Importo), atteso.importo);
        EXPECT_EQ(cella(v, r, Colonna::ScNetto), atteso.scNetto);
        EXPECT_EQ(cella(v, r, Colonna::TotPrNetto), atteso.totPrNetto);
        EXPECT_EQ(cella(v, r, Colonna::IvaProd), atteso.ivaProd);
        EXPECT_EQ(cella(v, r, Colonna::TotIvaProd), atteso.totIvaProd);
    }

    // Random sales up to the first that differs.
    template <class Prova>
    void perOgniVendita(Prova prova) {
        for (unsigned seme = 1; seme <= numeroVendite && !HasFailure(); ++seme) {
            RigheACaso caso(seme);
            SCOPED_TRACE("seme " + std::to_string(seme));
            vendita(caso);
            prova(caso);
        }
    }
};

TEST_F(ExactGrid, TotalsNeverDiffer) {
    perOgniVendita([this](RigheACaso&) {
        calcolaTotali(v, true);
        Totali atteso;
        for (const RigaGriglia& riga : righe) {
            atteso.aggiungi(riga);
        }
        EXPECT_EQ(v.lblMainDisplay.testo(), mostrato(arrotondato(atteso.importo, 2)));
        EXPECT_EQ(v.lblMainDisplay.tag(), mostrato(arrotondato(atteso.importo, 2)));
        EXPECT_EQ(v.lblTotNetto.testo(), mostrato(arrotondato(atteso.netto, 2)));
        EXPECT_EQ(v.lblTotLordo.testo(), mostrato(arrotondato(atteso.lordo, 2)));
        EXPECT_EQ(v.lblTOtQta.testo(), mostrato(arrotondato(atteso.qta, 2, DiSingolo)));
        EXPECT_EQ(v.lblTotRighe.testo(), QString::number(atteso.righe));
    });
}

TEST_F(ExactGrid, FurtherDiscountOverTheSaleNeverDiffers) {
    perOgniVendita([this](RigheACaso& caso) {
        const Decimale sconto{caso.tra(1, 9999) * (caso.unaVoltaSu(5) ? -1 : 1), 2};
        SCOPED_TRACE("sconto " + mostrato(sconto).toStdString());
        ricalcolaScontiAfterPag(v, getValoreSingle(mostrato(sconto)));
        for (int r = 1; r <= v.flxVB.ultima(); ++r) {
            const RigaGriglia& riga = righe[static_cast<size_t>(r - 1)];
            EXPECT_EQ(v.flxVB.gestione(r), riga.viva ? RigaNuova : RigaCancellata);
            if (riga.viva) confronta(r, dopoPagamento(riga, sconto));
        }
    });
}

TEST_F(ExactGrid, ImmediateDiscountOverTheSaleNeverDiffers) {
    perOgniVendita([this](RigheACaso& caso) {
        gDecimaliDopo = caso.tra(0, 4);
        const Decimale sconto{caso.tra(1, 9999), 2};
        SCOPED_TRACE("sconto " + mostrato(sconto).toStdString());
        v.cmdComando[16].tag(piano(sconto));
        ricalcolaScontiGriglia(v);
        for (int r = 1; r <= v.flxVB.ultima(); ++r) {
            const RigaGriglia& riga = righe[static_cast<size_t>(r - 1)];
            EXPECT_EQ(v.flxVB.gestione(r), riga.viva ? RigaInvariata : RigaCancellata);
            confronta(r, conImmediato(riga, sconto, gDecimaliDopo));
        }
    });
}

TEST_F(ExactGrid, DiscountOnTopOfAnotherNeverDiffers) {
    RigheACaso caso(7);
    for (int i = 0; i < 10000; ++i) {
        const Decimale vecchio{caso.tra(-1000, 15000), 2};
        const Decimale aggiunto{caso.tra(-1000, 10000), 2};
        SCOPED_TRACE((mostrato(vecchio) + " e " + mostrato(aggiunto)).toStdString());
        const Binario atteso = scontoSommato(singolo(vecchio), singolo(aggiunto));
        const float avuto =
            getNewScontoByOldAndAdd(getValoreSingle(mostrato(vecchio)), getValoreSingle(mostrato(aggiunto)));
        ASSERT_EQ(avuto, std::ldexp(static_cast<float>(atteso.mantissa), atteso.esponente));
    }
}

}  // namespace
