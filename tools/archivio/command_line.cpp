#include "archivio/command_line.h"

#include <optional>

#include "archivio/create_archive.h"
#include "archivio/sales_report.h"
#include "archivio/verify_archive.h"

namespace {

const char* const aiuto =
    "Uso: bottegon-archivio COMANDO [OPZIONI] ARCHIVIO\n"
    "\n"
    "  crea [--demo] [--seme N] [--sovrascrivi] ARCHIVIO\n"
    "      Crea un archivio vuoto o, con --demo, un negozio dimostrativo. Lo stesso\n"
    "      seme (un numero, di norma 1) produce lo stesso negozio. Un archivio che\n"
    "      esiste resta com'è, se non si dice --sovrascrivi.\n"
    "  verifica ARCHIVIO\n"
    "      Controlla i conti dell'archivio senza modificarlo.\n"
    "  vendite ARCHIVIO [--ultime N]\n"
    "      Stampa le ultime vendite salvate (di norma 10).\n"
    "  --aiuto\n"
    "      Stampa questo testo.\n"
    "\n"
    "Codici di uscita: 0 tutto bene, 1 errori, 2 comando non valido.\n";

// The arguments of a command, taken one by one; what is left at the end is a mistake.
class Argomenti {
  public:
    explicit Argomenti(QStringList argomenti) : mArgomenti(std::move(argomenti)) {}

    bool prendiInterruttore(const QString& nome) { return mArgomenti.removeAll(nome) > 0; }

    // The number behind an option; the default without it, nothing when what follows is no number.
    std::optional<quint64> prendiNumero(const QString& nome, quint64 normale) {
        const auto posizione = mArgomenti.indexOf(nome);
        if (posizione < 0) return normale;
        bool valido = false;
        const quint64 valore = mArgomenti.value(posizione + 1).toULongLong(&valido);
        mArgomenti.remove(posizione, valido ? 2 : 1);
        return valido ? std::optional(valore) : std::nullopt;
    }

    // The one argument that must be left.
    std::optional<QString> archivio() const {
        if (mArgomenti.size() != 1 || mArgomenti.first().startsWith("--") || mArgomenti.first().isEmpty()) {
            return std::nullopt;
        }
        return mArgomenti.first();
    }

  private:
    QStringList mArgomenti;
};

int usoSbagliato(QTextStream& esito) {
    esito << "Comando non valido.\n\n" << aiuto;
    return UscitaUso;
}

int uscita(bool riuscito) {
    return riuscito ? UscitaBuona : UscitaErrori;
}

int crea(Argomenti argomenti, QTextStream& esito) {
    OpzioniCreazione opzioni;
    opzioni.demo = argomenti.prendiInterruttore("--demo");
    opzioni.sovrascrivi = argomenti.prendiInterruttore("--sovrascrivi");
    const auto seme = argomenti.prendiNumero("--seme", opzioni.seme);
    const auto archivio = argomenti.archivio();
    if (!seme || !archivio) return usoSbagliato(esito);
    opzioni.seme = *seme;
    return uscita(creaArchivio(*archivio, opzioni, esito));
}

int verifica(const Argomenti& argomenti, QTextStream& esito) {
    const auto archivio = argomenti.archivio();
    if (!archivio) return usoSbagliato(esito);
    const EsitoVerifica trovato = verificaArchivio(*archivio);
    for (const QString& riga : trovato.righe())
        esito << riga << "\n";
    return uscita(trovato.errori.isEmpty());
}

int vendite(Argomenti argomenti, QTextStream& esito) {
    const auto ultime = argomenti.prendiNumero("--ultime", 10);
    const auto archivio = argomenti.archivio();
    if (!ultime || *ultime < 1 || *ultime > 1000000 || !archivio) return usoSbagliato(esito);
    return uscita(stampaVendite(*archivio, static_cast<int>(*ultime), esito));
}

}  // namespace

int eseguiComando(const QStringList& argomenti, QTextStream& esito) {
    const QString comando = argomenti.value(0);
    const Argomenti resto(argomenti.mid(1));
    if (comando == "--aiuto") {
        esito << aiuto;
        return UscitaBuona;
    }
    if (comando == "crea") return crea(resto, esito);
    if (comando == "verifica") return verifica(resto, esito);
    if (comando == "vendite") return vendite(resto, esito);
    return usoSbagliato(esito);
}
