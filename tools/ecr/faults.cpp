#include "ecr/faults.h"

#include <algorithm>

#include "ecr/frame_reader.h"

namespace {

const char* const ack = "\x06";
const char* const nak = "\x15";
constexpr int codiceCarta = 5;
const char* const testoCarta = "Carta finita";
constexpr int pausaLenta = 1000;
constexpr int pausaSpezzata = 20;

std::vector<QByteArray> aSpizzichi(const QByteArray& byte) {
    std::vector<QByteArray> pezzi;
    for (const char c : byte) {
        pezzi.emplace_back(1, c);
    }
    return pezzi;
}

}  // namespace

const std::vector<VoceGuasto>& guasti() {
    static const std::vector<VoceGuasto> tutti{
        {Guasto::Nessuno, "nessuno", "Funziona"},
        {Guasto::Lento, "lento", "Lento: risponde dopo un secondo"},
        {Guasto::Muto, "muto", "Muto: non risponde"},
        {Guasto::Carta, "carta", "Carta finita"},
        {Guasto::Rifiuta, "rifiuta", "Rifiuta (NAK)"},
        {Guasto::Confondi, "confondi", "Risponde a caso"},
        {Guasto::Spezza, "spezza", "Errore a un byte per volta"},
        {Guasto::Unisci, "unisci", "Errore attaccato all'ACK"},
        {Guasto::Chiudi, "chiudi", "Chiude il collegamento"},
        {Guasto::Muori, "muori", "Si spegne di colpo"},
    };
    return tutti;
}

std::optional<Guasto> guastoDiNome(const QString& nome) {
    const auto trovato =
        std::find_if(guasti().begin(), guasti().end(), [&](const VoceGuasto& v) { return v.nome == nome; });
    return trovato == guasti().end() ? std::nullopt : std::optional(trovato->guasto);
}

QByteArray corniceErrore(int codice, const QString& testo) {
    return cornice("ERR" + QByteArray::number(codice).rightJustified(2, '0') + " " + testo.toLatin1());
}

RispostaEcr rispostaConGuasto(Guasto guasto) {
    const QByteArray errore = corniceErrore(codiceCarta, testoCarta);
    switch (guasto) {
        case Guasto::Nessuno:
            return {{ack}};
        case Guasto::Lento:
            return {.pezzi = {ack}, .pausa = pausaLenta};
        case Guasto::Muto:
            return {.pezzi = {}, .eseguita = false};
        case Guasto::Carta:
            return {.pezzi = {errore}, .eseguita = false};
        case Guasto::Rifiuta:
            return {.pezzi = {nak}, .eseguita = false};
        case Guasto::Confondi:
            return {.pezzi = {"?#!" + QByteArray(ack)}, .eseguita = false};
        case Guasto::Spezza:
            return {.pezzi = aSpizzichi(errore), .pausa = pausaSpezzata, .eseguita = false};
        case Guasto::Unisci:
            return {.pezzi = {ack + errore}, .eseguita = false};
        case Guasto::Chiudi:
            return {.pezzi = {}, .chiudi = true, .eseguita = false};
        case Guasto::Muori:
            return {.pezzi = {}, .muori = true, .eseguita = false};
    }
    return {};
}
