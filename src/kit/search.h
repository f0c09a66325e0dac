#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QStringList>

#include "kit/CTextBox.h"
#include "kit/campo.h"
#include "kit/column_spec.h"
#include "kit/search_request.h"

class OperatorPort;
class Recordset;

// The rules of the search screen: pages of the caller's query, narrowed by what is typed. The window over it
// is frmRicerca; it hears of a new page by `osserva`.
class Ricerca {
  public:
    // Column 0 is a blank margin, column 1 holds RID and is hidden; what is shown begins here.
    static constexpr int primaColonna = 2;

    Ricerca(RichiestaRicerca richiesta, OperatorPort& operatore);
    Ricerca(const Ricerca&) = delete;
    Ricerca& operator=(const Ricerca&) = delete;

    ElencoCampi elenco;
    Campo txtRicerca{elenco, "txtRicerca"};
    Campo lblDesc{elenco, "lblDesc"};                      // header of the search column; tag: its number
    Campo chkCodiceProdotto{elenco, "chkCodiceProdotto"};  // look for the text anywhere in the field
    Campo pctNessuna{elenco, "pctNessuna"};                // the notice of an empty result
    Campo lblEsito{elenco, "lblEsito"};                    // what a live query found nothing for
    CTextBox casella{txtRicerca};

    // ---- The grid. Rows are counted from 1, as the header is row 0; columns from 0.
    int colonne() const { return primaColonna + static_cast<int>(mColonne.size()); }
    const ColonnaElenco& colonna(int colonna) const;
    // Where the caller names no columns, widths are the screen's own.
    bool larghezzeProprie() const { return mColonnePredefinite; }
    int righe() const { return static_cast<int>(mRighe.size()); }
    const QString& cella(int riga, int colonna) const;
    bool multi() const { return mMultiSel; }
    bool segnata(int riga) const;
    int segnate() const;
    // The current row; 0 when there is none.
    int rigaCorrente() const { return mRigaCorrente; }
    void rigaCorrente(int riga);
    int colonnaRicerca() const;
    // Typed text can narrow that column: the caller's SELECT has a field behind it.
    bool cercabile(int colonna) const;
    bool nuovoAmmesso() const { return mRichiesta.nuovo; }
    // Called when the rows are others, and whenever the notice of an empty result comes up.
    void osserva(std::function<void()> nuovaPagina, std::function<void()> nessuna = {}) {
        mNuovaPagina = std::move(nuovaPagina);
        mNessuna = std::move(nessuna);
    }

    // ---- Commands. Those that act on rows first ask what was typed and not asked yet; where that finds
    // nothing they do nothing, since the rows in sight are not those of the text.
    // A key in txtRicerca as it goes on to the box; Enter asks.
    std::optional<QChar> tastoNelTesto(QChar tasto);
    // Asks the typed text anew, from the first page.
    void cmdInvio();
    // As cmdInvio while typing goes on: what finds nothing says so without the notice, and what was typed
    // stays unselected. Nothing happens when the text was asked already.
    void cercaDalVivo();
    // Runs the live query that is due. False when it found nothing or failed: the rows in sight are others.
    bool righeDelTesto();
    void cmdSu();
    void cmdDown();
    void cmdNuovo();
    void cmdDel();
    // A key of the on-screen keyboard.
    void tasto(const QString& didascalia);
    void cambiaOvunque();
    // The column that typed text narrows; nothing happens when the grid has no such column, or no field is
    // behind it.
    void scegliColonna(int colonna);
    // One row up or down; at the edge the first time stays, the next turns the page.
    void freccia(bool giu);
    // Toggles the mark of a row.
    void segna(int riga);
    // The choice is made: the keys chosen, each followed by "|"; empty when no row is current. Nothing when
    // the rows are not those of the text.
    std::optional<QString> cmdSelect();
    QString scelti() const;

  private:
    struct Riga {
        QStringList celle;  // from column 1
        bool segnata = false;
    };
    enum class Esito { Trovate, Vuota, Fallita };

    int colonnaChiave() const;
    Esito fillGrid(int direzione, const QString& valore);
    Esito leggiPagina(int direzione, const QString& valore);
    Riga rigaDa(const Recordset& record) const;
    // A page that the operator asked for: one that is empty leaves the grid and puts the notice up. True when
    // rows came.
    bool sfoglia(int direzione, const QString& valore);
    void cercaInColonna(int colonna);
    void giraPagina(bool giu);
    // What a page is asked for: text, field and wildcard.
    QString domanda() const;

    RichiestaRicerca mRichiesta;
    OperatorPort& mOperatore;
    bool mMultiSel;
    bool mColonnePredefinite = false;
    std::vector<ColonnaElenco> mColonne;  // from primaColonna
    std::vector<Riga> mRighe;
    int mRigaCorrente = 0;
    bool mFineLista = false;
    QString mDomanda;      // of the last first page
    bool mDalVivo = true;  // live queries go on
    std::function<void()> mNuovaPagina;
    std::function<void()> mNessuna;
};
