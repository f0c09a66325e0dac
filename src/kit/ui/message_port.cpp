#include "kit/ui/message_port.h"

#include <QApplication>
#include <QEventLoop>
#include <QPushButton>
#include <QTimer>

#include "kit/ui/arrow_cursor.h"
#include "kit/ui/frmWarning.h"
#include "kit/ui/touch_widgets.h"

namespace {

using Icona = OperatorPort::Icona;

QMessageBox::Icon iconaQt(Icona icona) {
    switch (icona) {
        case Icona::Informazione:
            return QMessageBox::Information;
        case Icona::Domanda:
            return QMessageBox::Question;
        case Icona::Esclamazione:
            return QMessageBox::Warning;
        case Icona::Critica:
            return QMessageBox::Critical;
        case Icona::Nessuna:
            break;
    }
    return QMessageBox::NoIcon;
}

class Riquadro {
  public:
    Riquadro(QWidget* genitore, const QString& testo, Icona icona, const QString& titolo)
        : mRiquadro(iconaQt(icona), titolo, {}, QMessageBox::NoButton, genitore) {
        mRiquadro.setObjectName("riquadroMessaggio");
        mRiquadro.setTextFormat(Qt::PlainText);
        mRiquadro.setText(testo);
        mRiquadro.setFont(carattereIngrandito(1.2));
    }

    QPushButton* aggiungi(const QString& testo, const QString& nome, QMessageBox::ButtonRole ruolo) {
        QPushButton* pulsante = pulsanteGrande(testo, nome, &mRiquadro);
        // Not the letter alone: a scanner types letters.
        pulsante->setShortcut(QKeySequence(Qt::ALT | Qt::Key(testo.front().toUpper().unicode())));
        mRiquadro.addButton(pulsante, ruolo);
        if (mRiquadro.defaultButton() == nullptr) mRiquadro.setDefaultButton(pulsante);
        mRiquadro.setEscapeButton(pulsante);
        return pulsante;
    }

    void preferisce(QPushButton* pulsante) { mRiquadro.setDefaultButton(pulsante); }

    const QAbstractButton* chiede() {
        const FrecciaNormale freccia;
        mRiquadro.exec();
        return mRiquadro.clickedButton();
    }

  private:
    QMessageBox mRiquadro;
};

}  // namespace

QWidget* QtOperatorPort::finestra() const {
    if (QWidget* modale = QApplication::activeModalWidget()) return modale;
    if (QWidget* attiva = QApplication::activeWindow()) return attiva;
    return mGenitore;
}

void QtOperatorPort::messaggio(const QString& testo, Icona icona, const QString& titolo) {
    Riquadro riquadro(finestra(), testo, icona, titolo);
    riquadro.aggiungi("OK", "cmdOk", QMessageBox::AcceptRole);
    riquadro.chiede();
}

OperatorPort::Risposta QtOperatorPort::domanda(const QString& testo, Pulsanti pulsanti, Icona icona) {
    Riquadro riquadro(finestra(), testo, icona, titoloApplicazione());
    const QAbstractButton* si = riquadro.aggiungi("Sì", "cmdSi", QMessageBox::YesRole);
    QPushButton* no = riquadro.aggiungi("No", "cmdNo", QMessageBox::NoRole);
    if (pulsanti == Pulsanti::SiNoAnnulla)
        riquadro.aggiungi("Annulla", "cmdAnnulla", QMessageBox::RejectRole);
    if (pulsanti == Pulsanti::NoSi) riquadro.preferisce(no);
    const QAbstractButton* scelto = riquadro.chiede();
    if (scelto == si) return Risposta::Si;
    return scelto == no || pulsanti != Pulsanti::SiNoAnnulla ? Risposta::No : Risposta::Annulla;
}

bool QtOperatorPort::avviso(const Errore& errore) {
    frmWarning finestraAvviso(finestra());
    finestraAvviso.startMe(errore);
    return finestraAvviso.risultato() == 1;
}

void QtOperatorPort::beep() {
    QApplication::beep();
}

void QtOperatorPort::clessidra(bool accesa) {
    if (accesa) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (QGuiApplication::overrideCursor() != nullptr) {
        QGuiApplication::restoreOverrideCursor();
    }
}

void QtOperatorPort::pausa(int millisecondi) {
    QEventLoop ciclo;
    QTimer::singleShot(millisecondi, &ciclo, &QEventLoop::quit);
    ciclo.exec(QEventLoop::ExcludeUserInputEvents);
}

void QtOperatorPort::avvisoAttesa(const QString& testo) {
    if (testo.isEmpty()) {
        delete mAttesa;
        return;
    }
    if (mAttesa != nullptr && mAttesa->text() == testo) return;
    delete mAttesa;
    QWidget* sotto = finestra();
    if (sotto == nullptr) return;
    mAttesa = etichetta(testo, "lblAttesa", sotto);
    mAttesa->setAccessibleName(testo);
    mAttesa->setAlignment(Qt::AlignCenter);
    mAttesa->setFont(carattereIngrandito(1.4));
    mAttesa->setStyleSheet("background: #ffe9a8; color: #202020; border: 2px solid #c08a00; padding: 12px;");
    const QSize misura = mAttesa->sizeHint().boundedTo(sotto->size());
    mAttesa->setGeometry((sotto->width() - misura.width()) / 2, (sotto->height() - misura.height()) / 2,
                         misura.width(), misura.height());
    mAttesa->show();
    mAttesa->raise();
    mAttesa->repaint();
}
