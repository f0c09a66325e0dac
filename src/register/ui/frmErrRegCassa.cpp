#include "register/ui/frmErrRegCassa.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>

#include "kit/ui/touch_widgets.h"
#include "register/ui/frmBuffer.h"
#include "register/ui/wire_text.h"

namespace {

constexpr int righeDescrizione = 4;
constexpr int larghezzaDescrizione = 520;

// The register's text may be of any length and hold any character.
QPlainTextEdit* descrizioneErrore(QWidget* genitore) {
    auto* testo = new QPlainTextEdit(genitore);
    testo->setObjectName("lblDesc");
    testo->setAccessibleName("Errore del registratore di cassa");
    testo->setReadOnly(true);
    testo->setTabChangesFocus(true);
    testo->setFont(carattereIngrandito(1.2));
    testo->setFixedHeight(testo->fontMetrics().lineSpacing() * righeDescrizione + 16);
    testo->setMinimumWidth(larghezzaDescrizione);
    return testo;
}

QPushButton* pulsante(const QString& testo, const char* nome, QWidget* genitore) {
    QPushButton* nuovo = pulsanteGrande(testo, nome, genitore);
    nuovo->setAutoDefault(false);
    // Not the letter alone: a scanner types letters.
    nuovo->setShortcut(QKeySequence(Qt::ALT | Qt::Key(testo.front().toUpper().unicode())));
    return nuovo;
}

}  // namespace

frmErrRegCassa::frmErrRegCassa(QWidget* genitore) : QDialog(genitore), lblDesc(descrizioneErrore(this)) {
    setObjectName("frmErrRegCassa");
    setWindowTitle("Registratore di Cassa");
    componi();
    lblDesc->setFocus();
}

void frmErrRegCassa::componi() {
    auto* icona = new QLabel(this);
    icona->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(48, 48));
    auto* testata = new QHBoxLayout;
    testata->addWidget(icona, 0, Qt::AlignTop);
    testata->addWidget(lblDesc, 1);

    auto* pulsanti = new QWidget(this);
    new QHBoxLayout(pulsanti);
    aggiungi("Riprova", "cmdRiprova", DialoghiRegCassa::Riprova, pulsanti);
    aggiungi("Annulla tutto", "cmdAnnulla", DialoghiRegCassa::AnnullaTutto, pulsanti);
    aggiungi("Interrompi", "cmdInterrompi", DialoghiRegCassa::Interrompi, pulsanti);
    QPushButton* cmdBuffer = pulsante("Visualizza il buffer", "cmdBuffer", pulsanti);
    pulsanti->layout()->addWidget(cmdBuffer);
    connect(cmdBuffer, &QPushButton::clicked, this, [this] { gFrmBuffer().startMe(mBuffer, true, this); });

    auto* tutto = new QVBoxLayout(this);
    tutto->addLayout(testata);
    tutto->addWidget(pulsanti);
    tutto->setSizeConstraint(QLayout::SetFixedSize);
}

void frmErrRegCassa::aggiungi(const QString& testo, const char* nome, DialoghiRegCassa::Scelta scelta,
                              QWidget* riga) {
    QPushButton* nuovo = pulsante(testo, nome, riga);
    riga->layout()->addWidget(nuovo);
    connect(nuovo, &QPushButton::clicked, this, [this, scelta] {
        mRisultato = scelta;
        hide();
    });
}

void frmErrRegCassa::startMe(const QString& descrizione, const QString& buffer) {
    lblDesc->setPlainText(abbreviato(descrizione));
    mBuffer = buffer;
    exec();
}

void frmErrRegCassa::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) return evento->accept();
    QDialog::keyPressEvent(evento);
}
