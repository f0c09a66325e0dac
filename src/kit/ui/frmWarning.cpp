#include "kit/ui/frmWarning.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>

#include "kit/ui/touch_widgets.h"

namespace {

// Texts of any length, that can be read and copied but not changed.
QPlainTextEdit* testoFisso(const QString& nome, const QString& titolo, int righe, QWidget* genitore) {
    auto* testo = new QPlainTextEdit(genitore);
    testo->setObjectName(nome);
    testo->setAccessibleName(titolo);
    testo->setReadOnly(true);
    testo->setTabChangesFocus(true);
    testo->setFixedHeight(testo->fontMetrics().lineSpacing() * righe + 16);
    return testo;
}

}  // namespace

frmWarning::frmWarning(QWidget* genitore)
    : QDialog(genitore),
      mCampi(new QFormLayout),
      lblNumero(etichetta({}, "lblNumero", this)),
      txtDescrizione(testoFisso("txtDescrizione", "Descrizione", 3, this)),
      txtModulo(testoFisso("txtModulo", "Modulo", 2, this)),
      lblOrigine(etichetta({}, "lblOrigine", this)),
      txtAvanzate(testoFisso("txtAvanzate", "Avanzate", 6, this)),
      cmdOk(pulsanteGrande("OK", "cmdOk", this)),
      cmdAnnulla(pulsanteGrande("Esci da Bottegon", "cmdAnnulla", this)),
      cmdAvanzate(pulsanteGrande("Avanzate >>", "cmdAvanzate", this)) {
    setObjectName("frmWarning");
    setWindowTitle(OperatorPort::titoloApplicazione());
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    lblNumero->setAccessibleName("Numero dell'errore");
    lblOrigine->setAccessibleName("Origine");
    componi();
    connect(cmdOk, &QPushButton::clicked, this, [this] { scegli(1); });
    connect(cmdAnnulla, &QPushButton::clicked, this, [this] { scegli(0); });
    connect(cmdAvanzate, &QPushButton::clicked, this, [this] { mostraDettagli(!mDettagliVisibili); });
    mostraDettagli(false);
}

QWidget* frmWarning::comandi() {
    auto* pctCommands = new QWidget(this);
    pctCommands->setObjectName("pctCommands");
    auto* riga = new QHBoxLayout(pctCommands);
    riga->setContentsMargins(0, 0, 0, 0);
    riga->addWidget(cmdAvanzate);
    riga->addStretch();
    riga->addWidget(cmdAnnulla);
    riga->addWidget(cmdOk);
    cmdAnnulla->setAutoDefault(false);
    cmdAvanzate->setAutoDefault(false);
    cmdOk->setDefault(true);
    return pctCommands;
}

void frmWarning::componi() {
    auto* icona = new QLabel(this);
    icona->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(48, 48));
    lblNumero->setFont(carattereIngrandito(1.6));
    auto* testata = new QHBoxLayout;
    testata->addWidget(icona);
    testata->addWidget(lblNumero, 1);
    mCampi->addRow("Descrizione", txtDescrizione);
    mCampi->addRow("Modulo", txtModulo);
    mCampi->addRow("Origine", lblOrigine);
    mCampi->addRow("Avanzate", txtAvanzate);
    auto* colonna = new QVBoxLayout(this);
    colonna->addLayout(testata);
    colonna->addLayout(mCampi);
    colonna->addWidget(comandi());
    colonna->setSizeConstraint(QLayout::SetFixedSize);
    txtDescrizione->setMinimumWidth(520);
}

void frmWarning::mostraDettagli(bool visibili) {
    mDettagliVisibili = visibili;
    mCampi->setRowVisible(txtAvanzate, visibili);
    cmdAvanzate->setText(visibili ? "<< Ripristina" : "Avanzate >>");
}

void frmWarning::scegli(int risultato) {
    mRisultato = risultato;
    hide();
}

void frmWarning::startMe(const OperatorPort::Errore& errore) {
    lblNumero->setText(QString::number(errore.numero));
    txtDescrizione->setPlainText(errore.descrizione);
    txtModulo->setPlainText(errore.modulo);
    lblOrigine->setText(errore.origine);
    txtAvanzate->setPlainText(errore.avanzate.trimmed().isEmpty() ? "Nessuna Informazione."
                                                                  : errore.avanzate);
    // The failure may have come under the hourglass.
    while (QGuiApplication::overrideCursor() != nullptr) {
        QGuiApplication::restoreOverrideCursor();
    }
    cmdOk->setFocus();
    exec();
}
