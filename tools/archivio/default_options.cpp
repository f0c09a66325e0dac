#include "archivio/default_options.h"

#include <QStringList>

#include "archivio/row_writer.h"
#include "core/run_time_error.h"

namespace {

struct Opzione {
    const char* nome;
    const char* iniziale;
};

// A key of -1 is one that was not chosen yet.
const Opzione opzioni[] = {
    {"TipoStampaDistinta", "0"},
    {"ClientePredefinito", "-1"},
    {"CatPrezziNetti", "-1"},
    {"TipoDocVb", "-1"},
    {"CausalePagVb", "-1"},
    {"DistintaBase", "%"},
    {"PagamentoVB", "-1"},
    {"RigaLibera", "/"},
    {"PrezzoMedio", "0"},
    {"MesiPrezzoMedio", "12"},
    {"ContoClienti", "-1"},
    {"ContoFornitori", "-1"},
    {"SottoScorta", "0"},
    {"BloccaSottoScorta", "0"},
    {"AvvisaSottoScorta", "0"},
    {"VenditeGiorniDiversi", "0"},
    {"BloccaVenditeGiorniDiversi", "0"},
    {"AvvisaVenditeGiorniDiversi", "0"},
    {"LockVBEdit", "0"},
    {"FidoAllaData", "0"},
    {"LockVBPrezzo", "0"},
    {"VenditoriObbligatori", "0"},
    {"VenditoriBlocco", "0"},
    {"VenditoreChar", ""},
    {"PagatoAltriClienti", "0"},
    {"PiePagina", ""},
    {"ReportElencoSpeciale", ""},
    {"NumeratoreElencoSpeciale", "-1"},
};

}  // namespace

void scriviOpzioni(Scrittore& scrittore, const std::map<QString, QString>& valori) {
    size_t usati = 0;
    for (const Opzione& opzione : opzioni) {
        const auto trovato = valori.find(opzione.nome);
        if (trovato != valori.end()) ++usati;
        const QString valore = trovato != valori.end() ? trovato->second : QString(opzione.iniziale);
        scrittore.inserisci("Opzioni", {{"NOME", QString(opzione.nome)}, {"VALORE", valore}});
    }
    if (usati != valori.size()) {
        throw RunTimeError(RunTimeError::ErroreApplicazione,
                           "Opzione senza significato tra quelle da scrivere");
    }
}
