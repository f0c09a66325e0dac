#pragma once

#include <QDialog>

class CampoEdit;
class CTextBox;
class QBoxLayout;
class QPushButton;
class VaiVendita;

// Where to: a day, or a number with its year and sub-number. By keyboard and by finger.
class frmVaiVendita final : public QDialog {
    Q_OBJECT
  public:
    explicit frmVaiVendita(QWidget* padre);
    ~frmVaiVendita() override;

    // Modal; the answer is what `scelta` holds afterwards.
    void startMe(VaiVendita& scelta);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void costruisci(VaiVendita& scelta);
    CampoEdit* casella(CTextBox& casella, const QString& nome);
    QPushButton* pulsante(const char* nome, const QString& testo, const QString& aiuto);
    QBoxLayout* campi(VaiVendita& scelta);
    QBoxLayout* tasti(VaiVendita& scelta);

    QWidget* mContenuto = nullptr;
};
