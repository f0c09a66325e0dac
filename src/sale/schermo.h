#pragma once

#include <QString>

class Campo;
class OperatorPort;
class Recordset;
struct RichiestaRicerca;
struct Vendita;

// What a sale needs of the screen it stands on: a window, or a script in its place.
class SchermoVendita {
  public:
    enum class Timer {
        Griglia,  // one shot after a row was loaded
        Tasti,    // while a cursor key is held
        Fido,     // blink of the credit limit's alarm
        Segnala,  // blink of the customer flag
        Raffica,  // one shot: keys at the speed of a scanner have stopped
        Badge,    // one shot: the keys of an operator's badge have stopped
    };

    virtual ~SchermoVendita() = default;

    virtual OperatorPort& operatore() = 0;
    virtual void fuoco(Campo& campo) = 0;
    // Painting of the grid off and on; calls nest.
    virtual void ridisegno(bool acceso) = 0;
    // Brings a row of the grid into view.
    virtual void mostraRiga(int riga) = 0;
    virtual void avviaTimer(Timer timer, int millisecondi) = 0;
    virtual void fermaTimer(Timer timer) = 0;
    // The list over rows that the caller holds: true when one was chosen, which then is the current one.
    // `colonne`: title, width and field name parted by "¤", each column ended by "|".
    virtual bool selezionaElemento(Recordset& righe, const QString& colonne) = 0;
    // The search screen: the chosen keys, each followed by "|"; empty when it was cancelled, ricercaNuovo
    // when a new element was asked for.
    virtual QString ricerca(const RichiestaRicerca& richiesta) = 0;

    // The commands of the screen and the other accounts, which stand a floor above the sale.
    virtual void premiComando(int comando) = 0;
    virtual void premiOperatore() = 0;
    // A scanned badge has begun: the code of an operator follows.
    virtual void leggiBadge() = 0;
    // Opens a further account for that customer code, or without a customer when it is empty; nothing when
    // all are taken.
    virtual Vendita* apriNuovoConto(const QString& codiceCliente) = 0;
    // Closes this screen; it dies when the outermost procedure has returned.
    virtual void scarica() = 0;
};

// Holds the painting of the grid for as long as it lives.
class RidisegnoFermo {
  public:
    explicit RidisegnoFermo(SchermoVendita& schermo) : mSchermo(schermo) { mSchermo.ridisegno(false); }
    ~RidisegnoFermo() { mSchermo.ridisegno(true); }
    RidisegnoFermo(const RidisegnoFermo&) = delete;
    RidisegnoFermo& operator=(const RidisegnoFermo&) = delete;

  private:
    SchermoVendita& mSchermo;
};
