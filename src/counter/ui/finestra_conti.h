#pragma once

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

  protected:
    void closeEvent(QCloseEvent* evento) override;

  private:
    QStackedWidget* mPagine;
};
