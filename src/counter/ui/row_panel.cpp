#include <QCheckBox>
#include <QFrame>
#include <QLabel>

#include "counter/ui/assembly.h"
#include "counter/ui/command_button.h"
#include "counter/ui/panels.h"
#include "counter/ui/style.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/campo_widgets.h"
#include "sale/vendita.h"

namespace {

constexpr int larghezzaPrezzo = 108;
constexpr int larghezzaSconto = 64;

// Adds the widgets of one line of the editor.
struct Riga {
    const Montaggio& m;
    QWidget* padre;
    QHBoxLayout* disposizione = nuovaDisposizione<QHBoxLayout>(spazio);

    void campo(Campo& campo, const QString& nome, int larghezza) const {
        CampoEdit* casella = m.campo(campo, nome, padre);
        casella->setFixedWidth(aMisura(larghezza));
        disposizione->addWidget(casella);
    }
    void conto(int indice) const { disposizione->addWidget(m.conto(indice, padre)); }
    void unita(Campo& campo, const QString& nome) const {
        QLabel* etichetta = m.testo(campo, nome, padre);
        etichetta->setFixedWidth(aMisura(44));
        disposizione->addWidget(etichetta);
    }
};

QHBoxLayout* rigaProdotto(const Montaggio& m, QWidget* padre) {
    const Riga riga{m, padre};
    riga.conto(7);
    riga.campo(m.v.txtCodProdotto, "Codice o codice a barre del prodotto", 176);
    riga.unita(m.v.lblMarca, "Marca");
    riga.disposizione->addWidget(m.campo(m.v.txtDescProdotto, "Descrizione del prodotto", padre), 1);
    riga.conto(8);
    riga.campo(m.v.txtQta, "Quantità", 92);
    riga.unita(m.v.lblUM, "Unità di misura");
    return riga.disposizione;
}

QHBoxLayout* rigaPrezzi(const Montaggio& m, QWidget* padre) {
    const Riga riga{m, padre};
    riga.conto(9);
    riga.campo(m.v.txtPrezzoListino, "Prezzo di listino", larghezzaPrezzo);
    riga.campo(m.v.txtPrezzoListinoLordo, "Prezzo di listino con IVA", larghezzaPrezzo);
    riga.conto(11);
    riga.campo(m.v.txtSconto1, "Primo sconto per cento", larghezzaSconto);
    riga.campo(m.v.txtSconto2, "Secondo sconto per cento", larghezzaSconto);
    riga.campo(m.v.txtSconto3, "Terzo sconto per cento", larghezzaSconto);
    riga.conto(12);
    riga.campo(m.v.txtPrezzoNetto, "Prezzo netto", larghezzaPrezzo);
    riga.campo(m.v.txtPrezzoFinito, "Prezzo finito con IVA", larghezzaPrezzo);
    riga.campo(m.v.TxtPrezzoRiga, "Totale della riga", larghezzaPrezzo);
    riga.disposizione->addStretch();
    // Both have a key of their own: the way of the Tab key is left to the fields.
    QCheckBox* reso = m.spunta(m.v.chkReso, "RESO", padre);
    reso->setToolTip("Registra la riga come reso (Shift+F6)");
    QCheckBox* simili = m.spunta(m.v.chkCodiceProdotto, "SIMILI", padre);
    simili->setToolTip("Cerca anche i codici che contengono quello digitato (F4)");
    for (QCheckBox* spunta : {reso, simili}) {
        spunta->setFocusPolicy(Qt::NoFocus);
        riga.disposizione->addWidget(spunta);
    }
    return riga.disposizione;
}

// The VAT fields, shown for documents whose prices include it.
QWidget* pannelloIva(const Montaggio& m, QWidget* padre) {
    auto* pannello = new QWidget(padre);
    const Riga riga{m, pannello};
    riga.conto(13);
    riga.campo(m.v.txtIVA, "Codice IVA", larghezzaPrezzo);
    riga.disposizione->addWidget(m.testo(m.v.lblIVA, "Descrizione IVA", pannello), 1);
    PulsanteComando* aggiungi = m.pulsante(m.v.cmdAddRow, m.eventi().aggiungiRiga, pannello);
    aggiungi->segnaposto("AGGIUNGI RIGA");
    aggiungi->setAccessibleName("Aggiungi la riga");
    aggiungi->setMinimumHeight(aMisura(altezzaTocco));
    riga.disposizione->addWidget(aggiungi);
    pannello->setLayout(riga.disposizione);
    collegaSpia(m.v.pctIVA, pannello);
    return pannello;
}

}  // namespace

QWidget* pannelloRiga(const Montaggio& m, QWidget* padre) {
    QFrame* pannello = nuovoPannello(ruoli::pannello, padre);
    auto* colonna = new QVBoxLayout(pannello);
    colonna->setContentsMargins(spazio, spazio, spazio, spazio);
    colonna->setSpacing(spazio);
    colonna->addLayout(rigaProdotto(m, pannello));
    colonna->addLayout(rigaPrezzi(m, pannello));
    colonna->addWidget(pannelloIva(m, pannello));
    return pannello;
}
