#pragma once

#include <QElapsedTimer>
#include <QWidget>

class QStackedWidget;
class ScansioniInAttesa;
class frmMain;

// The window of the program: one page for each open account, the front one in sight.
class FinestraConti final : public QWidget {
    Q_OBJECT
  public:
    explicit FinestraConti(const QString& titolo);
    ~FinestraConti() override;

    // Brings the page, and the window, to the front.
    void mostra(frmMain* pagina);
    // The page goes; another open account takes its place.
    void togli(frmMain* pagina);
    frmMain* davanti() const;
    // In front of every other program's windows, also when it was minimised.
    void richiama();

    // A save has ended or an account has closed, and what a hand typed or pressed meanwhile was meant for
    // what was on the screen before: it is dropped. For a moment no command key is heard either, which may
    // have bounced; where another account has come to the front, no key and no click at all. Scans always
    // are.
    enum class Sordita { Comandi, Tutto };
    void assorda(Sordita per);
    bool sorda() const;
    bool sordaDelTutto() const { return mSordaPer == Sordita::Tutto && sorda(); }

  protected:
    void closeEvent(QCloseEvent* evento) override;

  private:
    QStackedWidget* mPagine;
    ScansioniInAttesa* mScansioni;
    QElapsedTimer mSordaDa;
    Sordita mSordaPer = Sordita::Comandi;
};
