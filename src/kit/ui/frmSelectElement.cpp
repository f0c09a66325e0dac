#include "kit/ui/frmSelectElement.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>

#include "data/recordset.h"
#include "kit/column_spec.h"
#include "kit/ui/campo_edit.h"

namespace {

constexpr int ruoloChiave = Qt::UserRole;
constexpr QSize misura{760, 480};
// Margins, borders and scroll bar beside the columns.
constexpr int contorno = 80;

QPushButton* pulsante(const char* nome, const QString& testo, QWidget* padre) {
    auto* nuovo = new QPushButton(testo, padre);
    nuovo->setObjectName(nome);
    nuovo->setMinimumSize(3 * altezzaTocco, altezzaTocco);
    nuovo->setAutoDefault(false);
    return nuovo;
}

QTreeWidget* elenco(QWidget* padre) {
    auto* nuovo = new QTreeWidget(padre);
    nuovo->setObjectName("lswElenco");
    nuovo->setAccessibleName("Elementi trovati");
    nuovo->setRootIsDecorated(false);
    nuovo->setUniformRowHeights(true);
    nuovo->setAlternatingRowColors(true);
    nuovo->setAllColumnsShowFocus(true);
    nuovo->header()->setSectionsMovable(false);
    return nuovo;
}

}  // namespace

frmSelectElement::frmSelectElement(QWidget* padre)
    : QDialog(padre),
      lswElenco(elenco(this)),
      cmdNew(pulsante("cmdNew", "&Nuovo", this)),
      cmdOk(pulsante("cmdOk", "&Seleziona", this)) {
    setObjectName("frmSelectElement");
    setWindowTitle("Seleziona elemento");
    auto* cmdCancel = pulsante("cmdCancel", "&Annulla", this);
    cmdOk->setDefault(true);

    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(cmdNew);
    pulsanti->addStretch();
    pulsanti->addWidget(cmdCancel);
    pulsanti->addWidget(cmdOk);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(lswElenco);
    tutto->addLayout(pulsanti);

    connect(cmdOk, &QPushButton::clicked, this, &frmSelectElement::conferma);
    connect(lswElenco, &QTreeWidget::itemDoubleClicked, this, &frmSelectElement::conferma);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdNew, &QPushButton::clicked, this, [this] {
        mNuovo = true;
        accept();
    });
    connect(lswElenco, &QTreeWidget::itemSelectionChanged, this,
            [this] { cmdOk->setEnabled(!lswElenco->selectedItems().isEmpty()); });
}

void frmSelectElement::startMe(Recordset& righe, const QString& colonne, bool nuovo, bool multi) {
    mRighe = &righe;
    mSelezionato = false;
    mNuovo = false;
    cmdNew->setEnabled(nuovo);
    lswElenco->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                      : QAbstractItemView::SingleSelection);
    riempi(colonne);
    lswElenco->setFocus();
    exec();
    mRighe = nullptr;
}

void frmSelectElement::aggiungiColonne(const std::vector<ColonnaElenco>& colonne) {
    QStringList titoli;
    for (const ColonnaElenco& colonna : colonne) {
        titoli += colonna.titolo;
    }
    lswElenco->setColumnCount(static_cast<int>(colonne.size()));
    lswElenco->setHeaderLabels(titoli);
    int totale = 0;
    for (int i = 0; i < lswElenco->columnCount(); ++i) {
        const int larghezza = colonne[static_cast<size_t>(i)].larghezza / twipPerPixel;
        lswElenco->setColumnHidden(i, larghezza == 0);
        if (larghezza > 0) lswElenco->setColumnWidth(i, larghezza);
        totale += larghezza;
    }
    resize(QSize(std::max(misura.width(), totale + contorno), misura.height())
               .boundedTo(screen()->availableSize()));
}

void frmSelectElement::riempi(const QString& specifica) {
    std::vector<ColonnaElenco> colonne = getAddInfoCOls(specifica);
    colonne.pop_back();
    lswElenco->clear();
    aggiungiColonne(colonne);
    for (mRighe->moveFirst(); !mRighe->eof(); mRighe->moveNext()) {
        auto* riga = new QTreeWidgetItem(lswElenco);
        riga->setData(0, ruoloChiave, "E_" + mRighe->testo("RID"));
        riga->setSizeHint(0, {0, altezzaTocco});
        for (int i = 0; i < lswElenco->columnCount(); ++i) {
            riga->setText(i, testoCampo(mRighe->campo(colonne[static_cast<size_t>(i)].campo)));
        }
    }
    mRighe->moveFirst();
    lswElenco->setCurrentItem(lswElenco->topLevelItem(0));
    cmdOk->setEnabled(!lswElenco->selectedItems().isEmpty());
}

void frmSelectElement::conferma() {
    mRighe->moveFirst();
    for (int i = 0; i < lswElenco->topLevelItemCount(); ++i) {
        if (lswElenco->topLevelItem(i)->isSelected()) {
            mSelezionato = true;
            break;
        }
        mRighe->moveNext();
    }
    accept();
}
