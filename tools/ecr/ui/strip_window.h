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
    // What the operator must know stands beside the state until it is taken back by an empty text.
    void avviso(const QString& testo);

  private:
    void componi();
    void mettiALato();
    void collega();
    void stampa(const Scontrino& scontrino);
    void scegliGuasto();
    void mostraGuasto();
    void mostraStato();

    Simulatore& mSimulatore;
    bool mCollegata = false;
    QString mAvviso;
    QLabel* lblStato;
    QPlainTextEdit* txtStriscia;
    QComboBox* cmbGuasto;
    QCheckBox* chkUnaVolta;
    QLabel* lblComando;
};
