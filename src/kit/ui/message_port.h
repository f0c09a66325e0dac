#pragma once

#include <QLabel>
#include <QMessageBox>
#include <QPointer>

#include "core/operator_port.h"

// The operator port of the windows: boxes and the warning dialogue in nested event loops, above the window
// in use. Buttons are named cmdOk, cmdSi, cmdNo and cmdAnnulla; the first one is the default; Esc is the
// refusal (Annulla, else No).
class QtOperatorPort : public OperatorPort {
  public:
    // `genitore` carries the boxes while no window is in use.
    explicit QtOperatorPort(QWidget* genitore = nullptr) : mGenitore(genitore) {}
    void impostaGenitore(QWidget* genitore) { mGenitore = genitore; }

    using OperatorPort::messaggio;
    void messaggio(const QString& testo, Icona icona, const QString& titolo) override;
    Risposta domanda(const QString& testo, Pulsanti pulsanti, Icona icona) override;
    bool avviso(const Errore& errore) override;

    void beep() override;
    void clessidra(bool accesa) override;
    void pausa(int millisecondi) override;
    // A band over the window in use, painted without the event loop: nothing else may run meanwhile.
    void avvisoAttesa(const QString& testo) override;

  private:
    QWidget* finestra() const;

    QPointer<QWidget> mGenitore;
    QPointer<QLabel> mAttesa;
};
