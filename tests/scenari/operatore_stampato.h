#pragma once

#include <deque>

#include <QStringList>

#include "core/operator_port.h"

// An operator whose boxes are printed, and whose answers were given beforehand.
class OperatoreStampato final : public OperatorPort {
  public:
    // Where the lines go.
    explicit OperatoreStampato(QStringList& righe) : mRighe(righe) {}

    // The answer to the next question, which must have that text ("\n" for a line break).
    void prepara(const QString& domanda, Risposta risposta) { mRisposte.push_back({domanda, risposta}); }
    // The questions that were prepared and never asked.
    QStringList maiPoste() const;

    using OperatorPort::messaggio;
    void messaggio(const QString& testo, Icona icona, const QString& titolo) override;
    Risposta domanda(const QString& testo, Pulsanti pulsanti, Icona icona) override;
    bool avviso(const Errore& errore) override;
    void beep() override { mRighe << "  (suono)"; }
    void clessidra(bool) override {}
    void pausa(int) override {}
    void avvisoAttesa(const QString&) override {}

    bool sbagliata = false;  // a question came that was not prepared

  private:
    struct Preparata {
        QString domanda;
        Risposta risposta;
    };
    QStringList& mRighe;
    std::deque<Preparata> mRisposte;
};

// A text on one line: line breaks as "\n", the backslash doubled.
QString inUnaRiga(QString testo);
