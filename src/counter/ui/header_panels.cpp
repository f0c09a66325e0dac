#include <algorithm>

#include <QCheckBox>
#include <QEvent>
#include <QFrame>
#include <QLabel>

#include "counter/ui/assembly.h"
#include "counter/ui/command_button.h"
#include "counter/ui/panels.h"
#include "counter/ui/style.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/campo_widgets.h"
#include "kit/ui/labels.h"
#include "sale/vendita.h"

namespace {

constexpr int larghezzaConto = 82;
constexpr int larghezzaImporto = 92;
constexpr int larghezzaNumero = 78;
constexpr int latoLampada = 18;
constexpr int larghezzaRegCassa = 112;

// The words below an account's name, so that its colour is not alone in telling its state.
void diciStatoConto(PulsanteComando& pulsante, const Campo& campo, bool diQuestoSchermo) {
    const bool libero = !campo.coloreFondo().has_value();
    pulsante.sottotitolo(libero ? "libero" : diQuestoSchermo ? "in uso" : "aperto");
}

// The account's button repaints its state whenever its colour changes.
class PulsanteConto final : public QObject {
  public:
    PulsanteConto(PulsanteComando& pulsante, const Campo& campo, bool diQuestoSchermo)
        : QObject(&pulsante), mPulsante(pulsante), mCampo(campo), mDiQuestoSchermo(diQuestoSchermo) {
        pulsante.installEventFilter(this);
        diciStatoConto(mPulsante, mCampo, mDiQuestoSchermo);
    }
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::StyleChange) diciStatoConto(mPulsante, mCampo, mDiQuestoSchermo);
        return false;
    }

  private:
    PulsanteComando& mPulsante;
    const Campo& mCampo;
    bool mDiQuestoSchermo;
};

void aggiungiConti(const Montaggio& m, QHBoxLayout& riga, QWidget* padre) {
    for (int i = 0; i < 4; ++i) {
        PulsanteComando* pulsante = m.conto(i, padre);
        pulsante->setMinimumWidth(aMisura(larghezzaConto));
        new PulsanteConto(*pulsante, m.v.cmdConto[static_cast<size_t>(i)], i == m.v.indice);
        riga.addWidget(pulsante);
    }
}

// A small text above or below a larger one, in the height of a box.
QVBoxLayout* pila(QLabel* sopra, QLabel* sotto) {
    if (auto* testo = qobject_cast<EtichettaElisa*>(sotto)) testo->cedeIlPosto();
    auto* colonna = nuovaDisposizione<QVBoxLayout>(0);
    colonna->addStretch();
    colonna->addWidget(sopra);
    colonna->addWidget(sotto);
    colonna->addStretch();
    return colonna;
}

void aggiungiCoppia(QHBoxLayout& riga, const QString& didascalia, QLabel* valore, QWidget* padre) {
    riga.addLayout(pila(nuovaDidascalia(didascalia, ruoli::didascalia, padre), valore));
}

// The lamp and, to be pressed, the words of the fiscal register's link.
void aggiungiRegCassa(const Montaggio& m, QHBoxLayout& riga, QWidget* padre) {
    QFrame* lampada = nuovoPannello(ruoli::lampada, padre);
    collegaSpia(m.v.shRegCassa, lampada);
    lampada->setAccessibleName("Spia del registratore di cassa");
    lampada->setFixedSize(latoLampada, latoLampada);
    riga.addWidget(lampada);
    PulsanteComando* parole = m.pulsante(m.v.lblRegCassa, m.eventi().regCassa, padre);
    parole->setToolTip("Mostra il collegamento con il registratore di cassa");
    const int larghezza = parole->fontMetrics().horizontalAdvance("REG. CASSA") + larghezzaRegCassa / 3;
    parole->setMinimumWidth(std::max(larghezzaRegCassa, larghezza));
    riga.addWidget(parole);
}

QVBoxLayout* pilaImporto(const QString& didascalia, QLabel* importo, QWidget* padre) {
    importo->setMinimumWidth(larghezzaImporto);
    importo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QLabel* sopra = nuovaDidascalia(didascalia, ruoli::didascalia, padre);
    sopra->setAlignment(Qt::AlignRight);
    return pila(sopra, importo);
}

QHBoxLayout* rigaNumeri(const Montaggio& m, QWidget* padre) {
    auto* riga = nuovaDisposizione<QHBoxLayout>(spazio);
    const auto aggiungi = [&](Campo& campo, const QString& nome, int larghezza) {
        CampoEdit* casella = m.campo(campo, nome, padre);
        casella->setFixedWidth(aMisura(larghezza));
        riga->addWidget(casella);
    };
    riga->addWidget(m.conto(4, padre));
    aggiungi(m.v.txtData, "Data della vendita", 116);
    riga->addWidget(m.conto(6, padre));
    aggiungi(m.v.txtProg, "Progressivo", larghezzaNumero);
    riga->addWidget(nuovaDidascalia("/", ruoli::titolo, padre));
    aggiungi(m.v.txtSottoProg, "Sottoprogressivo", larghezzaNumero);
    riga->addWidget(nuovaDidascalia("N. doc.", ruoli::didascalia, padre));
    aggiungi(m.v.txtNumDoc, "Numero del documento", larghezzaNumero);
    riga->addStretch();
    riga->addWidget(postoFisso(m.spia(m.v.pctSegnala, "⚑ SEGNALATO", ruoli::avviso, padre)));
    riga->addWidget(m.spunta(m.v.chkPrezziIva, "Prezzi IVA", padre));
    return riga;
}

QHBoxLayout* rigaCliente(const Montaggio& m, QWidget* padre) {
    auto* riga = nuovaDisposizione<QHBoxLayout>(spazio);
    riga->addWidget(m.conto(5, padre));
    CampoEdit* codice = m.campo(m.v.txtCodCliente, "Codice del cliente", padre);
    codice->setFixedWidth(aMisura(110));
    riga->addWidget(codice);
    QLabel* fascia = m.testo(m.v.lblFasciaScoCli, "Fascia del cliente", padre);
    fascia->setProperty(ruoli::proprieta, ruoli::didascalia);
    riga->addLayout(pila(m.testo(m.v.lblDescCliente, "Nome del cliente", padre), fascia), 1);
    riga->addLayout(pilaImporto("Saldo", m.testo(m.v.lblSaldo, "Saldo del cliente", padre), padre));
    riga->addLayout(pilaImporto("Fido", m.testo(m.v.lblFido, "Fido del cliente", padre), padre));
    riga->addWidget(postoFisso(m.spia(m.v.pctFido, "⚠ OLTRE FIDO", ruoli::allarme, padre)));
    return riga;
}

}  // namespace

QWidget* barraConti(const Montaggio& m, QWidget* padre) {
    QFrame* barra = nuovoPannello(ruoli::barra, padre);
    auto* riga = new QHBoxLayout(barra);
    riga->setContentsMargins(spazio, spazio, spazio, spazio);
    riga->setSpacing(spazio);
    aggiungiConti(m, *riga, barra);
    riga->addSpacing(spazio);
    aggiungiCoppia(*riga, "Conto", m.testo(m.v.lblConto, "Numero del conto", barra), barra);
    aggiungiCoppia(*riga, "Cassa", m.testo(m.v.lblCassa, "Numero della cassa", barra), barra);
    aggiungiRegCassa(m, *riga, barra);
    riga->addStretch();
    riga->addWidget(m.spia(m.v.pctChiusa, "CHIUSA", ruoli::chiusa, barra));
    riga->addWidget(m.spia(m.v.pctSospesa, "SOSPESA", ruoli::sospesa, barra));
    riga->addLayout(pila(m.testo(m.v.pctPrint, "Stato di stampa", barra),
                         m.testo(m.v.lblDataStampa, "Data di stampa", barra)));
    QLabel* nonSalvata = m.testo(m.v.pctSave, "Stato di salvataggio", barra);
    nonSalvata->setProperty(ruoli::proprieta, ruoli::avviso);
    riga->addWidget(nonSalvata);
    riga->addWidget(m.testo(m.v.lblVenditore, "Operatore", barra));
    PulsanteComando* operatore = m.pulsante(m.v.cmdOperatore, m.eventi().operatore, barra);
    operatore->setToolTip("Inserisce il codice dell'operatore");
    riga->addWidget(operatore);
    return barra;
}

QWidget* pannelloTestata(const Montaggio& m, QWidget* padre) {
    QFrame* pannello = nuovoPannello(ruoli::pannello, padre);
    auto* colonna = new QVBoxLayout(pannello);
    colonna->setContentsMargins(spazio, spazio, spazio, spazio);
    colonna->setSpacing(spazio);
    colonna->addLayout(rigaNumeri(m, pannello));
    colonna->addLayout(rigaCliente(m, pannello));
    return pannello;
}
