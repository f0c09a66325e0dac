#include <QCheckBox>

#include "core/globals.h"
#include "counter/fields.h"
#include "counter/ui/assembly.h"
#include "counter/ui/frmMain.h"
#include "counter/ui/grid_view.h"
#include "counter/ui/panels.h"
#include "counter/ui/style.h"

namespace {

constexpr int larghezzaTotali = 384;
constexpr int margineSchermo = 8;

QVBoxLayout* colonnaVendita(const Montaggio& m, GrigliaVendita* griglia, QWidget* padre) {
    auto* colonna = nuovaDisposizione<QVBoxLayout>(spazio);
    colonna->addWidget(pannelloTestata(m, padre));
    colonna->addWidget(pannelloRiga(m, padre));
    colonna->addWidget(griglia, 1);
    return colonna;
}

QWidget* colonnaTotali(const Montaggio& m, QWidget* padre) {
    auto* tutto = new QWidget(padre);
    tutto->setFixedWidth(aMisura(larghezzaTotali));
    auto* colonna = new QVBoxLayout(tutto);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(spazio);
    colonna->addWidget(pannelloDisplay(m, tutto));
    colonna->addWidget(pannelloLaterale(m, tutto), 1);
    return tutto;
}

// The lights wait for a rule to put them on.
void spegniSpie(CampiVendita& v) {
    for (Campo* spia : {&v.pctFido, &v.pctSegnala, &v.pctSave, &v.pctPrint, &v.pctChiusa, &v.pctSospesa}) {
        spia->visibile(false);
    }
}

}  // namespace

void frmMain::costruisci() {
    Vendita& v = vendita();
    spegniSpie(v);
    const Montaggio m(v, eventi());
    mContenuto = new QWidget(this);
    mGriglia = new GrigliaVendita(v.flxVB, mContenuto);
    mGriglia->mostraColonne(gPrezzoType);

    auto* mezzo = nuovaDisposizione<QHBoxLayout>(spazio);
    mezzo->addLayout(colonnaVendita(m, mGriglia, mContenuto), 1);
    mezzo->addWidget(colonnaTotali(m, mContenuto));
    auto* tutto = new QVBoxLayout(mContenuto);
    tutto->setContentsMargins(margineSchermo, margineSchermo, margineSchermo, margineSchermo);
    tutto->setSpacing(spazio);
    tutto->addWidget(barraConti(m, mContenuto));
    tutto->addLayout(mezzo, 1);
    tutto->addWidget(barraComandi(m, mContenuto));

    auto* cornice = new QVBoxLayout(this);
    cornice->setContentsMargins(0, 0, 0, 0);
    cornice->addWidget(mContenuto);
    impostaOrdineTab();
}

void frmMain::impostaOrdineTab() {
    QWidget* prima = nullptr;
    for (const Campo* campo : ordineTab(vendita())) {
        QWidget* widget = mContenuto->findChild<QWidget*>(campo->nome());
        widget->installEventFilter(this);
        if (prima != nullptr) setTabOrder(prima, widget);
        prima = widget;
    }
    setTabOrder(prima, mGriglia);
    mGriglia->installEventFilter(this);
}
