#include "kit/ui/campo_widgets.h"

#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include "kit/ui/contrast.h"

namespace {

QString foglioColori(const Campo& campo) {
    QString foglio;
    if (campo.coloreFondo())
        foglio += "background-color:" + QColor::fromRgb(*campo.coloreFondo()).name() + ";";
    if (campo.coloreTesto()) {
        foglio += "color:" + QColor::fromRgb(*campo.coloreTesto()).name() + ";";
    } else if (campo.coloreFondo()) {
        foglio += "color:" + inchiostroSu(QColor::fromRgb(*campo.coloreFondo())).name() + ";";
    }
    return foglio;
}

void mostraStato(QWidget& widget, const Campo& campo) {
    widget.setEnabled(campo.abilitato());
    mostraVisibilita(widget, campo);
    const QString foglio = foglioColori(campo);
    if (widget.styleSheet() != foglio) widget.setStyleSheet(foglio);
}

// Runs `mostra` now and at every change, as long as the widget lives.
template <class Widget, class Mostra>
void segui(Campo& campo, Widget* widget, Mostra mostra) {
    widget->setObjectName(campo.nome());
    const auto aggiorna = [vivo = QPointer<Widget>(widget), mostra](const Campo& cambiato) {
        if (!vivo) return;
        mostra(*vivo, cambiato);
        mostraStato(*vivo, cambiato);
    };
    campo.osserva(aggiorna);
    aggiorna(campo);
}

}  // namespace

void mostraVisibilita(QWidget& widget, const Campo& campo) {
    const bool nascosto = widget.testAttribute(Qt::WA_WState_ExplicitShowHide) && widget.isHidden();
    if (nascosto == campo.visibile()) widget.setVisible(campo.visibile());
}

void collega(Campo& campo, QLabel* etichetta) {
    etichetta->setTextFormat(Qt::PlainText);
    segui(campo, etichetta, [](QLabel& e, const Campo& c) { e.setText(c.testo()); });
}

void collegaSpia(Campo& campo, QWidget* spia) {
    segui(campo, spia, [](QWidget&, const Campo&) {});
}

void collega(Campo& campo, QCheckBox* spunta) {
    segui(campo, spunta, [](QCheckBox& s, const Campo& c) { s.setChecked(c.valore() != 0); });
}

void collega(Campo& campo, QPushButton* pulsante) {
    segui(campo, pulsante, [](QPushButton& p, const Campo& c) {
        if (p.text() != c.testo()) p.setText(c.testo());
    });
}
