#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>

#include "counter/ui/command_button.h"
#include "counter/ui/style.h"
#include "counter_screen.h"
#include "kit/ui/labels.h"
#include "sale/document_info.h"
#include "sale/row_editor.h"

namespace {

constexpr int margineCasella = 12;  // frame, text margin and caret

QString descritto(const QWidget& w) {
    const QString testo = w.property("text").toString();
    return QString("%1 '%2' %3x%4, wants %5")
        .arg(w.objectName(), testo)
        .arg(w.width())
        .arg(w.height())
        .arg(w.sizeHint().width());
}

// Whether the whole of what the widget says is in sight.
bool ciSta(const QWidget& w) {
    if (auto* pulsante = qobject_cast<const PulsanteComando*>(&w)) {
        return w.width() >= w.minimumSizeHint().width() && pulsante->heightForWidth(w.width()) <= w.height();
    }
    if (auto* casella = qobject_cast<const QLineEdit*>(&w)) {
        return w.fontMetrics().horizontalAdvance(casella->text()) + margineCasella <= w.width();
    }
    if (auto* elisa = qobject_cast<const EtichettaElisa*>(&w)) {
        return elisa->text().isEmpty() ||
               (w.fontMetrics().horizontalAdvance(elisa->text()) <= w.contentsRect().width() &&
                w.fontMetrics().height() <= w.height());
    }
    return w.minimumSizeHint().width() <= w.width() && w.minimumSizeHint().height() <= w.height();
}

bool parla(const QWidget* w) {
    return qobject_cast<const QLabel*>(w) || qobject_cast<const QAbstractButton*>(w) ||
           qobject_cast<const QLineEdit*>(w);
}

struct Scrivania {
    QSize misura;
    bool carattereGrande = false;
};

std::string nomeDi(const Scrivania& s) {
    return std::to_string(s.misura.width()) + "x" + std::to_string(s.misura.height()) +
           (s.carattereGrande ? "_large" : "");
}

class Layout : public CounterScreen, public testing::WithParamInterface<Scrivania> {
  protected:
    Layout() {
        applicaStile(*qApp, {.carattereGrande = GetParam().carattereGrande,
                             .larghezzaSchermo = GetParam().misura.width()});
        apri(GetParam().misura);
        riempi();
        QApplication::processEvents();
    }

    std::vector<QWidget*> inVista() const {
        std::vector<QWidget*> visti;
        for (QWidget* w : schermo().findChildren<QWidget*>()) {
            if (w->isVisible() && parla(w)) visti.push_back(w);
        }
        return visti;
    }
    void nienteTagliato() const {
        QApplication::processEvents();
        for (const QWidget* w : inVista()) {
            EXPECT_TRUE(ciSta(*w)) << qPrintable(descritto(*w));
        }
    }
    void salvaImmagine(const QString& nome) const {
        QDir().mkpath("schermate");
        EXPECT_TRUE(finestra->grab().save("schermate/" + nome + "_" +
                                          QString::fromStdString(nomeDi(GetParam())) + ".png"));
    }
};

// A screen less the window's title and a task bar.
INSTANTIATE_TEST_SUITE_P(Screens, Layout,
                         testing::Values(Scrivania{{1280, 760}}, Scrivania{{1280, 800}},
                                         Scrivania{{1366, 740}}, Scrivania{{1920, 1040}},
                                         Scrivania{{2560, 1400}}, Scrivania{{3840, 2120}},
                                         Scrivania{{1280, 760}, true}, Scrivania{{1366, 740}, true},
                                         Scrivania{{1600, 860}, true}, Scrivania{{1920, 1040}, true},
                                         Scrivania{{2560, 1400}, true}, Scrivania{{3840, 2120}, true}),
                         [](const auto& info) { return nomeDi(info.param); });

TEST_P(Layout, TheScreenFits) {
    EXPECT_LE(finestra->minimumSizeHint().width(), GetParam().misura.width());
    EXPECT_LE(finestra->minimumSizeHint().height(), GetParam().misura.height());
    salvaImmagine("vendita");
}

TEST_P(Layout, TheScreenFitsWithTheVatFields) {
    setViewMode(vendita(), true);
    QApplication::processEvents();
    EXPECT_LE(finestra->minimumSizeHint().height(), GetParam().misura.height());
    salvaImmagine("iva");
}

TEST_P(Layout, NothingIsCut) {
    setViewMode(vendita(), true);
    nienteTagliato();
}

TEST_P(Layout, NothingIsCutOnASuspendedSaleThatHasChanged) {
    Vendita& v = vendita();
    v.lblDataStampa.testo({});
    v.pctSospesa.visibile(true);
    setVenditaModificata(v);
    v.lblRegCassa.testo("REG. CASSA (stampa, 12 in attesa)");
    nienteTagliato();
    EXPECT_LE(finestra->minimumSizeHint().width(), GetParam().misura.width());
    salvaImmagine("sospesa");
}

TEST_P(Layout, NothingIsCutOnAClosedSale) {
    Vendita& v = vendita();
    v.pctPrint.testo("Stampata il");
    v.pctChiusa.visibile(true);
    v.pctSave.visibile(false);
    v.lblRegCassa.testo("REG. CASSA (scollegato)");
    nienteTagliato();
    salvaImmagine("chiusa");
}

TEST_P(Layout, NothingOverlaps) {
    const std::vector<QWidget*> visti = inVista();
    for (size_t i = 0; i < visti.size(); ++i) {
        for (size_t j = i + 1; j < visti.size(); ++j) {
            if (visti[i]->parentWidget() != visti[j]->parentWidget()) continue;
            EXPECT_FALSE(visti[i]->geometry().intersects(visti[j]->geometry()))
                << qPrintable(descritto(*visti[i]) + " / " + descritto(*visti[j]));
        }
    }
}

TEST_P(Layout, NothingLeavesItsPanel) {
    for (const QWidget* w : inVista()) {
        EXPECT_TRUE(w->parentWidget()->rect().contains(w->geometry())) << qPrintable(descritto(*w));
    }
}

TEST_P(Layout, WhatIsTouchedIsLargeEnoughForAFinger) {
    for (const QWidget* w : inVista()) {
        if (qobject_cast<const QLabel*>(w)) continue;
        EXPECT_GE(w->height(), 44) << qPrintable(descritto(*w));
        EXPECT_GE(w->width(), 44) << qPrintable(descritto(*w));
    }
}

TEST_P(Layout, TheTotalIsReadFromTwoMetres) {
    const auto& totale = widget<EtichettaAdattata>(vendita().lblMainDisplay);
    EXPECT_GE(totale.punti(), 48);
}

}  // namespace
