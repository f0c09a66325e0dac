#include "counter/ui/assembly.h"

#include <QCheckBox>
#include <QEvent>
#include <QFrame>
#include <QLabel>

#include "counter/ui/command_button.h"
#include "counter/ui/command_table.h"
#include "counter/ui/style.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/campo_widgets.h"
#include "kit/ui/labels.h"
#include "sale/vendita.h"

namespace {

PulsanteComando* arreda(Campo& campo, const VoceComando& voce, QWidget* padre) {
    auto* nuovo = new PulsanteComando(padre);
    collega(campo, nuovo);
    nuovo->setAccessibleName(voce.nomeAccessibile);
    nuovo->segnaposto(voce.segnaposto);
    nuovo->sottotitolo(voce.tasto);
    if (voce.ruolo != nullptr) nuovo->setProperty(ruoli::proprieta, voce.ruolo);
    if (voce.presto) {
        nuovo->presto(voce.suggerimento);
    } else {
        nuovo->setToolTip(voce.suggerimento);
    }
    return nuovo;
}

class DoppioClic final : public QObject {
  public:
    DoppioClic(QWidget* widget, std::function<void()> azione) : QObject(widget), mAzione(std::move(azione)) {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() != QEvent::MouseButtonDblClick) return false;
        mAzione();
        return true;
    }

  private:
    std::function<void()> mAzione;
};

}  // namespace

void alDoppioClic(QWidget* widget, std::function<void()> azione) {
    new DoppioClic(widget, std::move(azione));
}

QLabel* postoFisso(QLabel* spia) {
    QSizePolicy posto = spia->sizePolicy();
    posto.setRetainSizeWhenHidden(true);
    spia->setSizePolicy(posto);
    return spia;
}

QFrame* nuovoPannello(const char* ruolo, QWidget* padre) {
    auto* nuovo = new QFrame(padre);
    nuovo->setProperty(ruoli::proprieta, ruolo);
    return nuovo;
}

QLabel* nuovaDidascalia(const QString& testo, const char* ruolo, QWidget* padre) {
    auto* nuova = new QLabel(testo, padre);
    nuova->setTextFormat(Qt::PlainText);
    nuova->setProperty(ruoli::proprieta, ruolo);
    return nuova;
}

CampoEdit* Montaggio::campo(Campo& campo, const QString& nomeAccessibile, QWidget* padre) const {
    auto* nuovo = new CampoEdit(campo, v.caselle.di(campo), nomeAccessibile, padre);
    nuovo->filtroTasti([tasto = mEventi.tasto, &campo](QChar c) { return tasto(campo, c); });
    return nuovo;
}

QCheckBox* Montaggio::spunta(Campo& campo, const QString& testo, QWidget* padre) const {
    auto* nuova = new QCheckBox(testo, padre);
    nuova->setMinimumHeight(altezzaTocco);
    collega(campo, nuova);
    QObject::connect(nuova, &QCheckBox::clicked, nuova,
                     [spunta = mEventi.spunta, &campo](bool premuta) { spunta(campo, premuta); });
    return nuova;
}

PulsanteComando* Montaggio::comando(int indice, QWidget* padre) const {
    auto* nuovo = arreda(v.cmdComando[static_cast<size_t>(indice)], voceComando(indice), padre);
    QObject::connect(nuovo, &PulsanteComando::premuto, nuovo,
                     [comando = mEventi.comando, indice] { comando(indice); });
    return nuovo;
}

PulsanteComando* Montaggio::conto(int indice, QWidget* padre) const {
    auto* nuovo = arreda(v.cmdConto[static_cast<size_t>(indice)], voceConto(indice), padre);
    QObject::connect(nuovo, &PulsanteComando::premuto, nuovo,
                     [conto = mEventi.conto, indice] { conto(indice); });
    return nuovo;
}

PulsanteComando* Montaggio::pulsante(Campo& campo, const std::function<void()>& premuto,
                                     QWidget* padre) const {
    auto* nuovo = new PulsanteComando(padre);
    collega(campo, nuovo);
    QObject::connect(nuovo, &PulsanteComando::premuto, nuovo, premuto);
    return nuovo;
}

QLabel* Montaggio::testo(Campo& campo, const QString& nomeAccessibile, QWidget* padre) const {
    auto* nuova = new EtichettaElisa(padre);
    nuova->setProperty(ruoli::proprieta, ruoli::valore);
    collega(campo, nuova);
    nuova->setAccessibleName(nomeAccessibile);
    return nuova;
}

QLabel* Montaggio::spia(Campo& campo, const QString& testo, const char* ruolo, QWidget* padre) const {
    auto* nuova = nuovaDidascalia(testo, ruolo, padre);
    nuova->setAlignment(Qt::AlignCenter);
    collegaSpia(campo, nuova);
    return nuova;
}
