#include "ecr/arguments.h"

#include "core/run_time_error.h"
#include "data/setting_values.h"

namespace {

constexpr int portaPredefinita = 4310;
// The till keeps it as a signed number of 16 bits.
constexpr int portaMassima = 32767;

std::optional<int> comePorta(const QString& testo) {
    bool riuscito = false;
    const int porta = testo.toInt(&riuscito);
    if (!riuscito || porta < 1 || porta > portaMassima) return std::nullopt;
    return porta;
}

bool prendiPorta(const QString& parola, const QString& valore, std::optional<int>& porta, QString& errore) {
    porta = comePorta(valore);
    if (!porta) errore = parola + " vuole il numero di una porta, da 1 a 32767";
    return porta.has_value();
}

// An option with a value behind it.
bool prendiValore(const QString& parola, const QString& valore, ArgomentiEcr& a, QString& errore) {
    if (parola == "--porta") return prendiPorta(parola, valore, a.porta, errore);
    if (parola == "--verifica") return prendiPorta(parola, valore, a.verifica, errore);
    if (parola == "--giornale") {
        a.giornale = valore;
        return true;
    }
    const auto guasto = guastoDiNome(valore);
    if (!guasto) errore = "Guasto sconosciuto: " + valore;
    a.guasto = guasto.value_or(Guasto::Nessuno);
    return guasto.has_value();
}

bool* interruttore(const QString& parola, ArgomentiEcr& a) {
    if (parola == "--una-volta") return &a.unaVolta;
    if (parola == "--collega") return &a.collega;
    return parola == "--aiuto" ? &a.aiuto : nullptr;
}

}  // namespace

int portaDelleImpostazioni(const QString& testo) {
    try {
        const int porta = valNelTipo(testo, TipoIntero::Int16);
        return porta >= 1 ? porta : portaPredefinita;
    } catch (const RunTimeError&) {
        return portaPredefinita;
    }
}

std::optional<ArgomentiEcr> leggiArgomenti(const QStringList& parole, QString& errore) {
    const QStringList conValore{"--porta", "--verifica", "--giornale", "--guasto"};
    ArgomentiEcr a;
    for (auto parola = parole.begin(); parola != parole.end(); ++parola) {
        if (conValore.contains(*parola)) {
            if (std::next(parola) == parole.end()) {
                errore = *parola + " vuole un valore";
                return std::nullopt;
            }
            if (!prendiValore(*parola, *std::next(parola), a, errore)) return std::nullopt;
            ++parola;
        } else if (*parola == "--senza-finestra") {
            a.finestra = false;
        } else if (bool* acceso = interruttore(*parola, a)) {
            *acceso = true;
        } else {
            errore = "Parola sconosciuta: " + *parola;
            return std::nullopt;
        }
    }
    return a;
}

QString testoAiuto() {
    QString testo =
        "prgECRSimulatore: un registratore di cassa simulato, per prove e dimostrazioni.\n\n"
        "  --porta N          ascolta su 127.0.0.1:N, da 1 a 32767 (altrimenti la porta delle impostazioni)\n"
        "  --giornale CARTELLA  dove scrive gli scontrini (altrimenti \"Scontrini\" accanto al programma o,\n"
        "                     se lì non si può scrivere, in $XDG_DATA_HOME/Bottegon)\n"
        "  --senza-finestra   non mostra la striscia\n"
        "  --guasto NOME      si comporta male; --una-volta: solo al primo comando\n"
        "  --collega          diventa il registratore di questo utente, se non ne ha uno\n"
        "  --verifica N       prova il programma di interfaccia che ascolta sulla porta N:\n"
        "                     stampa scontrini di prova e dice che cosa non va\n"
        "  --aiuto            questo testo\n\nGuasti:\n";
    for (const VoceGuasto& voce : guasti()) {
        testo += "  " + voce.nome.leftJustified(10) + voce.descrizione + "\n";
    }
    return testo;
}
