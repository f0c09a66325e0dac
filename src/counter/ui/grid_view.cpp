#include "counter/ui/grid_view.h"

#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>

#include "counter/ui/grid_painter.h"
#include "counter/ui/style.h"
#include "sale/flxvb.h"

namespace {

constexpr int altezzaRiga = 34;
constexpr int puntiNormali = 12;
constexpr char invito[] = "Scansiona o digita il primo prodotto";

struct LarghezzaColonna {
    Colonna colonna;
    int pixel;
};
// The description takes what is left, and the VAT's place too where that is not shown.
constexpr LarghezzaColonna larghezze[] = {
    {Colonna::Icona, 22},    {Colonna::Marca, 52}, {Colonna::Codice, 128},     {Colonna::Iva, 62},
    {Colonna::Quantita, 84}, {Colonna::Um, 50},    {Colonna::ScontoTesto, 84}, {Colonna::Importo, 100},
};

class Intestazione final : public QHeaderView {
  public:
    explicit Intestazione(QWidget* padre) : QHeaderView(Qt::Horizontal, padre) {
        setSectionsClickable(false);
        setHighlightSections(false);
        setMinimumSectionSize(0);
    }

  protected:
    // A title stands as its column's cells do.
    void paintSection(QPainter* pittore, const QRect& spazio, int sezione) const override {
        pittore->fillRect(spazio, QColor::fromRgb(tinte::barra));
        pittore->setPen(QColor::fromRgb(tinte::bianco));
        const bool destra = FlexVB::allineataADestra(static_cast<Colonna>(sezione));
        pittore->drawText(spazio.adjusted(margineCella, 0, -margineCella, 0),
                          (destra ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter,
                          model()->headerData(sezione, Qt::Horizontal).toString());
    }
};

}  // namespace

GrigliaVendita::GrigliaVendita(FlexVB& righe, QWidget* padre) : QTableView(padre), mRighe(righe) {
    setObjectName("flxVB");
    setAccessibleName("Righe della vendita");
    setHorizontalHeader(new Intestazione(this));
    setModel(&righe);
    setItemDelegate(new PittoreCelle(this));
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setDefaultSectionSize(aMisura(altezzaRiga));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);

    connect(&righe, &FlexVB::dataChanged, this, [this](const QModelIndex& primo, const QModelIndex& ultimo) {
        nascondiRighe(primo.row(), ultimo.row());
        seguiModello();
    });
    connect(&righe, &FlexVB::rowsRemoved, this, &GrigliaVendita::seguiModello);
    connect(&righe, &FlexVB::rowsInserted, this, [this](const QModelIndex&, int prima, int ultima) {
        nascondiRighe(prima, ultima);
        viewport()->update();
    });
    connect(&righe, &FlexVB::modelReset, this, [this] { nascondiRighe(0, mRighe.ultima() - 1); });
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& indice) {
        emit rigaPremuta(indice.row() + 1);
        if (indice.column() == static_cast<int>(Colonna::Icona)) emit iconaPremuta(indice.row() + 1);
    });
}

void GrigliaVendita::mostraColonne(int prezzoType) {
    for (int c = 0; c < numeroColonne; ++c) {
        setColumnHidden(c, !FlexVB::mostrata(static_cast<Colonna>(c), prezzoType));
    }
    // Bold figures of a larger type need a little more.
    const int margine = 5 * (font().pointSize() - puntiNormali);
    for (const auto& [colonna, pixel] : larghezze) {
        setColumnWidth(static_cast<int>(colonna), aMisura(pixel) + margine);
    }
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(static_cast<int>(Colonna::Descrizione), QHeaderView::Stretch);
}

void GrigliaVendita::mostraRiga(int riga) {
    const QModelIndex indice = mRighe.index(riga - 1, static_cast<int>(Colonna::Descrizione));
    if (!indice.isValid()) return;
    executeDelayedItemsLayout();
    if (!viewport()->rect().contains(visualRect(indice))) scrollTo(indice, PositionAtTop);
    seguiModello();
}

void GrigliaVendita::ridisegno(bool acceso) {
    mRidisegnoSpento = std::max(0, mRidisegnoSpento + (acceso ? -1 : 1));
    setUpdatesEnabled(mRidisegnoSpento == 0);
}

void GrigliaVendita::nascondiRighe(int prima, int ultima) {
    for (int r = prima; r <= ultima; ++r) {
        const bool nascosta = mRighe.nascosta(r + 1);
        if (isRowHidden(r) != nascosta) setRowHidden(r, nascosta);
    }
}

void GrigliaVendita::seguiModello() {
    const QModelIndex indice = mRighe.index(mRighe.corrente() - 1, static_cast<int>(Colonna::Descrizione));
    if (indice.row() == currentIndex().row()) return;
    const QScopedValueRollback nonOperatore(mGestoOperatore, false);
    selectionModel()->setCurrentIndex(indice, QItemSelectionModel::NoUpdate);
}

void GrigliaVendita::currentChanged(const QModelIndex& nuovo, const QModelIndex& vecchio) {
    QTableView::currentChanged(nuovo, vecchio);
    if (mGestoOperatore && nuovo.isValid() && nuovo.row() != vecchio.row())
        emit rigaCambiata(nuovo.row() + 1);
}

void GrigliaVendita::mousePressEvent(QMouseEvent* evento) {
    const QScopedValueRollback gesto(mGestoOperatore, true);
    QTableView::mousePressEvent(evento);
}

void GrigliaVendita::keyPressEvent(QKeyEvent* evento) {
    const QScopedValueRollback gesto(mGestoOperatore, true);
    QTableView::keyPressEvent(evento);
}

void GrigliaVendita::focusInEvent(QFocusEvent* evento) {
    // A table that gets the focus takes its first row as current: that is no choice of the operator.
    QTableView::focusInEvent(evento);
    seguiModello();
}

void GrigliaVendita::paintEvent(QPaintEvent* evento) {
    QTableView::paintEvent(evento);
    if (mRighe.ultima() > 0) return;
    QPainter pittore(viewport());
    QFont grande = font();
    grande.setPointSize(grande.pointSize() + 4);
    pittore.setFont(grande);
    pittore.setPen(QColor::fromRgb(tinte::testoTenue));
    pittore.drawText(viewport()->rect(), Qt::AlignCenter, invito);
}
