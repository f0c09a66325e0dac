#include "counter/ui/grid_painter.h"

#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

#include "core/numbers.h"
#include "core/value_helpers.h"
#include "counter/ui/style.h"
#include "kit/ui/fitting_font.h"
#include "sale/flxvb.h"

namespace {

constexpr int rossoReso = 0xFF0000;
constexpr int larghezzaSegno = 6;
constexpr qreal scalaUnaRiga = 0.85;
constexpr qreal scalaDueRighe = 0.75;
constexpr qreal scalaMinima = 0.5;
constexpr int larghezzaLucchetto = 10;
constexpr int rientro = 18;  // of a component under its head

bool vero(const QModelIndex& indice, FlexVB::Ruolo ruolo) {
    return indice.data(ruolo).toBool();
}

bool e(const QModelIndex& indice, Colonna colonna) {
    return indice.column() == static_cast<int>(colonna);
}

bool cifra(const QModelIndex& indice) {
    return e(indice, Colonna::Iva) || e(indice, Colonna::Quantita) || e(indice, Colonna::Importo);
}

bool prezzoZero(const QModelIndex& indice) {
    return e(indice, Colonna::Importo) && vero(indice, FlexVB::RuoloPrezzoZero);
}

bool prezzoCambiato(const QModelIndex& indice) {
    return e(indice, Colonna::Importo) && vero(indice, FlexVB::RuoloPrezzoCambiato);
}

// "10,00+5,50+0,00" as "10+5,5": the discounts that there are, without zeros that say nothing.
QString scontiMostrati(const QString& testo) {
    QStringList mostrati;
    for (const QString& sconto : testo.split('+')) {
        const float valore = getValoreSingle(sconto);
        if (valore != 0.0F) mostrati << testoNumero(valore);
    }
    return mostrati.join('+');
}

QString testoMostrato(const QModelIndex& indice) {
    const QString testo = indice.data().toString();
    return e(indice, Colonna::ScontoTesto) ? scontiMostrati(testo) : testo;
}

QRgb fondo(const QModelIndex& indice) {
    if (prezzoZero(indice)) return tinte::pericolo;
    if (vero(indice, FlexVB::RuoloSelezionata) && indice.column() >= static_cast<int>(Colonna::Marca))
        return tinte::selezione;
    return indice.row() % 2 == 0 ? tinte::pannello : tinte::alternata;
}

QRgb inchiostro(const QModelIndex& indice) {
    if (prezzoZero(indice)) return tinte::bianco;
    const int colore = indice.data(FlexVB::RuoloColoreTesto).toInt();
    if (colore == rossoReso) return tinte::reso;
    if (colore >= 0) return QRgb(0xFF000000U | static_cast<unsigned>(colore));
    if (prezzoCambiato(indice)) return tinte::cambiato;
    return vero(indice, FlexVB::RuoloComponente) ? tinte::testoTenue : tinte::testo;
}

QFont carattere(const QFont& base, const QModelIndex& indice) {
    QFont font = base;
    font.setBold(indice.data(FlexVB::RuoloColoreTesto).toInt() >= 0 || e(indice, Colonna::Importo) ||
                 vero(indice, FlexVB::RuoloTestaDistinta));
    font.setItalic(prezzoCambiato(indice));
    return font;
}

// The fold mark of a kit: pointing down while its components are in sight.
void disegnaPiega(QPainter& pittore, const QRect& spazio, bool piegata) {
    const QPointF centro = QRectF(spazio).center();
    constexpr qreal m = 5;
    QPainterPath freccia(piegata ? centro + QPointF(-m / 2, -m) : centro + QPointF(-m, -m / 2));
    freccia.lineTo(piegata ? centro + QPointF(m, 0) : centro + QPointF(m, -m / 2));
    freccia.lineTo(piegata ? centro + QPointF(-m / 2, m) : centro + QPointF(0, m));
    freccia.closeSubpath();
    pittore.fillPath(freccia, QColor::fromRgb(tinte::accento));
}

// The elbow that ties a component to its head.
void disegnaGomito(QPainter& pittore, const QRect& spazio) {
    const int x = spazio.left() + rientro / 2;
    pittore.setPen(QColor::fromRgb(tinte::bordo));
    pittore.drawLine(x, spazio.top(), x, spazio.center().y());
    pittore.drawLine(x, spazio.center().y(), spazio.left() + rientro - 3, spazio.center().y());
}

void disegnaLucchetto(QPainter& pittore, const QRect& spazio) {
    const QRectF corpo(spazio.left() + margineCella, spazio.center().y() - 1, larghezzaLucchetto, 8);
    pittore.setPen(QPen(QColor::fromRgb(tinte::testoTenue), 1.6));
    pittore.drawArc(corpo.adjusted(2, -6, -2, -1), 0, 180 * 16);
    pittore.fillRect(corpo, QColor::fromRgb(tinte::testoTenue));
}

// The corner of a price that no longer follows the list.
void disegnaAngolo(QPainter& pittore, const QRect& spazio) {
    QPainterPath angolo(spazio.topRight());
    angolo.lineTo(spazio.topRight() - QPoint(9, 0));
    angolo.lineTo(spazio.topRight() + QPoint(0, 9));
    angolo.closeSubpath();
    pittore.fillPath(angolo, QColor::fromRgb(tinte::avviso));
}

// The marks of the cell; answers the room that is left for its text.
QRect disegnaSegni(QPainter& pittore, const QRect& cella, const QModelIndex& indice) {
    QRect spazio = cella;
    if (e(indice, Colonna::Icona)) {
        if (vero(indice, FlexVB::RuoloTestaDistinta))
            disegnaPiega(pittore, cella, vero(indice, FlexVB::RuoloPiegata));
        if (vero(indice, FlexVB::RuoloSelezionata))
            pittore.fillRect(QRect(cella.topLeft(), QSize(larghezzaSegno, cella.height())),
                             QColor::fromRgb(tinte::accento));
    }
    if (e(indice, Colonna::Descrizione) && vero(indice, FlexVB::RuoloComponente)) {
        disegnaGomito(pittore, cella);
        spazio.setLeft(cella.left() + rientro);
    }
    if (e(indice, Colonna::Importo)) {
        if (vero(indice, FlexVB::RuoloPrezzoBloccato)) {
            disegnaLucchetto(pittore, cella);
            spazio.setLeft(cella.left() + margineCella + larghezzaLucchetto);
        }
        if (vero(indice, FlexVB::RuoloPrezzoCambiato)) disegnaAngolo(pittore, cella);
    }
    return spazio.adjusted(margineCella, 0, -margineCella, 0);
}

QFont ingrandito(const QFont& carattere, qreal scala) {
    QFont nuovo = carattere;
    nuovo.setPointSizeF(carattere.pointSizeF() * scala);
    return nuovo;
}

void scrivi(QPainter& pittore, const QRect& spazio, const TestoInCella& testo, Qt::Alignment allineamento) {
    pittore.setFont(testo.carattere);
    const int altezza = QFontMetrics(testo.carattere).height();
    const auto quante = static_cast<int>(testo.righe.size());
    QRect riga(spazio.left(), spazio.center().y() - quante * altezza / 2, spazio.width(), altezza);
    for (const QString& mostrata : testo.righe) {
        pittore.drawText(riga, allineamento | Qt::AlignVCenter, mostrata);
        riga.translate(0, altezza);
    }
}

}  // namespace

TestoInCella testoInCella(const QString& testo, const QFont& carattere, int larghezza) {
    for (const qreal scala : {1.0, scalaUnaRiga}) {
        const QFont adatto = ingrandito(carattere, scala);
        if (QFontMetrics(adatto).horizontalAdvance(testo) <= larghezza) return {{testo}, adatto};
    }
    const QFont piccolo = ingrandito(carattere, scalaDueRighe);
    QTextLayout disposizione(testo, piccolo);
    QTextOption opzioni;
    opzioni.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    disposizione.setTextOption(opzioni);
    disposizione.beginLayout();
    QTextLine prima = disposizione.createLine();
    prima.setLineWidth(larghezza);
    disposizione.endLayout();
    const QString seconda =
        QFontMetrics(piccolo).elidedText(testo.mid(prima.textLength()), Qt::ElideRight, larghezza);
    if (seconda.isEmpty()) return {{testo}, piccolo};
    return {{testo.left(prima.textLength()), seconda}, piccolo};
}

TestoInCella cifraInCella(const QString& cifra, const QFont& carattere, int larghezza) {
    const QFont adatto = carattereAdatto(carattere, cifra, larghezza, carattere.pointSizeF() * scalaMinima);
    return {{QFontMetrics(adatto).elidedText(cifra, Qt::ElideLeft, larghezza)}, adatto};
}

void PittoreCelle::paint(QPainter* pittore, const QStyleOptionViewItem& opzioni,
                         const QModelIndex& indice) const {
    pittore->save();
    pittore->setRenderHint(QPainter::Antialiasing);
    pittore->fillRect(opzioni.rect, QColor::fromRgb(fondo(indice)));
    const QRect spazio = disegnaSegni(*pittore, opzioni.rect, indice);
    const QFont font = carattere(opzioni.font, indice);
    pittore->setPen(QColor::fromRgb(inchiostro(indice)));
    const QString testo = testoMostrato(indice);
    const bool destra = vero(indice, FlexVB::RuoloAllineaDestra);
    scrivi(*pittore, spazio, (cifra(indice) ? cifraInCella : testoInCella)(testo, font, spazio.width()),
           destra ? Qt::AlignRight : Qt::AlignLeft);
    pittore->restore();
}
