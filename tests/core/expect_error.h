#pragma once

#include "core/run_time_error.h"

// The number of the run-time error that `passo` raises; 0 when it raises none.
template <class Passo>
int numeroErrore(Passo&& passo) {
    try {
        passo();
    } catch (const RunTimeError& errore) {
        return errore.numero();
    }
    return 0;
}
