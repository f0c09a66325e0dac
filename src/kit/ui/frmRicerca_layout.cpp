#include <QBoxLayout>
#include <QCheckBox>

#include "kit/search.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/campo_widgets.h"
#include "kit/ui/frmRicerca.h"
#include "kit/ui/labels.h"
#include "kit/ui/search_grid.h"
#include "kit/ui/touch_keys.h"

namespace {

constexpr int distanza = 6;
constexpr int larghezzaComandi = 150;
constexpr int altezzaComando = 56;
constexpr int margineNotizia = 18;

QFont grassetto(double fattore) {
    QFont carattere = carattereIngrandito(fattore);
    carattere.setBold(true);
    return carattere;
}

QHBoxLayout* nuovaRiga() {
    auto* riga = new QHBoxLayout;
    riga->setSpacing(distanza);
    return riga;
}

}  // namespace

QPushButton* frmRicerca::pulsante(const char* nome, const QString& testo, const QString& aiuto,
                                  const Azione& azione) {
    QPushButton* nuovo = pulsanteGrande(testo, nome, mContenuto);
    nuovo->setAccessibleName(aiuto);
    nuovo->setToolTip(aiuto);
    nuovo->setFocusPolicy(Qt::NoFocus);
    nuovo->setAutoDefault(false);
    connect(nuovo, &QPushButton::clicked, this, azione);
    return nuovo;
}

QBoxLayout* frmRicerca::rigaTesto() {
    auto* riga = nuovaRiga();
    riga->addWidget(etichetta("Cerca in", "lblCercaIn", mContenuto));
    auto* lblDesc = new QLabel(mContenuto);
    collega(mRicerca->lblDesc, lblDesc);
    lblDesc->setAccessibleName("Colonna in cui si cerca");
    lblDesc->setFont(grassetto(1.2));
    riga->addWidget(lblDesc);
    txtRicerca = new CampoEdit(mRicerca->txtRicerca, &mRicerca->casella, "Testo da cercare", mContenuto);
    txtRicerca->setFont(carattereIngrandito(1.3));
    txtRicerca->setPlaceholderText("Digita per cercare");
    txtRicerca->filtroTasti([this](QChar tasto) {
        const auto passa = mRicerca->tastoNelTesto(tasto);
        if (tasto == u'\r') mostra();
        return passa;
    });
    riga->addWidget(txtRicerca, 1);
    QPushButton* cancella = pulsante("cmdDel", "⌫", "Cancella l'ultimo carattere",
                                     [this] { comandoTesto([this] { mRicerca->cmdDel(); }); });
    cancella->setMinimumWidth(altezzaTocco + distanza);
    riga->addWidget(cancella);
    riga->addWidget(pulsante("cmdNuovo", "SVUOTA", "Svuota il testo",
                             [this] { comandoTesto([this] { mRicerca->cmdNuovo(); }); }));
    auto* ovunque = new QCheckBox("... F4", mContenuto);
    collega(mRicerca->chkCodiceProdotto, ovunque);
    ovunque->setAccessibleName("Cerca il testo in qualunque punto");
    ovunque->setToolTip("Cerca il testo in qualunque punto, non solo all'inizio (F4)");
    ovunque->setFocusPolicy(Qt::NoFocus);
    ovunque->setMinimumHeight(altezzaTocco);
    connect(ovunque, &QCheckBox::clicked, this,
            [this] { comandoTesto([this] { mRicerca->cambiaOvunque(); }); });
    riga->addWidget(ovunque);
    riga->addWidget(pulsante("cmdInvio", "CERCA", "Cerca (Invio)", [this] {
        mRicerca->cmdInvio();
        mostra();
    }));
    return riga;
}

QBoxLayout* frmRicerca::colonnaComandi() {
    auto* colonna = new QVBoxLayout;
    colonna->setSpacing(distanza);
    const auto aggiungi = [&](QPushButton* nuovo) {
        nuovo->setFixedWidth(larghezzaComandi);
        nuovo->setMinimumHeight(altezzaComando);
        colonna->addWidget(nuovo);
    };
    aggiungi(pulsante("cmdSu", "▲ PAG. SU", "Pagina precedente (Pag su)", [this] {
        mRicerca->cmdSu();
        mostra();
    }));
    aggiungi(pulsante("cmdDown", "▼ PAG. GIÙ", "Pagina successiva (Pag giù)", [this] {
        mRicerca->cmdDown();
        mostra();
    }));
    colonna->addStretch();
    QPushButton* nuovo =
        pulsante("cmdNuovoElemento", "NUOVO", "Nuovo elemento", [this] { chiudi(ricercaNuovo); });
    nuovo->setEnabled(mRicerca->nuovoAmmesso());
    aggiungi(nuovo);
    cmdSelect = pulsante("cmdSelect", {}, "Seleziona (Invio nell'elenco)", [this] { seleziona(); });
    cmdSelect->setProperty("ruolo", "principale");
    aggiungi(cmdSelect);
    aggiungi(pulsante("cmdEsci", "ESCI", "Esci senza scegliere (Esc)", [this] { chiudi({}); }));
    return colonna;
}

QBoxLayout* frmRicerca::rigaAiuto() {
    auto* riga = nuovaRiga();
    auto* lblEsito = new EtichettaElisa(mContenuto);
    collega(mRicerca->lblEsito, lblEsito);
    lblEsito->setAccessibleName("Esito della ricerca");
    lblEsito->setFont(grassetto(1.0));
    riga->addWidget(lblEsito, 1);
    const QString segna = mRicerca->multi() ? "Spazio: segna   " : "";
    QLabel* aiuto = etichetta("↓ elenco   " + segna + "Ctrl+1…9: colonna   F4: ovunque   Esc: esci",
                              "lblAiuto", mContenuto);
    aiuto->setFont(carattereIngrandito(0.85));
    riga->addWidget(aiuto);
    return riga;
}

void frmRicerca::costruisci() {
    mContenuto = new QWidget(this);
    auto* cornice = new QVBoxLayout(this);
    cornice->setContentsMargins(0, 0, 0, 0);
    cornice->addWidget(mContenuto);
    flxRicerca = new GrigliaRicerca(*mRicerca, mContenuto);

    auto* mezzo = nuovaRiga();
    mezzo->addWidget(flxRicerca, 1);
    mezzo->addLayout(colonnaComandi());
    auto* tutto = new QVBoxLayout(mContenuto);
    tutto->setSpacing(distanza);
    tutto->setContentsMargins(distanza, distanza, distanza, distanza);
    tutto->addLayout(rigaTesto());
    tutto->addLayout(mezzo, 1);
    tutto->addLayout(rigaAiuto());
    tutto->addWidget(tastieraLettere(
        [this](const QString& tasto) { comandoTesto([&] { mRicerca->tasto(tasto); }); }, mContenuto));
    setTabOrder(txtRicerca, flxRicerca);

    pctNessuna = etichetta("NESSUNA CORRISPONDENZA TROVATA!", "pctNessuna", mContenuto);
    pctNessuna->setFont(grassetto(1.5));
    pctNessuna->setFrameStyle(QFrame::Box | QFrame::Plain);
    pctNessuna->setLineWidth(2);
    pctNessuna->setMargin(margineNotizia);
    pctNessuna->setAutoFillBackground(true);
    pctNessuna->setAttribute(Qt::WA_TransparentForMouseEvents);
    pctNessuna->adjustSize();
    collegaSpia(mRicerca->pctNessuna, pctNessuna);
}
