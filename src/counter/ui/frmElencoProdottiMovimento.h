#pragma once

#include <QDialog>

class ElencoMovimento;
class QPushButton;
class QTableWidget;

// The rows of a movement, to look at and to pick one.
class frmElencoProdottiMovimento final : public QDialog {
    Q_OBJECT
  public:
    frmElencoProdottiMovimento(ElencoMovimento& movimento, QWidget* padre);
    ~frmElencoProdottiMovimento() override;

    // Modal. The key of the picked row; empty when none was.
    QString startMe();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    QWidget* testata();
    void riempi();
    void scegli(int riga);

    ElencoMovimento& mMovimento;
    QWidget* mTestata;
    QTableWidget* flxVB;
    QPushButton* cmdEsci;
    QString mScelta;
};
