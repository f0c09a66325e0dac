#include "counter/ui/style.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace {

constexpr int puntiBase = 12;
constexpr int latoSpunta = 24;

// Named colours stand in the sheet as "@name".
const std::pair<const char*, QRgb> nomiTinte[] = {
    {"@sfondo", tinte::sfondo},
    {"@pannello", tinte::pannello},
    {"@alternata", tinte::alternata},
    {"@bordoTenue", tinte::bordoTenue},
    {"@bordo", tinte::bordo},
    {"@testoTenue", tinte::testoTenue},
    {"@testo", tinte::testo},
    {"@accentoScuro", tinte::accentoScuro},
    {"@accento", tinte::accento},
    {"@barra", tinte::barra},
    {"@displayTenue", tinte::displayTenue},
    {"@display", tinte::display},
    {"@bianco", tinte::bianco},
    {"@confermaPremuta", tinte::confermaPremuta},
    {"@conferma", tinte::conferma},
    {"@pericolo", tinte::pericolo},
    {"@avviso", tinte::avviso},
};

constexpr char pannelli[] = R"(
QFrame[ruolo="pannello"] { background: @pannello; border: 1px solid @bordoTenue; border-radius: 8px; }
QFrame[ruolo="barra"] { background: @barra; border-radius: 8px; }
QFrame[ruolo="barra"] QLabel { color: @bianco; }
QFrame[ruolo="display"] { background: @display; border-radius: 8px; }
QFrame[ruolo="display"] QLabel { color: @bianco; }
QFrame[ruolo="display"] QLabel[ruolo="didascalia"] { color: @displayTenue; }
QFrame[ruolo="display"] CampoEdit { background: transparent; border: none; }
QCheckBox { color: @bianco; }
QLabel[ruolo="didascalia"] { color: @testoTenue; font-size: 10pt; }
QLabel[ruolo="titolo"] { color: @testoTenue; font-size: 10pt; font-weight: bold; }
QLabel[ruolo="valore"] { color: @testo; font-weight: bold; }
QFrame QLabel[ruolo="allarme"] { background: @pericolo; color: @bianco; font-weight: bold;
    border-radius: 6px; padding: 2px 8px; }
QFrame QLabel[ruolo="avviso"] { background: @avviso; color: @testo; font-weight: bold;
    border-radius: 6px; padding: 2px 8px; }
QFrame[ruolo="lampada"] { border: 2px solid @bianco; border-radius: 9px; }
QToolTip { background: @testo; color: @bianco; border: none; padding: 4px; }
)";

constexpr char pulsanti[] = R"(
QPushButton { background: @pannello; color: @testo; border: 1px solid @bordo; border-radius: 6px;
    padding: 2px 6px; font-weight: bold; font-size: 11pt; }
QPushButton:hover { border-color: @accento; }
QPushButton:focus { border: 3px solid @accento; }
QPushButton:default { border: 2px solid @accento; }
QPushButton:pressed { background: @accento; color: @bianco; }
QPushButton:disabled { background: @sfondo; color: @testoTenue; border-color: @bordoTenue; }
QPushButton[presto="true"], QPushButton[presto="true"]:pressed { background: @alternata; color: @testoTenue; border: 1px dashed @bordo; }
QPushButton[ruolo="principale"] { background: @conferma; color: @bianco; border-color: @confermaPremuta;
    font-size: 14pt; }
QPushButton[ruolo="principale"]:pressed { background: @confermaPremuta; }
QPushButton[ruolo="principale"]:disabled { background: @sfondo; color: @testoTenue; border-color: @bordo; }
QPushButton[ruolo="distruttivo"] { color: @pericolo; border-color: @pericolo; }
QPushButton[ruolo="distruttivo"]:pressed { background: @pericolo; color: @bianco; }
QPushButton[ruolo="distruttivo"]:disabled { color: @testoTenue; border-color: @bordoTenue; }
QPushButton[ruolo="distruttivo"][presto="true"] { color: @testoTenue; border-color: @bordo; }
)";

constexpr char elenchi[] = R"(
CampoEdit { background: transparent; border: none; }
QCheckBox { color: @testo; spacing: 8px; border: 3px solid transparent; border-radius: 6px; padding: 0 2px; }
QCheckBox#chkPagato { color: @bianco; }
QCheckBox#chkPagato:disabled { color: @displayTenue; }
QCheckBox#chkPagato:focus { border-color: @avviso; }
QCheckBox:focus { border-color: @accento; }
QCheckBox:disabled, QCheckBox[presto="true"] { color: @testoTenue; }
QTableView { background: @pannello; border: 3px solid @bordoTenue; }
QTableView:focus { border: 3px solid @accento; }
QTreeView { background: @pannello; alternate-background-color: @alternata; border: 3px solid @bordoTenue; }
QTreeView:focus { border: 3px solid @accento; }
QTreeView::item:selected { background: @accento; color: @bianco; }
QHeaderView::section { background: @barra; color: @bianco; border: none; padding: 4px 6px; font-weight: bold;
    font-size: 11pt; }
QScrollBar:vertical { width: 28px; background: @sfondo; }
QScrollBar::handle:vertical { background: @bordo; border-radius: 6px; min-height: 48px; margin: 3px; }
QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }
)";

QString foglioDiStile() {
    QString foglio = QString(pannelli) + pulsanti + elenchi;
    for (const auto& [nome, tinta] : nomiTinte) {
        foglio.replace(nome, QColor(tinta).name());
    }
    return foglio;
}

// Ticks that a finger hits.
class StileTocco final : public QProxyStyle {
  public:
    StileTocco() : QProxyStyle("Fusion") {}
    int pixelMetric(PixelMetric misura, const QStyleOption* opzioni, const QWidget* widget) const override {
        if (misura == PM_IndicatorWidth || misura == PM_IndicatorHeight) return latoSpunta;
        return QProxyStyle::pixelMetric(misura, opzioni, widget);
    }
    void drawPrimitive(PrimitiveElement elemento, const QStyleOption* opzioni, QPainter* pittore,
                       const QWidget* widget) const override {
        if (elemento == PE_IndicatorCheckBox) {
            dipingiSpunta(*opzioni, *pittore);
        } else {
            QProxyStyle::drawPrimitive(elemento, opzioni, pittore, widget);
        }
    }

  private:
    // A tick stands out by its sign, and by a filled box when it can be changed.
    static void dipingiSpunta(const QStyleOption& opzioni, QPainter& pittore) {
        const bool messa = opzioni.state & State_On;
        const bool abilitata = opzioni.state & State_Enabled;
        const QRectF lato = QRectF(opzioni.rect).adjusted(1, 1, -1, -1);
        pittore.save();
        pittore.setRenderHint(QPainter::Antialiasing);
        pittore.setPen(QPen(QColor(abilitata && messa ? tinte::accento : tinte::bordo), 2));
        pittore.setBrush(QColor(!abilitata ? tinte::sfondo : messa ? tinte::accento : tinte::pannello));
        pittore.drawRoundedRect(lato, 4, 4);
        if (messa) {
            pittore.setPen(
                QPen(QColor(abilitata ? tinte::bianco : tinte::testoTenue), 3, Qt::SolidLine, Qt::RoundCap));
            const auto punto = [&](double x, double y) {
                return QPointF(lato.left() + x * lato.width(), lato.top() + y * lato.height());
            };
            pittore.drawPolyline(QPolygonF{punto(0.22, 0.52), punto(0.42, 0.74), punto(0.78, 0.28)});
        }
        pittore.restore();
    }
};

QPalette coloriDiBase() {
    QPalette colori;
    colori.setColor(QPalette::Window, QColor(tinte::sfondo));
    colori.setColor(QPalette::Base, QColor(tinte::pannello));
    colori.setColor(QPalette::AlternateBase, QColor(tinte::alternata));
    colori.setColor(QPalette::Button, QColor(tinte::pannello));
    colori.setColor(QPalette::Mid, QColor(tinte::bordo));
    colori.setColor(QPalette::Highlight, QColor(tinte::accento));
    colori.setColor(QPalette::HighlightedText, QColor(tinte::bianco));
    for (const auto ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colori.setColor(ruolo, QColor(tinte::testo));
        colori.setColor(QPalette::Disabled, ruolo, QColor(tinte::testoTenue));
    }
    colori.setColor(QPalette::PlaceholderText, QColor(tinte::testoTenue));
    return colori;
}

}  // namespace

void applicaStile(QApplication& applicazione) {
    applicazione.setStyle(new StileTocco);
    applicazione.setPalette(coloriDiBase());
    QFont carattere("DejaVu Sans", puntiBase);
    carattere.setStyleHint(QFont::SansSerif);
    applicazione.setFont(carattere);
    applicazione.setStyleSheet(foglioDiStile());
}
