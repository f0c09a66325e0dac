#pragma once

#include <QString>

// All that a rule asks of or shows to the person at the till. The window's one shows dialogues in nested
// event loops; the tests' one is a script of expected questions and answers.
class OperatorPort {
  public:
    enum class Icona { Nessuna, Informazione, Domanda, Esclamazione, Critica };
    // NoSi: as SiNo, but Enter answers no.
    enum class Pulsanti { SiNo, SiNoAnnulla, NoSi };
    enum class Risposta { Si, No, Annulla };

    // What the warning dialogue shows of an unexpected error.
    struct Errore {
        int numero = 0;
        QString descrizione;
        QString modulo;    // module and procedure, joined by a point
        QString avanzate;  // technical detail, may be empty
        QString origine;
    };

    virtual ~OperatorPort() = default;

    // A box with one button. Lines are parted by "\n".
    virtual void messaggio(const QString& testo, Icona icona, const QString& titolo) = 0;
    void messaggio(const QString& testo, Icona icona) { messaggio(testo, icona, titoloApplicazione()); }
    virtual Risposta domanda(const QString& testo, Pulsanti pulsanti, Icona icona) = 0;
    bool chiedeSi(const QString& testo, Icona icona = Icona::Domanda) {
        return domanda(testo, Pulsanti::SiNo, icona) == Risposta::Si;
    }
    // The warning dialogue: true to go on, false to leave the program at once.
    virtual bool avviso(const Errore& errore) = 0;

    virtual void beep() = 0;
    // Hourglass on or off; calls nest.
    virtual void clessidra(bool accesa) = 0;
    // Lets the screen paint for so many milliseconds; keys that come meanwhile wait.
    virtual void pausa(int millisecondi) = 0;
    // A notice that another desk is being waited for; shown until it is called with an empty text.
    virtual void avvisoAttesa(const QString& testo) = 0;

    static QString titoloApplicazione() { return "Bottegon"; }
};

// The hourglass for as long as it lives.
class Clessidra {
  public:
    explicit Clessidra(OperatorPort& operatore) : mOperatore(operatore) { mOperatore.clessidra(true); }
    ~Clessidra() { mOperatore.clessidra(false); }
    Clessidra(const Clessidra&) = delete;
    Clessidra& operator=(const Clessidra&) = delete;

  private:
    OperatorPort& mOperatore;
};
