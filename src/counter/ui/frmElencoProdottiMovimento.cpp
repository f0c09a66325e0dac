#include "counter/ui/frmElencoProdottiMovimento.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

#include "counter/movement_list.h"
#include "counter/ui/assembly.h"
#include "counter/ui/style.h"
#include "kit/ui/campo_widgets.h"
#include "kit/ui/touch_widgets.h"

namespace {

constexpr QSize misura{1120, 620};
constexpr int colonnaDescrizione = 2;

// A grid in which Enter picks the row.
class GrigliaScelta final : public QTableWidget {
  public:
    using QTableWidget::QTableWidget;

  protected:
    void keyPressEvent(QKeyEvent* evento) override {
        if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) {
            emit cellDoubleClicked(currentRow(), 0);
        } else {
            QTableWidget::keyPressEvent(evento);
        }
    }
};

QTableWidget* griglia(int righe, QWidget* padre) {
    auto* nuova = new GrigliaScelta(righe, static_cast<int>(ElencoMovimento::titoli().size()), padre);
    nuova->setObjectName("flxVB");
    nuova->setAccessibleName("Righe del movimento");
    nuova->setHorizontalHeaderLabels(ElencoMovimento::titoli());
    nuova->setSelectionBehavior(QAbstractItemView::SelectRows);
    nuova->setSelectionMode(QAbstractItemView::SingleSelection);
    nuova->setEditTriggers(QAbstractItemView::NoEditTriggers);
    nuova->setTabKeyNavigation(false);
    nuova->verticalHeader()->hide();
    nuova->verticalHeader()->setDefaultSectionSize(altezzaTocco);
    return nuova;
}

}  // namespace

frmElencoProdottiMovimento::frmElencoProdottiMovimento(ElencoMovimento& movimento, QWidget* padre)
    : QDialog(padre),
      mMovimento(movimento),
      mTestata(testata()),
      flxVB(griglia(static_cast<int>(movimento.righe().size()), this)),
      cmdEsci(pulsanteGrande("ESCI", "cmdEsci", this)) {
    setObjectName("frmElencoProdottiMovimento");
    setWindowTitle("Prodotti del movimento");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    riempi();
    cmdEsci->setToolTip("Esci senza scegliere (Esc)");
    cmdEsci->setAutoDefault(false);
    connect(cmdEsci, &QPushButton::clicked, this, &QDialog::reject);
    connect(flxVB, &QTableWidget::cellDoubleClicked, this, &frmElencoProdottiMovimento::scegli);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(mTestata);
    tutto->addWidget(flxVB, 1);
    tutto->addWidget(cmdEsci, 0, Qt::AlignRight);
}

frmElencoProdottiMovimento::~frmElencoProdottiMovimento() {
    delete mTestata;
}

QWidget* frmElencoProdottiMovimento::testata() {
    QFrame* pannello = nuovoPannello(ruoli::pannello, this);
    auto* riga = new QHBoxLayout(pannello);
    const auto voce = [&](const QString& didascalia, Campo& campo, int stiramento) {
        riga->addWidget(nuovaDidascalia(didascalia, ruoli::didascalia, pannello));
        QLabel* valore = nuovaDidascalia({}, ruoli::valore, pannello);
        collega(campo, valore);
        valore->setAccessibleName(didascalia);
        riga->addWidget(valore, stiramento);
    };
    voce("Data", mMovimento.lblData, 0);
    voce("Numero", mMovimento.lblNumero, 0);
    voce("Cliente", mMovimento.lblCodCliente, 0);
    voce("", mMovimento.lblDescCliente, 1);
    voce("Totale €", mMovimento.lblTotale, 0);
    return pannello;
}

void frmElencoProdottiMovimento::riempi() {
    int numero = 0;
    for (const ElencoMovimento::Riga& riga : mMovimento.righe()) {
        for (int c = 0; c < flxVB->columnCount(); ++c) {
            auto* cella = new QTableWidgetItem(riga.celle[c]);
            cella->setTextAlignment(Qt::AlignVCenter |
                                    (ElencoMovimento::aDestra(c) ? Qt::AlignRight : Qt::AlignLeft));
            flxVB->setItem(numero, c, cella);
        }
        ++numero;
    }
    flxVB->resizeColumnsToContents();
    flxVB->horizontalHeader()->setSectionResizeMode(colonnaDescrizione, QHeaderView::Stretch);
    if (numero > 0) flxVB->setCurrentCell(0, 0);
}

QString frmElencoProdottiMovimento::startMe() {
    resize(misura);
    flxVB->setFocus();
    exec();
    return mScelta;
}

// Enter picks a row while the grid has the focus; no button waits for it there.
void frmElencoProdottiMovimento::keyPressEvent(QKeyEvent* evento) {
    const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    if (invio && cmdEsci->hasFocus()) return cmdEsci->click();
    QDialog::keyPressEvent(evento);
}

void frmElencoProdottiMovimento::scegli(int riga) {
    if (riga < 0 || riga >= static_cast<int>(mMovimento.righe().size())) return;
    mScelta = mMovimento.righe()[static_cast<size_t>(riga)].chiave;
    accept();
}
