#include "kit/ui/search_grid.h"

#include <algorithm>
#include <numeric>

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "kit/search.h"
#include "kit/ui/touch_widgets.h"

namespace {

constexpr int margineCella = 6;
constexpr int altezzaTitoli = 44;
constexpr int altezzaSegnaColonna = 4;
// The margin before the first column, where a mark is shown.
constexpr int twipMargine = 410;
// Below this a column is not squeezed, and the grid scrolls to the side.
constexpr double pixelPerTwipMinimi = 1.0 / 15.0;
// Where the caller names no columns: a code and what it means.
constexpr int twipPredefiniti[] = {1800, 6200};

constexpr QRgb fondoSelezione = 0xFFC0C0FF;
constexpr QRgb fondoInAttesa = 0xFFE6E6FF;  // of the current row while the focus is in the text
constexpr QRgb testoCorrente = 0xFFFF0000;  // of the current row where rows can be marked
constexpr QRgb fondoAlterno = 0xFFF1F5F9;
constexpr QRgb fondoTitolo = 0xFF16293B;
constexpr QRgb segnaColonna = 0xFFFFC857;

Qt::Alignment allineamento(const ColonnaElenco& colonna) {
    if (colonna.allineata == u'>') return Qt::AlignRight | Qt::AlignVCenter;
    return (colonna.allineata == u'^' ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

void scrivi(QPainter& pittore, const QRect& spazio, Qt::Alignment allineamento, const QString& testo) {
    const QRect dentro = spazio.adjusted(margineCella, 0, -margineCella, 0);
    const QString breve = pittore.fontMetrics().elidedText(testo, Qt::ElideRight, dentro.width());
    pittore.drawText(dentro, static_cast<int>(allineamento) | Qt::TextSingleLine, breve);
}

class PittoreRighe final : public QStyledItemDelegate {
  public:
    PittoreRighe(const Ricerca& ricerca, QObject* padre) : QStyledItemDelegate(padre), mRicerca(ricerca) {}

    void paint(QPainter* pittore, const QStyleOptionViewItem& opzioni,
               const QModelIndex& indice) const override {
        const int riga = indice.row() + 1;
        if (riga > mRicerca.righe()) return;
        const bool corrente = riga == mRicerca.rigaCorrente();
        const bool segnata = mRicerca.segnata(riga);
        const bool conFuoco = opzioni.widget != nullptr && opzioni.widget->hasFocus();
        pittore->save();
        QFont carattere = opzioni.font;
        carattere.setBold(corrente && conFuoco);
        pittore->setFont(carattere);
        pittore->fillRect(opzioni.rect, fondo(riga, corrente, conFuoco));
        const bool rossa = mRicerca.multi() && corrente;
        pittore->setPen(rossa ? QColor(testoCorrente) : opzioni.palette.color(QPalette::Text));
        if (indice.column() >= Ricerca::primaColonna) {
            scrivi(*pittore, opzioni.rect, allineamento(mRicerca.colonna(indice.column())),
                   mRicerca.cella(riga, indice.column()));
        } else if (mRicerca.multi()) {
            scrivi(*pittore, opzioni.rect, Qt::AlignCenter, segnata ? "✓" : "");
        } else if (corrente) {
            scrivi(*pittore, opzioni.rect, Qt::AlignCenter, "▸");
        }
        pittore->restore();
    }

  private:
    QColor fondo(int riga, bool corrente, bool conFuoco) const {
        if (mRicerca.segnata(riga)) return fondoSelezione;
        if (corrente && !mRicerca.multi()) return conFuoco ? fondoSelezione : fondoInAttesa;
        return riga % 2 == 0 && !corrente ? QColor(fondoAlterno) : QColor(Qt::white);
    }

    const Ricerca& mRicerca;
};

// The titles; the column that typed text narrows stands out by colour, weight and a bar below.
class Titoli final : public QHeaderView {
  public:
    Titoli(const Ricerca& ricerca, QWidget* padre) : QHeaderView(Qt::Horizontal, padre), mRicerca(ricerca) {
        setSectionsClickable(true);
        setHighlightSections(false);
        setMinimumSectionSize(0);
        setFixedHeight(altezzaTitoli);
        setFocusPolicy(Qt::NoFocus);
    }

  protected:
    void paintSection(QPainter* pittore, const QRect& spazio, int sezione) const override {
        const bool scelta = sezione == mRicerca.colonnaRicerca();
        pittore->save();
        pittore->fillRect(spazio, scelta ? palette().color(QPalette::Highlight) : QColor(fondoTitolo));
        if (sezione >= Ricerca::primaColonna) {
            const ColonnaElenco& colonna = mRicerca.colonna(sezione);
            QFont carattere = font();
            carattere.setBold(scelta);
            pittore->setFont(carattere);
            pittore->setPen(Qt::white);
            scrivi(*pittore, spazio, allineamento(colonna), colonna.titolo);
        }
        if (scelta) {
            pittore->fillRect(spazio.adjusted(0, spazio.height() - altezzaSegnaColonna, 0, 0),
                              QColor(segnaColonna));
        }
        pittore->restore();
    }

  private:
    const Ricerca& mRicerca;
};

}  // namespace

class GrigliaRicerca::Modello final : public QAbstractTableModel {
  public:
    Modello(const Ricerca& ricerca, QObject* padre) : QAbstractTableModel(padre), mRicerca(ricerca) {}

    int rowCount(const QModelIndex& padre = {}) const override {
        return padre.isValid() ? 0 : mRicerca.righe();
    }
    int columnCount(const QModelIndex& padre = {}) const override {
        return padre.isValid() ? 0 : mRicerca.colonne();
    }
    QVariant data(const QModelIndex& indice, int ruolo) const override {
        if (ruolo != Qt::DisplayRole && ruolo != Qt::ToolTipRole) return {};
        return mRicerca.cella(indice.row() + 1, indice.column());
    }
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override {
        if (verso != Qt::Horizontal || sezione < Ricerca::primaColonna) return {};
        if (ruolo == Qt::DisplayRole) return mRicerca.colonna(sezione).titolo;
        if (ruolo == Qt::ToolTipRole && mRicerca.cercabile(sezione))
            return "Cerca in questa colonna (Ctrl+" + QString::number(sezione - 1) + ")";
        return {};
    }
    void nuovaPagina() {
        beginResetModel();
        endResetModel();
    }

  private:
    const Ricerca& mRicerca;
};

GrigliaRicerca::GrigliaRicerca(Ricerca& ricerca, QWidget* padre)
    : QTableView(padre), mRicerca(ricerca), mModello(new Modello(ricerca, this)) {
    setObjectName("flxRicerca");
    setAccessibleName("Elementi trovati");
    setHorizontalHeader(new Titoli(ricerca, this));
    setModel(mModello);
    setItemDelegate(new PittoreRighe(ricerca, this));
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(altezzaTocco);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(this, &QTableView::clicked, this,
            [this](const QModelIndex& i) { emit rigaPremuta(i.row() + 1); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& i) { emit doppioClic(i.row() + 1); });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &GrigliaRicerca::colonnaPremuta);
}

void GrigliaRicerca::nuovaPagina() {
    mModello->nuovaPagina();
    disponiColonne();
    aggiorna();
}

void GrigliaRicerca::aggiorna() {
    // The current index is what a screen reader speaks.
    const QModelIndex corrente = mModello->index(mRicerca.rigaCorrente() - 1, Ricerca::primaColonna);
    setCurrentIndex(corrente);
    if (corrente.isValid()) scrollTo(corrente);
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

void GrigliaRicerca::scorri(bool aDestra) {
    QScrollBar* barra = horizontalScrollBar();
    barra->triggerAction(aDestra ? QScrollBar::SliderSingleStepAdd : QScrollBar::SliderSingleStepSub);
}

void GrigliaRicerca::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    disponiColonne();
}

// The columns share the width in the proportions that were asked for.
void GrigliaRicerca::disponiColonne() {
    std::vector<int> twip{twipMargine, 0};
    for (int c = Ricerca::primaColonna; c < mRicerca.colonne(); ++c) {
        twip.push_back(mRicerca.larghezzeProprie() ? twipPredefiniti[c - Ricerca::primaColonna]
                                                   : mRicerca.colonna(c).larghezza);
    }
    const int totale = std::accumulate(twip.begin(), twip.end(), 0);
    const double scala = std::max(pixelPerTwipMinimi, static_cast<double>(viewport()->width()) / totale);
    for (size_t c = 0; c < twip.size(); ++c) {
        setColumnHidden(static_cast<int>(c), twip[c] == 0);
        setColumnWidth(static_cast<int>(c), static_cast<int>(twip[c] * scala));
    }
}
