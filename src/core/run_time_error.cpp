#include "core/run_time_error.h"

namespace {

QString descrizioneClassica(int numero) {
    switch (numero) {
        case RunTimeError::ChiamataNonValida:
            return "Chiamata di routine o argomento non validi";
        case RunTimeError::Overflow:
            return "Overflow";
        case RunTimeError::MemoriaEsaurita:
            return "Memoria esaurita";
        case RunTimeError::IndiceNonValido:
            return "Indice non compreso nell'intervallo";
        case RunTimeError::DivisionePerZero:
            return "Divisione per zero";
        case RunTimeError::TipoNonCorrispondente:
            return "Tipo non corrispondente";
        case RunTimeError::CampoInesistente:
            return "Campo inesistente nell'insieme di record";
        default:
            return "Errore definito dall'applicazione";
    }
}

}  // namespace

RunTimeError::RunTimeError(int numero, QString descrizione, QString origine)
    : mNumero(numero),
      mDescrizione(descrizione.isEmpty() ? descrizioneClassica(numero) : std::move(descrizione)),
      mOrigine(std::move(origine)),
      mTesto(mDescrizione.toUtf8()) {}
