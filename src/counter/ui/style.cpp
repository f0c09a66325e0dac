#include "counter/ui/style.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleOption>

#include "core/numbers.h"
#include "data/client_settings.h"
#include "data/settings_store.h"

namespace {

constexpr int puntiBase = 12;

constexpr int latoSpunta = 24;

// A colour of the look: its name in the sheet, where it is kept, and what it is in each scheme.
struct Tinta {
    const char* nome;
    QRgb* valore;
    QRgb chiara;
    QRgb scura;
};

const Tinta tavolozza[] = {
    {"@sfondo", &tinte::sfondo, 0xFFE6ECF2, 0xFF11181F},
    {"@pannello", &tinte::pannello, 0xFFFFFFFF, 0xFF1B252F},
    {"@alternata", &tinte::alternata, 0xFFF1F5F9, 0xFF222E3A},
    {"@bordoTenue", &tinte::bordoTenue, 0xFFCBD5DF, 0xFF33424F},
    {"@bordo", &tinte::bordo, 0xFF93A4B5, 0xFF5E7286},
    {"@testoTenue", &tinte::testoTenue, 0xFF44576A, 0xFFA9B8C6},
    {"@testo", &tinte::testo, 0xFF10202E, 0xFFE8EEF4},
    {"@accentoScuro", &tinte::accentoScuro, 0xFF083F78, 0xFF83BDF5},
    {"@accento", &tinte::accento, 0xFF0B5CAD, 0xFF2F7FD1},
    {"@barra", &tinte::barra, 0xFF16293B, 0xFF0A0F14},
    {"@displayTenue", &tinte::displayTenue, 0xFFB7C7D6, 0xFF9DB0C2},
    {"@display", &tinte::display, 0xFF0D1C2B, 0xFF05090D},
    {"@confermaPremuta", &tinte::confermaPremuta, 0xFF0C4F28, 0xFF0F5A2F},
    {"@conferma", &tinte::conferma, 0xFF13713A, 0xFF17803F},
    {"@pericolo", &tinte::pericolo, 0xFFB3261E, 0xFFDB5048},
    {"@avviso", &tinte::avviso, 0xFFFFC857, 0xFFFFC857},
    {"@selezione", &tinte::selezione, 0xFFC0C0FF, 0xFF34437A},
    {"@reso", &tinte::reso, 0xFFFF0000, 0xFFFF8A80},
    {"@cambiato", &tinte::cambiato, 0xFF8A4B00, 0xFFFFB454},
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
QLabel[ruolo="didascalia"] { color: @testoTenue; font-size: @punti10; }
QLabel[ruolo="titolo"] { color: @testoTenue; font-size: @punti10; font-weight: bold; }
QLabel[ruolo="valore"] { color: @testo; font-weight: bold; }
QFrame QLabel[ruolo="allarme"] { background: @pericolo; color: @bianco; font-weight: bold;
    border-radius: 6px; padding: 2px 8px; }
QFrame QLabel[ruolo="avviso"] { background: @avviso; color: @inchiostro; font-weight: bold;
    border-radius: 6px; padding: 2px 8px; }
QFrame QLabel[ruolo="salvata"] { background: @conferma; color: @bianco; font-weight: bold;
    border-radius: 6px; padding: 2px 8px; }
QFrame QLabel[ruolo="chiusa"] { background: @bianco; color: @inchiostro; font-weight: bold;
    border-radius: 6px; padding: 2px 8px; }
QFrame QLabel[ruolo="sospesa"] { background: @accento; color: @bianco; font-weight: bold;
    border-radius: 6px; padding: 2px 8px; }
QFrame[ruolo="lampada"] { border: 2px solid @bianco; border-radius: 9px; }
QToolTip { background: @testo; color: @bianco; border: none; padding: 4px; }
)";

constexpr char pulsanti[] = R"(
QPushButton { background: @pannello; color: @testo; border: 1px solid @bordo; border-radius: 6px;
    padding: 2px 6px; font-weight: bold; font-size: @punti11; }
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
QPushButton[ruolo="cifra"] { font-size: 18pt; }
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
    font-size: @punti11; }
QScrollBar:vertical { width: 28px; background: @sfondo; }
QScrollBar::handle:vertical { background: @bordo; border-radius: 6px; min-height: 48px; margin: 3px; }
QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }
)";

// The larger type grows as far as the screen has room for it.
double ingrandimento(Aspetto aspetto) {
    const int larghezza = aspetto.larghezzaSchermo > 0
                              ? aspetto.larghezzaSchermo
                              : QGuiApplication::primaryScreen()->availableSize().width();
    return larghezza < 1500 ? 1.08 : larghezza < 1900 ? 1.2 : 1.35;
}

int punti(int base, Aspetto aspetto) {
    return aspetto.carattereGrande ? qRound(base * ingrandimento(aspetto)) : base;
}

QString foglioDiStile(Aspetto aspetto) {
    QString foglio = QString(pannelli) + pulsanti + elenchi;
    for (const int base : {10, 11}) {
        foglio.replace("@punti" + QString::number(base), QString::number(punti(base, aspetto)) + "pt");
    }
    foglio.replace("@bianco", QColor(tinte::bianco).name());
    foglio.replace("@inchiostro", QColor(tinte::inchiostro).name());
    for (const Tinta& tinta : tavolozza) {
        foglio.replace(tinta.nome, QColor(*tinta.valore).name());
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

Aspetto aspettoImpostato() {
    const auto leggi = [](const char* chiave) {
        return impostazioni().leggi(applicazioneClient, "Client", chiave, {});
    };
    return {.scuro = leggi("Tema") == "scuro", .carattereGrande = Val(leggi("CarattereGrande")) != 0.0};
}

int aMisura(int pixel) {
    const int punti = QApplication::font().pointSize();
    // One point more still fits in what is right for the normal type.
    return punti <= puntiBase + 1 ? pixel : pixel * punti / puntiBase;
}

void applicaStile(QApplication& applicazione, Aspetto aspetto) {
    for (const Tinta& tinta : tavolozza) {
        *tinta.valore = aspetto.scuro ? tinta.scura : tinta.chiara;
    }
    applicazione.setStyle(new StileTocco);
    applicazione.setPalette(coloriDiBase());
    QFont carattere("DejaVu Sans", punti(puntiBase, aspetto));
    carattere.setStyleHint(QFont::SansSerif);
    applicazione.setFont(carattere);
    applicazione.setStyleSheet(foglioDiStile(aspetto));
}
