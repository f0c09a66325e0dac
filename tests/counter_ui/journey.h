#pragma once

#include "counter_ui/window_shop.h"

// A shop assistant at the real window, with real boxes: a scanner, a keyboard and a finger. The hand counts
// the keys that it presses, Shift and Alt among them; what the scanner sends is no work of the hand.
//
// The shop has VITE and STAFFA (10,00 and 2,50 with 22 % of VAT), customer 7 ROSSI, 8 BIANCHI and 9 VERDI,
// who pay later unless said, and operator 2 Giulio.
class Percorso : public WindowShop {
  protected:
    Percorso();

    // ---- Scanner
    void scansiona(const QString& codice) const;
    void scansionaVite() const { scansiona("$8001234567890"); }

    // ---- Keyboard: to whatever has the focus
    void batti(const QString& testo);
    void batti(Qt::Key tasto, Qt::KeyboardModifiers modificatori = Qt::NoModifier);
    void batti(const QString& testo, Qt::Key poi);
    int tastiBattuti() const { return mTasti; }
    // From here on the keys count.
    void comincia() { mTasti = 0; }

    // ---- Finger: on the button of that name, or with that word, of what is in front
    void tocca(const QString& nome) const;
    void toccaTasti(const QStringList& didascalie) const;
    // The row of the search that holds that text.
    void toccaRiga(const QString& testo) const;

    // Runs `gesto` in the dialogue that `apre` brings up, which must have closed then.
    using Gesto = std::function<void()>;
    void nelDialogo(const Gesto& apre, const Gesto& gesto);
    // A box with that text comes up, and `gesto` closes it.
    void nelRiquadro(const QString& testo, const Gesto& apre, const Gesto& gesto);

    // ---- Steps that several journeys share
    // To that account by its letter.
    void battiConto(int numero);
    // A sale for that customer on a new account, from its number to the scanned row.
    void vendeAlConto(int numero, const QString& cliente);
    // The sale of that number comes to the screen.
    void battiVaiA(const QString& progressivo);
    // What the text of that widget in front says.
    QString mostrato(const char* nome) const;

    // ---- The books
    QString libri(const QString& query) const { return negozio.valore(query); }
    QString totale() const { return libri("SELECT TOTDOCUMENTO FROM Movimenti"); }
    int vendite() const { return negozio.conta("Movimenti"); }

    int rossi, bianchi, verdi;

  private:
    QWidget& davanti() const;
    QWidget& fuoco() const;

    int mTasti = 0;
};
