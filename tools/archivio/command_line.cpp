#include "archivio/command_line.h"

#include <limits>

#include "archivio/arguments.h"
#include "archivio/backup_archive.h"
#include "archivio/copy_archive.h"
#include "archivio/create_archive.h"
#include "archivio/help_text.h"
#include "archivio/import_access.h"
#include "archivio/link_till.h"
#include "archivio/sales_report.h"
#include "archivio/verify_archive.h"

namespace {

int usoSbagliato(QTextStream& esito) {
    esito << "Comando non valido.\n\n" << testoAiuto;
    return UscitaUso;
}

int uscita(bool riuscito) {
    return riuscito ? UscitaBuona : UscitaErrori;
}

// A number that an int holds.
std::optional<int> prendiIntero(Argomenti& argomenti, const QString& nome, int normale) {
    const auto numero = argomenti.prendiNumero(nome, static_cast<quint64>(normale));
    if (!numero || *numero > static_cast<quint64>(std::numeric_limits<int>::max())) return std::nullopt;
    return static_cast<int>(*numero);
}

// The three sizes come together; none of them is no size. False when only some were given, or no numbers.
bool prendiMisure(Argomenti& argomenti, OpzioniCreazione& opzioni) {
    constexpr int assente = std::numeric_limits<int>::max();
    const auto prodotti = prendiIntero(argomenti, "--prodotti", assente);
    const auto clienti = prendiIntero(argomenti, "--clienti", assente);
    const auto righe = prendiIntero(argomenti, "--righe", assente);
    if (!prodotti || !clienti || !righe) return false;
    const int assenti = (*prodotti == assente) + (*clienti == assente) + (*righe == assente);
    if (assenti == 0) opzioni.misure = MisureNegozio{*prodotti, *clienti, *righe};
    return assenti == 3 || (assenti == 0 && !opzioni.demo);
}

int crea(Argomenti argomenti, QTextStream& esito) {
    OpzioniCreazione opzioni;
    opzioni.demo = argomenti.prendiInterruttore("--demo");
    opzioni.sovrascrivi = argomenti.prendiInterruttore("--sovrascrivi");
    const auto seme = argomenti.prendiNumero("--seme", opzioni.seme);
    const bool misure = prendiMisure(argomenti, opzioni);
    const auto nomi = argomenti.nomi(1);
    if (!seme || !misure || !nomi) return usoSbagliato(esito);
    opzioni.seme = *seme;
    return uscita(creaArchivio(nomi->first(), opzioni, esito));
}

// From one archive or file to another.
template <class Lavoro>
int daUnoAllAltro(Lavoro lavoro, Argomenti argomenti, QTextStream& esito) {
    const bool sovrascrivi = argomenti.prendiInterruttore("--sovrascrivi");
    const auto nomi = argomenti.nomi(2);
    if (!nomi) return usoSbagliato(esito);
    return uscita(lavoro(nomi->first(), nomi->last(), sovrascrivi, esito));
}

int verifica(const Argomenti& argomenti, QTextStream& esito) {
    const auto nomi = argomenti.nomi(1);
    if (!nomi) return usoSbagliato(esito);
    const EsitoVerifica trovato = verificaArchivio(nomi->first());
    for (const QString& riga : trovato.righe())
        esito << riga << "\n";
    return uscita(trovato.errori.isEmpty());
}

int vendite(Argomenti argomenti, QTextStream& esito) {
    const auto ultime = argomenti.prendiNumero("--ultime", 10);
    const auto nomi = argomenti.nomi(1);
    if (!ultime || *ultime < 1 || *ultime > 1000000 || !nomi) return usoSbagliato(esito);
    return uscita(stampaVendite(nomi->first(), static_cast<int>(*ultime), esito));
}

int collega(const Argomenti& argomenti, QTextStream& esito) {
    const auto nomi = argomenti.nomi(1);
    return nomi ? uscita(collegaCassa(nomi->first(), esito)) : usoSbagliato(esito);
}

}  // namespace

int eseguiComando(const QStringList& argomenti, QTextStream& esito) {
    const QString comando = argomenti.value(0);
    const Argomenti resto(argomenti.mid(1));
    if (comando == "--aiuto") {
        esito << testoAiuto;
        return UscitaBuona;
    }
    if (comando == "crea") return crea(resto, esito);
    if (comando == "copia") return daUnoAllAltro(copiaArchivio, resto, esito);
    if (comando == "importa") return daUnoAllAltro(importaAccess, resto, esito);
    if (comando == "verifica") return verifica(resto, esito);
    if (comando == "vendite") return vendite(resto, esito);
    if (comando == "salva") return daUnoAllAltro(salvaArchivio, resto, esito);
    if (comando == "ripristina") return daUnoAllAltro(ripristinaArchivio, resto, esito);
    if (comando == "collega") return collega(resto, esito);
    return usoSbagliato(esito);
}
