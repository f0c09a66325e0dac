#pragma once

#include <QString>

class InterfacciaRegCassa;

// The dialogues about the register.
class DialoghiRegCassa {
  public:
    // The button pressed in the failure dialogue.
    enum Scelta { Nessuna = 0, Riprova = 1, AnnullaTutto = 2, Interrompi = 3 };

    virtual ~DialoghiRegCassa() = default;
    // Asks what becomes of the frames in `buffer`; returns when a button was pressed.
    virtual Scelta errore(const QString& descrizione, const QString& buffer) = 0;
    // Shows the monitor, without waiting.
    virtual void mostraMonitor() = 0;
};

// Those in force. Before some are set, and after a null pointer: none, and nobody ever answers.
DialoghiRegCassa& dialoghiRegCassa();
void impostaDialoghiRegCassa(DialoghiRegCassa* dialoghi);

// The register refused a frame: asks the operator, and does what the answer says. The sale is saved in any
// case; only the frames' fate is decided.
void mFrmRegCassa_evtError(InterfacciaRegCassa& collegamento, int codice, const QString& descrizione);

// The queue as its own window shows it, with names for the marks. ACK and NAK have the same name here.
QString bufferLeggibile(QString buffer);
