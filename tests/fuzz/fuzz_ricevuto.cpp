#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "core/errors.h"
#include "core/run_time_error.h"
#include "register/ansi_text.h"
#include "register/answers.h"
#include "register/frames.h"

// What comes from a register's interface program may be anything. Whatever the bytes are, the parser answers
// or raises a run-time error of the one kind that it tells of.

namespace {

void pretendi(bool vero) {
    if (!vero) std::abort();
}

// Answers stand in a text when one begins somewhere in it.
void provaSeguito(const QString& testo) {
    bool risposta = false;
    for (const QChar c : testo) {
        risposta = risposta || genereRisposta(c) != GenereRisposta::Ignota;
    }
    pretendi(contieneRisposte(testo) == risposta);
}

void provaRisposta(const QString& pezzo) {
    const GenereRisposta genere = genereRisposta(pezzo);
    pretendi(genere != GenereRisposta::Ignota ||
             (!pezzo.startsWith(mACK) && !pezzo.startsWith(mNAK) && !pezzo.startsWith(mSTX)));
    provaSeguito(pezzo);
    if (!comandoErrore(pezzo)) return;
    try {
        const ErroreRegCassa errore = leggiErrore(pezzo);
        pretendi(errore.codice >= -9 && errore.codice <= 99);
        pretendi(errore.testo.size() == pezzo.size() - 10);
    } catch (const RunTimeError& errore) {
        pretendi(errore.numero() == RunTimeError::ChiamataNonValida && pezzo.size() < 10);
    }
}

// The queue cut into frames gives the whole queue again, unless its rest has no end that can be seen.
void provaCoda(const QString& testo) {
    QString resto = testo;
    QString tolto;
    for (int fine = getPosEOB(resto); fine > 0; fine = getPosEOB(resto)) {
        pretendi(fine <= resto.size());
        tolto += resto.left(fine);
        resto.remove(0, fine);
    }
    pretendi(tolto + resto == testo);
    pretendi(getCKS(testo).size() <= 2);
    conNomi(testo);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    static const bool silenzio = [] {
        gErr.impostaSegnalazioneEsterna([](const cError::Errore&) {});
        return true;
    }();
    pretendi(silenzio);
    const QByteArray byte(reinterpret_cast<const char*>(dati), static_cast<qsizetype>(lunghezza));
    const QString testo = daAnsi(byte);
    pretendi(inAnsi(testo) == byte);
    provaRisposta(testo);
    provaCoda(testo);
    provaCoda(corniciDi(testo));
    return 0;
}
