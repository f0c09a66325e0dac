#include "exact_editor.h"
#include "gesti.h"
#include "random_rows.h"
#include "sale/line_pricing.h"

namespace {

constexpr unsigned numeroRighe = 500;

// One row of one product, priced over and over: random prices, then one field is changed and left.
struct ExactEditor : testing::Test {
    Negozio n;
    int idProdotto = n.prodotto({.codice = "P", .listino1 = 1});
    ContoDiProva& c = n.apriConto();
    Vendita& v = c.vendita();

    void SetUp() override {
        gDisabilitaInvio = 1;
        c.digita("P");
        c.invio();
        ASSERT_EQ(v.flxVB.ultima(), 1);
    }

    static RigaEditor rigaACaso(RigheACaso& caso) {
        RigaEditor r = caso.riga();
        r.qta = {caso.tra(1, 50000), 2};
        return r;
    }

    void scriviEditor(const RigaEditor& r) {
        gDecimaliDopo = r.decimaliDopo;
        v.txtPrezzoListino.testo(mostrato(r.listino));
        v.lblValoraIva.testo(mostrato(r.iva));
        v.txtQta.testoETag(mostrato(r.qta));
        v.txtSconto1.testoETag(mostrato(r.sconti[0]));
        v.txtSconto2.testoETag(mostrato(r.sconti[1]));
        v.txtSconto3.testoETag(mostrato(r.sconti[2]));
        ricalcolaPrezzi(v, false, true);
    }

    void confronta(const EditorEsatto& atteso) {
        EXPECT_EQ(v.txtPrezzoListino.testo(), atteso.listino());
        EXPECT_EQ(v.txtSconto1.testo(), atteso.sconto(0));
        EXPECT_EQ(v.txtSconto2.testo(), atteso.sconto(1));
        EXPECT_EQ(v.txtSconto3.testo(), atteso.sconto(2));
        EXPECT_EQ(v.txtPrezzoNetto.testo(), atteso.netto());
        EXPECT_EQ(v.txtPrezzoFinito.testo(), atteso.finito());
        EXPECT_EQ(v.TxtPrezzoRiga.testo(), atteso.riga());
        EXPECT_EQ(cella(v, 1, Colonna::PrezzoListino), atteso.listinoInGriglia());
        EXPECT_EQ(cella(v, 1, Colonna::Importo), atteso.importo());
    }

    using Lascia = void (EditorEsatto::*)(Decimale);

    // `campo` takes a random number, or one at a cent or two from what it holds, and is left.
    void prova(Campo& campo, void (*lostFocus)(Vendita&), Lascia lascia) {
        for (unsigned seme = 1; seme <= numeroRighe && !HasFailure(); ++seme) {
            RigheACaso caso(seme);
            const RigaEditor riga = rigaACaso(caso);
            scriviEditor(riga);
            EditorEsatto atteso(riga);
            SCOPED_TRACE("seme " + std::to_string(seme) + ": " + editor());
            confronta(atteso);
            const Decimale prima = arrotondato(letto(campo.testo()), 2);
            Decimale scritto = arrotondato(caso.importo(), 2);
            if (caso.unaVoltaSu(2))
                scritto.cifre = prima.cifre + (caso.unaVoltaSu(2) ? 1 : -1) * caso.tra(1, 2);
            if (scritto.cifre == letto(campo.testo()).cifre) continue;
            SCOPED_TRACE(campo.nome().toStdString() + " " + mostrato(scritto).toStdString());
            campo.testo(mostrato(scritto));
            lostFocus(v);
            (atteso.*lascia)(scritto);
            confronta(atteso);
        }
    }

    std::string editor() const {
        QString testo = "decimali " + QString::number(gDecimaliDopo);
        for (const Campo* campo :
             {&v.txtPrezzoListino, &v.lblValoraIva, &v.txtQta, &v.txtSconto1, &v.txtSconto2, &v.txtSconto3}) {
            testo += ", " + campo->nome() + " " + campo->testo();
        }
        return testo.toStdString();
    }
};

TEST_F(ExactEditor, TypedFinalPriceNeverDiffers) {
    prova(v.txtPrezzoFinito, txtPrezzoFinito_LostFocus, &EditorEsatto::lasciaPrezzoFinito);
}

TEST_F(ExactEditor, TypedNetPriceNeverDiffers) {
    prova(v.txtPrezzoNetto, txtPrezzoNetto_LostFocus, &EditorEsatto::lasciaPrezzoNetto);
}

TEST_F(ExactEditor, TypedRowTotalNeverDiffers) {
    prova(v.TxtPrezzoRiga, TxtPrezzoRiga_LostFocus, &EditorEsatto::lasciaPrezzoRiga);
}

TEST_F(ExactEditor, TypedGrossListPriceNeverDiffers) {
    prova(v.txtPrezzoListinoLordo, txtPrezzoListinoLordo_LostFocus, &EditorEsatto::lasciaListinoLordo);
}

}  // namespace
