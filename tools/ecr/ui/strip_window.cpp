#include "ecr/ui/strip_window.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>

#include "ecr/simulator.h"
#include "kit/ui/touch_widgets.h"

namespace {

// Lines of paper that are kept.
constexpr int righeMassime = 2000;
constexpr int colonneStriscia = 42;
constexpr int altezzaIniziale = 300;
constexpr int margine = 12;
constexpr int spazio = 6;

QPlainTextEdit* carta(QWidget* genitore) {
    auto* testo = new QPlainTextEdit(genitore);
    testo->setObjectName("txtStriscia");
    testo->setAccessibleName("Striscia di carta");
    testo->setReadOnly(true);
    testo->setMaximumBlockCount(righeMassime);
    testo->setLineWrapMode(QPlainTextEdit::NoWrap);
    testo->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    testo->setStyleSheet("background: #fffdf4; color: #202020;");
    testo->setMinimumWidth(testo->fontMetrics().horizontalAdvance(u'0') * colonneStriscia + 40);
    return testo;
}

QComboBox* sceltaGuasto(QWidget* genitore) {
    auto* scelta = new QComboBox(genitore);
    scelta->setObjectName("cmbGuasto");
    scelta->setAccessibleName("Guasto");
    scelta->setMinimumHeight(altezzaTocco);
    scelta->setMinimumContentsLength(12);
    scelta->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const VoceGuasto& voce : guasti()) {
        scelta->addItem(voce.descrizione, static_cast<int>(voce.guasto));
    }
    return scelta;
}

}  // namespace

FinestraStriscia::FinestraStriscia(Simulatore& simulatore)
    : mSimulatore(simulatore),
      lblStato(etichetta({}, "lblStato", this)),
      txtStriscia(carta(this)),
      cmbGuasto(sceltaGuasto(this)),
      chkUnaVolta(new QCheckBox("Una volta", this)),
      lblComando(etichetta({}, "lblComando", this)) {
    setObjectName("FinestraStriscia");
    setWindowTitle("Registratore simulato");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    // The till's scans must not end here: the mouse is enough for this window.
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    chkUnaVolta->setObjectName("chkUnaVolta");
    chkUnaVolta->setMinimumHeight(altezzaTocco);
    chkUnaVolta->setToolTip("Solo al prossimo comando");
    componi();
    mettiALato();
    collega();
    mostraGuasto();
    mostraStato();
}

// A short receipt is seen whole.
void FinestraStriscia::componi() {
    auto* guasto = new QHBoxLayout;
    guasto->addWidget(cmbGuasto, 1);
    guasto->addWidget(chkUnaVolta);
    auto* tutto = new QVBoxLayout(this);
    tutto->setContentsMargins(spazio, spazio, spazio, spazio);
    tutto->setSpacing(spazio);
    tutto->addWidget(lblStato);
    tutto->addWidget(txtStriscia, 1);
    tutto->addWidget(lblComando);
    tutto->addLayout(guasto);
}

// At the right, between the total and the keys of the till.
void FinestraStriscia::mettiALato() {
    const QRect schermo = screen()->availableGeometry();
    resize(sizeHint().width(), altezzaIniziale);
    move(schermo.right() - width() - margine, schermo.top() + schermo.height() * 41 / 100);
}

void FinestraStriscia::collega() {
    connect(&mSimulatore, &Simulatore::stampato, this, &FinestraStriscia::stampa);
    connect(&mSimulatore, &Simulatore::guastoCambiato, this, &FinestraStriscia::mostraGuasto);
    connect(&mSimulatore, &Simulatore::comando, this,
            [this](const QString& testo) { lblComando->setText(testo.left(colonneStriscia)); });
    connect(&mSimulatore, &Simulatore::collegato, this, [this](bool si) {
        mCollegata = si;
        mostraStato();
    });
    connect(cmbGuasto, &QComboBox::activated, this, &FinestraStriscia::scegliGuasto);
    connect(chkUnaVolta, &QCheckBox::clicked, this, &FinestraStriscia::scegliGuasto);
}

void FinestraStriscia::avviso(const QString& testo) {
    mAvviso = testo;
    mostraStato();
}

void FinestraStriscia::mostraStato() {
    QStringList righe{mCollegata ? "Collegato con la cassa" : "In attesa della cassa"};
    if (!mAvviso.isEmpty()) righe << mAvviso;
    lblStato->setText(righe.join(u'\n'));
}

void FinestraStriscia::stampa(const Scontrino& scontrino) {
    txtStriscia->appendPlainText(striscia(scontrino).join(u'\n') + "\n\n");
    if (isMinimized()) showNormal();
}

void FinestraStriscia::scegliGuasto() {
    mSimulatore.guasto(static_cast<Guasto>(cmbGuasto->currentData().toInt()), chkUnaVolta->isChecked());
}

void FinestraStriscia::mostraGuasto() {
    cmbGuasto->setCurrentIndex(cmbGuasto->findData(static_cast<int>(mSimulatore.guastoInForza())));
}
