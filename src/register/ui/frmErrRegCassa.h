#pragma once

#include <QDialog>

#include "register/failure.h"

class QPlainTextEdit;

// The register refused: what becomes of the commands that wait. No button is pressed by Enter, which a
// scanner sends by itself; closing the window decides nothing.
class frmErrRegCassa : public QDialog {
    Q_OBJECT
  public:
    explicit frmErrRegCassa(QWidget* genitore = nullptr);

    // Shows the failure modally, and returns when a button was pressed or the window closed.
    void startMe(const QString& descrizione, const QString& buffer);
    DialoghiRegCassa::Scelta risultato() const { return mRisultato; }

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void componi();
    void aggiungi(const QString& testo, const char* nome, DialoghiRegCassa::Scelta scelta, QWidget* riga);

    QPlainTextEdit* lblDesc;
    QString mBuffer;
    DialoghiRegCassa::Scelta mRisultato = DialoghiRegCassa::Nessuna;
};
