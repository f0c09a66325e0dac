#pragma once

#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "core/operator_port.h"

// The warning of an unexpected error: go on, or leave the program. Closing it by Esc goes on.
class frmWarning : public QDialog {
    Q_OBJECT

  public:
    explicit frmWarning(QWidget* genitore = nullptr);

    // Shows the error modally, above every window.
    void startMe(const OperatorPort::Errore& errore);
    // 1 to go on, 0 to leave.
    int risultato() const { return mRisultato; }

  private:
    void componi();
    QWidget* comandi();
    void mostraDettagli(bool visibili);
    void scegli(int risultato);

    QFormLayout* mCampi;
    QLabel* lblNumero;
    QPlainTextEdit* txtDescrizione;
    QPlainTextEdit* txtModulo;
    QLabel* lblOrigine;
    QPlainTextEdit* txtAvanzate;
    QPushButton* cmdOk;
    QPushButton* cmdAnnulla;
    QPushButton* cmdAvanzate;
    bool mDettagliVisibili = false;
    int mRisultato = 1;
};
