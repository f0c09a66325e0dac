#include "kit/ui/frmSelectElement.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

#include "core/format.h"
#include "core/numbers.h"
#include "data/recordset.h"
#include "kit/ui/campo_edit.h"

namespace {

constexpr int ruoloChiave = Qt::UserRole;
// Widths of a specification are in twips, made for small type; this many are a pixel of ours.
constexpr int twipPerPixel = 10;

enum Parte { Titolo, Larghezza, NomeCampo };

QString inTesto(const QVariant& valore) {
    if (valore.typeId() == QMetaType::QDateTime) return Format(valore.toDateTime(), u"DD/MM/YYYY");
    if (valore.typeId() == QMetaType::Double) return testoNumero(valore.toDouble());
    return valore.toString();
}

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
    resize(760, 480);

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
    cmdNew->setVisible(nuovo);
    lswElenco->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                      : QAbstractItemView::SingleSelection);
    riempi(colonne);
    lswElenco->setFocus();
    exec();
    mRighe = nullptr;
}

void frmSelectElement::aggiungiColonne(const QStringList& colonne) {
    QStringList titoli;
    for (const QString& colonna : colonne) {
        titoli += colonna.section(u'¤', Titolo, Titolo);
    }
    lswElenco->setColumnCount(static_cast<int>(colonne.size()));
    lswElenco->setHeaderLabels(titoli);
    for (int i = 0; i < colonne.size(); ++i) {
        const int larghezza = colonne[i].section(u'¤', Larghezza, Larghezza).toInt() / twipPerPixel;
        lswElenco->setColumnHidden(i, larghezza == 0);
        if (larghezza > 0) lswElenco->setColumnWidth(i, larghezza);
    }
}

void frmSelectElement::riempi(const QString& colonne) {
    QStringList parti = colonne.split('|');
    parti.removeLast();
    lswElenco->clear();
    aggiungiColonne(parti);
    for (mRighe->moveFirst(); !mRighe->eof(); mRighe->moveNext()) {
        auto* riga = new QTreeWidgetItem(lswElenco);
        riga->setData(0, ruoloChiave, "E_" + mRighe->testo("RID"));
        riga->setSizeHint(0, {0, altezzaTocco});
        for (int i = 0; i < parti.size(); ++i) {
            riga->setText(i, inTesto(mRighe->campo(parti[i].section(u'¤', NomeCampo, NomeCampo))));
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
