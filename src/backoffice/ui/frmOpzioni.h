#pragma once

#include <array>

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

// The settings of the server: its type, and the archive or the connection string. They are written to the
// settings store with OK, only where changed; who opened the form reads them again.
class frmOpzioni : public QDialog {
    Q_OBJECT

  public:
    explicit frmOpzioni(QWidget* genitore = nullptr);

    // Modal; true when it was left with OK.
    bool startMe();

  private:
    void componi();
    QWidget* comandi();
    void leggi();
    void mostraTipo(int tipo);
    void sfoglia();
    void salvaOpzioni();

    QLabel* lblTipoServer;
    QComboBox* cmbTipoServer;
    QLabel* lblConnStr;
    QPlainTextEdit* txtConnStr;
    QPushButton* cmdSfoglia;
    QPushButton* cmdOk;
    QPushButton* cmdCancel;
    int mTipo = -1;                    // the type whose string the field shows
    int mTipoLetto = -1;               // as it was when the form came up
    std::array<QString, 3> mStringhe;  // archive or connection string by server type, as edited
    std::array<QString, 3> mLette;     // as they were when the form came up
};
