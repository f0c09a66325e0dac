#pragma once

#include <QDialog>

class ElencoMovimento;
class QTableWidget;

// The rows of a movement, to look at and to pick one.
class frmElencoProdottiMovimento final : public QDialog {
    Q_OBJECT
  public:
    frmElencoProdottiMovimento(ElencoMovimento& movimento, QWidget* padre);
    ~frmElencoProdottiMovimento() override;

    // Modal. The key of the picked row; empty when none was.
    QString startMe();

  private:
    QWidget* testata();
    void riempi();
    void scegli(int riga);

    ElencoMovimento& mMovimento;
    QWidget* mTestata;
    QTableWidget* flxVB;
    QString mScelta;
};
