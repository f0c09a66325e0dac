#include "data/setting_values.h"

#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "core/run_time_error.h"

namespace {

int nelTipo(double valore, TipoIntero tipo) {
    double minimo = 0.0;
    double massimo = std::numeric_limits<quint8>::max();
    if (tipo == TipoIntero::Int16) {
        minimo = std::numeric_limits<qint16>::min();
        massimo = std::numeric_limits<qint16>::max();
    } else if (tipo == TipoIntero::Int32) {
        minimo = std::numeric_limits<qint32>::min();
        massimo = std::numeric_limits<qint32>::max();
    }
    // Ties to even, the rounding mode of the process.
    const double intero = std::nearbyint(valore);
    if (!(intero >= minimo && intero <= massimo)) throw RunTimeError(RunTimeError::Overflow);
    return static_cast<int>(intero);
}

}  // namespace

int valNelTipo(const QString& testo, TipoIntero tipo) {
    return nelTipo(Val(testo), tipo);
}

int interoStretto(const QString& testo, TipoIntero tipo) {
    return nelTipo(numeroDouble(testo), tipo);
}
