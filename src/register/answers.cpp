#include "register/answers.h"

#include "core/numbers.h"
#include "core/run_time_error.h"
#include "register/frames.h"

namespace {

// STX, "ERR", the code and the character behind it; at the end two digits and ETX.
constexpr qsizetype lunghezzaTesta = 7;
constexpr qsizetype lunghezzaCoda = 3;

}  // namespace

GenereRisposta genereRisposta(const QString& pezzo) {
    if (pezzo.startsWith(mACK)) return GenereRisposta::Accettata;
    if (pezzo.startsWith(mNAK)) return GenereRisposta::Rifiutata;
    return pezzo.startsWith(mSTX) ? GenereRisposta::Comando : GenereRisposta::Ignota;
}

bool contieneRisposte(QStringView seguito) {
    return seguito.contains(mACK) || seguito.contains(mNAK) || seguito.contains(mSTX);
}

bool comandoErrore(const QString& pezzo) {
    return QStringView(pezzo).mid(1, 3) == u"ERR";
}

ErroreRegCassa leggiErrore(const QString& pezzo) {
    const qsizetype lunghezza = pezzo.size() - lunghezzaTesta - lunghezzaCoda;
    if (lunghezza < 0) throw RunTimeError(RunTimeError::ChiamataNonValida);
    return {valIntero(QStringView(pezzo).mid(4, 2)), pezzo.mid(lunghezzaTesta, lunghezza)};
}
