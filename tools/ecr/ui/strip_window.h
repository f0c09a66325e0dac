#pragma once

#include <QWidget>

#include "ecr/receipt.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class Simulatore;

// The simulator's window: the paper strip of the last receipts, and what the register does wrong. It never
// takes the focus from the till.
class FinestraStriscia : public QWidget {
    Q_OBJECT
  public:
    explicit FinestraStriscia(Simulatore& simulatore);

  private:
    void componi();
    void mettiALato();
    void collega();
    void stampa(const Scontrino& scontrino);
    void scegliGuasto();
    void mostraGuasto();

    Simulatore& mSimulatore;
    QLabel* lblStato;
    QPlainTextEdit* txtStriscia;
    QComboBox* cmbGuasto;
    QCheckBox* chkUnaVolta;
    QLabel* lblComando;
};
