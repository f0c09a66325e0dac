#pragma once

#include <QDialog>
#include <QPointer>

class QPlainTextEdit;

// The frames that wait to be sent, as one text.
class frmBuffer : public QDialog {
    Q_OBJECT
  public:
    frmBuffer();

    // Shows the text in front of that window; modally it returns when the form was closed. A form that is up
    // already comes up anew, since there is one for the whole program.
    void startMe(const QString& buffer, bool modale, QWidget* sopra);
    // The window that it was shown in front of last, while that one is seen.
    QWidget* sotto() const;

  signals:
    void nascosta();

  protected:
    void hideEvent(QHideEvent* evento) override;

  private:
    QPlainTextEdit* txtBuffer;
    QPointer<QWidget> mSotto;
};

// The one form of the program, left loaded.
frmBuffer& gFrmBuffer();
