#include <cstdlib>
#include <iostream>

#include "core/run_time_error.h"
#include "gesti.h"
#include "random_rows.h"
#include "sale/line_pricing.h"

namespace {

unsigned daAmbiente(const char* nome, unsigned predefinito) {
    const char* valore = std::getenv(nome);
    return valore == nullptr ? predefinito : static_cast<unsigned>(std::strtoul(valore, nullptr, 10));
}

// The seeds of a run, one a row. BOTTEGON_RIGHE says how many rows; the seed that a failure names, in
// BOTTEGON_SEME, plays that row first.
struct Semi {
    unsigned primo = daAmbiente("BOTTEGON_SEME", 20260316);
    unsigned fine = primo + daAmbiente("BOTTEGON_RIGHE", 10000);
};

struct ExactPricing : testing::Test {
    Negozio n;
    Vendita& v = n.apriConto().vendita();

    // A number reaches a field with dots or without.
    static QString scritto(RigheACaso& caso, Decimale valore) {
        return caso.unaVoltaSu(2) ? mostrato(valore) : mostrato(valore).remove('.');
    }

    void scriviEditor(RigheACaso& caso, const RigaEditor& r) {
        gDecimaliDopo = r.decimaliDopo;
        v.txtPrezzoListino.testo(scritto(caso, r.listino));
        v.lblValoraIva.testo(scritto(caso, r.iva));
        v.txtQta.testo(scritto(caso, r.qta));
        v.txtSconto1.testo(scritto(caso, r.sconti[0]));
        v.txtSconto2.testo(scritto(caso, r.sconti[1]));
        v.txtSconto3.testo(scritto(caso, r.sconti[2]));
        v.TxtPrezzoRiga.testo(scritto(caso, r.prezzoRiga));
    }

    // Whether the computation ended in an overflow.
    bool trabocca(bool daTotale) {
        try {
            ricalcolaPrezzi(v, daTotale, false);
        } catch (const RunTimeError& errore) {
            EXPECT_EQ(errore.numero(), RunTimeError::Overflow);
            return true;
        }
        return false;
    }

    void confronta(const Calcolo& calcolo) {
        for (const Atteso& atteso : calcolo.attesi) {
            const Campo* campo = v.elenco.trova(atteso.campo);
            ASSERT_NE(campo, nullptr) << atteso.campo;
            EXPECT_EQ(atteso.tag ? campo->tag() : campo->testo(), atteso.valore)
                << atteso.campo << (atteso.tag ? ".Tag" : "");
        }
    }

    QString editor() const {
        QString testo = "decimali " + QString::number(gDecimaliDopo);
        for (const Campo* campo : {&v.txtPrezzoListino, &v.lblValoraIva, &v.txtQta, &v.txtSconto1,
                                   &v.txtSconto2, &v.txtSconto3, &v.TxtPrezzoRiga}) {
            testo += ", " + campo->nome() + " " + campo->testo();
        }
        return testo;
    }

    // Every row of the run up to the first that differs.
    void prova(bool daTotale) {
        const Semi semi;
        unsigned traboccate = 0;
        for (unsigned seme = semi.primo; seme < semi.fine && !HasFailure(); ++seme) {
            RigheACaso caso(seme);
            const RigaEditor riga = caso.riga();
            scriviEditor(caso, riga);
            SCOPED_TRACE("BOTTEGON_SEME=" + std::to_string(seme) + ": " + editor().toStdString());
            const Calcolo calcolo = daTotale ? calcoloAllIndietro(riga) : calcoloInAvanti(riga);
            EXPECT_EQ(trabocca(daTotale), calcolo.trabocca);
            confronta(calcolo);
            traboccate += calcolo.trabocca ? 1 : 0;
        }
        std::cout << semi.fine - semi.primo << " righe dal seme " << semi.primo << ", " << traboccate
                  << " traboccate\n";
    }
};

TEST_F(ExactPricing, ForwardFromTheListPriceNeverDiffers) {
    prova(false);
}

TEST_F(ExactPricing, BackwardFromTheRowTotalNeverDiffers) {
    prova(true);
}

}  // namespace
