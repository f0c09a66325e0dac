#pragma once

#include <QLabel>
#include <QWidget>

// A small notice with an icon while long work goes on. It takes no input and no focus.
class frmInfo : public QWidget {
    Q_OBJECT

  public:
    frmInfo();

    // Shows the text at once, before the work that keeps the event loop from painting.
    void startMe(const QString& testo);

  protected:
    // A dialogue that comes up meanwhile is not covered: the notice goes.
    bool event(QEvent* evento) override;

  private:
    QLabel* lblInfo;
};
