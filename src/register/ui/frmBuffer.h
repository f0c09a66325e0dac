#pragma once

#include <QDialog>

class QPlainTextEdit;

// The frames that wait to be sent, as one text.
class frmBuffer : public QDialog {
    Q_OBJECT
  public:
    explicit frmBuffer(QWidget* genitore = nullptr);

    // Shows the text; modally it returns when the window was closed.
    void startMe(const QString& buffer, bool modale);

  private:
    QPlainTextEdit* txtBuffer;
};
