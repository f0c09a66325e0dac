#pragma once

#include <optional>

#include <QDialog>
#include <QElapsedTimer>

#include "kit/cKeyFunction.h"
#include "kit/tender.h"

class CampoEdit;
class QBoxLayout;
class QLabel;

// The change calculator, shown before a sale is saved: amount due, amount tendered, change in green or red.
// It is left with Esc, F5 or its button, and the sale goes on.
class frmPagamento final : public QDialog {
    Q_OBJECT
  public:
    explicit frmPagamento(QWidget* padre);
    ~frmPagamento() override;

    // For a moment the key that saves is not heard: a bounced one was meant to bring the dialogue up.
    bool sorda() const;
    // How long that is, in milliseconds.
    void sordaPer(int millisecondi) { mSordita = millisecondi; }

    // Modal; once for each form. Amounts that no money can be are reported, and are none.
    EsitoIncasso startMe(Currency totale);

  protected:
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    std::optional<QChar> tasto(CTextBox& casella, QChar tasto);
    void costruisci();
    QLabel* titolo(const QString& didascalia, const Campo& campo);
    CampoEdit* riga(QBoxLayout& colonna, const QString& didascalia, CTextBox& casella, const QString& nome);
    QBoxLayout* importi();

    std::optional<MonitorResto> mMonitor;
    cKeyFunction mFunzioni;
    QElapsedTimer mSordaDa;
    int mSordita = 250;
    QWidget* mContenuto = nullptr;
};
