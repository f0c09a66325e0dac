#pragma once

#include <QTableView>

class Ricerca;

// The page of a search, flxRicerca: rows for a finger, the search column marked in the header. It shows what
// the rules hold, and decides nothing.
class GrigliaRicerca final : public QTableView {
    Q_OBJECT
  public:
    GrigliaRicerca(Ricerca& ricerca, QWidget* padre);

    // The page is another.
    void nuovaPagina();
    // The same rows, with another current row, marks or search column.
    void aggiorna();
    // One step to the side.
    void scorri(bool aDestra);

  signals:
    // Rows from 1.
    void rigaPremuta(int riga);
    void doppioClic(int riga);
    void colonnaPremuta(int colonna);

  protected:
    void resizeEvent(QResizeEvent* evento) override;

  private:
    class Modello;

    void disponiColonne();

    Ricerca& mRicerca;
    Modello* mModello;
};
