#include "data/options_table.h"

#include <variant>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/setting_values.h"

namespace {

struct Numero {
    int* variabile;
    TipoIntero tipo;
    const int* sostituto = nullptr;  // takes its place when above 0
};

struct Opzione {
    const char* nome;
    std::variant<Numero, bool*, QString*> variabile;
};

constexpr auto unByte = TipoIntero::Byte;
constexpr auto int16 = TipoIntero::Int16;
constexpr auto int32 = TipoIntero::Int32;

const Opzione opzioni[] = {
    {"TipoStampaDistinta", Numero{&gTipoStampaDistinta, int16}},
    {"ClientePredefinito", Numero{&gClientePredefinito, int32}},
    {"CatPrezziNetti", Numero{&gCatPrezziNetti, int32}},
    {"TipoDocVb", Numero{&gTipoDocVb, int32, &gTipoDocOverride}},
    {"CausalePagVb", Numero{&gCausalePagVb, int32, &gCausalePagOverride}},
    {"DistintaBase", &gDistintaBase},
    {"PagamentoVB", Numero{&gPagamentoVB, int32}},
    {"RigaLibera", &gRigaLibera},
    {"PrezzoMedio", Numero{&gPrezzoMedio, unByte}},
    {"MesiPrezzoMedio", Numero{&gMesiPrezzoMedio, int16}},
    {"ContoClienti", Numero{&gContoClienti, int32}},
    {"ContoFornitori", Numero{&gContoFornitori, int32}},
    {"SottoScorta", Numero{&gSottoScorta, unByte}},
    {"BloccaSottoScorta", &gBloccaSottoScorta},
    {"AvvisaSottoScorta", &gAvvisaSottoScorta},
    {"VenditeGiorniDiversi", Numero{&gVenditeGiorniDiversi, unByte}},
    {"BloccaVenditeGiorniDiversi", &gBloccaVenditeGiorniDiversi},
    {"AvvisaVenditeGiorniDiversi", &gAvvisaVenditeGiorniDiversi},
    {"LockVBEdit", Numero{&gLockVBEdit, unByte}},
    {"FidoAllaData", Numero{&gFidoAllaData, unByte}},
    {"LockVBPrezzo", Numero{&gLockVBPrezzo, unByte}},
    {"VenditoriObbligatori", Numero{&gVenditoriObbligatori, unByte}},
    {"VenditoriBlocco", Numero{&gVenditoriBlocco, unByte}},
    {"VenditoreChar", &gVenditoreChar},
    {"PagatoAltriClienti", Numero{&gPagatoAltriClienti, unByte}},
    {"PiePagina", &gPiePagina},
    {"ReportElencoSpeciale", &gReportElencoSpeciale},
    {"NumeratoreElencoSpeciale", Numero{&gNumeratoreElencoSpeciale, int32}},
};

void leggi(const Opzione& opzione) {
    const QString valore = getOpzione(opzione.nome);
    if (const auto* numero = std::get_if<Numero>(&opzione.variabile)) {
        *numero->variabile = valNelTipo(valore, numero->tipo);
        if (numero->sostituto != nullptr && *numero->sostituto > 0) *numero->variabile = *numero->sostituto;
    } else if (auto* const* flag = std::get_if<bool*>(&opzione.variabile)) {
        **flag = Val(valore) != 0.0;
    } else {
        *std::get<QString*>(opzione.variabile) = valore;
    }
}

}  // namespace

QString getOpzione(const QString& nome) {
    const Lettura riga("select valore from Opzioni where nome = " + testoSQL(nome),
                       gNomeModulo + ".getOpzione");
    return riga.trovata() ? riga->testo("valore") : QString();
}

void getAllOpzioni() {
    protetto(gNomeModulo, "getAllOpzioni", [] {
        for (const Opzione& opzione : opzioni) {
            leggi(opzione);
        }
    });
}
