#pragma once

#include <QDialog>

#include "counter/operator_code.h"

// Asks for the operator's code, by keyboard, keypad or badge. The close box does not close it: an empty
// confirmation or Esc leaves the operator as it was.
class frmCodiceVenditore final : public QDialog {
    Q_OBJECT
  public:
    frmCodiceVenditore(const RichiestaVenditore& richiesta, QWidget* padre);
    ~frmCodiceVenditore() override;

    // Modal.
    void startMe();
    // The code confirmed; empty when there is none.
    QString codice() const;
    // As CodiceVenditore::scansione.
    bool scansione(const QString& codice) { return mRegole.scansione(codice); }

  protected:
    void closeEvent(QCloseEvent* evento) override;

  private:
    QWidget* costruisci();

    CodiceVenditore mRegole;
    QWidget* txtCodice = nullptr;
    QWidget* mContenuto;
};
