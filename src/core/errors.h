#pragma once

#include <exception>
#include <functional>
#include <type_traits>
#include <vector>

#include <QString>

#include "core/operator_port.h"
#include "core/run_time_error.h"

// The error discipline: every unexpected failure becomes a block of "Err.log" and the warning dialogue.
class cError {
  public:
    using Errore = OperatorPort::Errore;

    // Where the log is, and who is asked. Without an operator the log alone is written.
    void imposta(QString cartella, OperatorPort* operatore);
    void impostaOperatore(OperatorPort* operatore) { mOperatore = operatore; }
    // Called when the operator leaves the program, and by fineProcesso(): it must not return.
    void impostaFineProcesso(std::function<void()> fine) { mFine = std::move(fine); }

    // While set, the event below takes the reports and nothing else happens. Off in this program.
    void impostaSegnalazioneEsterna(std::function<void(const Errore&)> evtErrore) {
        mEvtErrore = std::move(evtErrore);
    }

    // Logs, then shows the dialogue, or keeps it for later while dialogues are held. A log that cannot be
    // written is told in the dialogue.
    void notifyError(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                     const QString& avanzate);
    // As notifyError, but the dialogue comes at once even while dialogues are held.
    void notificaSubito(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                        const QString& avanzate);

    // Logs only: the caller knows better what to say.
    void annotaErrore(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                      const QString& avanzate);

    // Dialogues are held while a desk has its turn to write: what is to be said is said after it.
    void trattieniDialoghi() { mTrattenuti = true; }
    void rilasciaDialoghi();
    bool dialoghiTrattenuti() const { return mTrattenuti; }
    // Says it now, or after the turn when dialogues are held. Nothing is logged.
    void mostraMessaggio(const QString& testo, OperatorPort::Icona icona);

    // Takes back the dialogue that was held last, whose caller has better words. The log keeps what it tells.
    void ritiraUltimoDialogo();

    // Ends the process at once: no handler, no save.
    void fineProcesso();

  private:
    void segnala(Errore errore, bool trattieni);
    bool registra(const Errore& errore) const;
    void mostra(const Errore& errore);

    QString mCartella;
    OperatorPort* mOperatore = nullptr;
    std::function<void()> mFine;
    std::function<void(const Errore&)> mEvtErrore;
    bool mTrattenuti = false;
    std::vector<std::function<void()>> mInAttesa;
};

// The one error reporter of the process.
extern cError gErr;

// The call in which every handler ends.
void segnalaErrore(const RunTimeError& errore, const QString& modulo, const QString& procedura,
                   const QString& avanzate = {});

// The run-time error behind an exception that is being handled.
RunTimeError erroreInCorso();

// Runs `corpo` as the body of the procedure of that name: what it throws is reported, and the answer is
// `fallimento`.
template <class Corpo, class Risultato = std::invoke_result_t<Corpo>>
Risultato protetto(const QString& modulo, const char* procedura, Corpo&& corpo, Risultato fallimento) {
    try {
        return corpo();
    } catch (const std::exception&) {
        segnalaErrore(erroreInCorso(), modulo, procedura);
        return fallimento;
    }
}

template <class Corpo>
void protetto(const QString& modulo, const char* procedura, Corpo&& corpo) {
    try {
        corpo();
    } catch (const std::exception&) {
        segnalaErrore(erroreInCorso(), modulo, procedura);
    }
}
