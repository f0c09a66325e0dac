#pragma once

#include <QWidget>

class InterfacciaRegCassa;
class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;

// The monitor of the register's link: what goes over the wire, the switches of the link, and the sales whose
// receipt is missing or may be wrong. Its close box hides it: the link lives on.
class frmRegCassa : public QWidget {
    Q_OBJECT
  public:
    explicit frmRegCassa(InterfacciaRegCassa& collegamento);
    ~frmRegCassa() override;

    // Brings it to the front.
    void mostra();

  protected:
    void showEvent(QShowEvent* evento) override;

  private:
    void componi();
    QWidget* comandi();
    void collegaComandi();
    void aggiornaStato();
    void aggiornaMancanti();
    void aggiungiRiga(const QString& riga, int tolte);

    InterfacciaRegCassa& mCollegamento;
    QPlainTextEdit* txtMonitor;
    QCheckBox* chkMonitor;
    QCheckBox* chkConnessione;
    QLabel* lblStato;
    QPushButton* cmdConnect;
    QPushButton* Command1;
    QPushButton* cmdHide;
    QTableWidget* lswSenzaScontrino;
    QLabel* lblSenzaScontrino;
};
