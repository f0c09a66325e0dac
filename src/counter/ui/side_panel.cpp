#include <QFrame>
#include <QLabel>
#include <QStackedWidget>

#include "counter/ui/assembly.h"
#include "counter/ui/panels.h"
#include "counter/ui/style.h"
#include "kit/ui/touch_keys.h"
#include "kit/ui/touch_widgets.h"

namespace {

enum Pagina { Dati, Tasti };

QPushButton* pulsantePagina(const char* nome, const QString& testo, const QString& aiuto,
                            QStackedWidget* pila, Pagina pagina) {
    QPushButton* nuovo = pulsanteGrande(testo, nome, pila);
    nuovo->setToolTip(aiuto);
    nuovo->setAccessibleName(aiuto);
    nuovo->setFocusPolicy(Qt::NoFocus);
    QObject::connect(nuovo, &QPushButton::clicked, pila, [pila, pagina] { pila->setCurrentIndex(pagina); });
    return nuovo;
}

QWidget* paginaDati(const Montaggio& m, QStackedWidget* pila) {
    auto* pagina = new QWidget(pila);
    auto* colonna = new QVBoxLayout(pagina);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(spazio);
    QPushButton* tasti = pulsantePagina("cmdTasti", "TASTI", "Mostra i tasti sullo schermo", pila, Tasti);
    colonna->addWidget(pannelloProdotto(m, tasti, pagina), 1);
    colonna->addWidget(pannelloTotali(m, pagina));
    return pagina;
}

// The keys leave the focus where it is: they write into the field that is being typed in.
QWidget* paginaTasti(QStackedWidget* pila) {
    QFrame* pagina = nuovoPannello(ruoli::pannello, pila);
    auto* colonna = new QVBoxLayout(pagina);
    colonna->setSpacing(spazio);
    auto* testa = nuovaDisposizione<QHBoxLayout>(spazio);
    testa->addWidget(nuovaDidascalia("TASTI", ruoli::titolo, pagina), 1);
    testa->addWidget(pulsantePagina("cmdDati", "PRODOTTO", "Mostra di nuovo il prodotto", pila, Dati));
    colonna->addLayout(testa);
    colonna->addWidget(tastierino(pagina), 1);
    return pagina;
}

}  // namespace

QWidget* pannelloLaterale(const Montaggio& m, QWidget* padre) {
    auto* pila = new QStackedWidget(padre);
    pila->addWidget(paginaDati(m, pila));
    pila->addWidget(paginaTasti(pila));
    return pila;
}
