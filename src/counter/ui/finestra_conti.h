#pragma once

#include <QElapsedTimer>
#include <QWidget>

class QStackedWidget;
class frmMain;

// The window of the program: one page for each open account, the front one in sight.
class FinestraConti final : public QWidget {
    Q_OBJECT
  public:
    explicit FinestraConti(const QString& titolo);

    // Brings the page, and the window, to the front.
    void mostra(frmMain* pagina);
    // The page goes; another open account takes its place.
    void togli(frmMain* pagina);
    frmMain* davanti() const;
    // In front of every other program's windows, also when it was minimised.
    void richiama();

    // For a moment no command key is heard: a save has ended or an account has closed, and a bounced key was
    // meant for what was on the screen before.
    void assorda() { mSordaDa.start(); }
    bool sorda() const;

  protected:
    void closeEvent(QCloseEvent* evento) override;

  private:
    QStackedWidget* mPagine;
    QElapsedTimer mSordaDa;
};
