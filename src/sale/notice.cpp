#include "sale/notice.h"

#include <optional>
#include <vector>

#include "core/operator_port.h"
#include "sale/vendita.h"

namespace {

constexpr int durata = 500;  // milliseconds
constexpr unsigned coloreFondo = 0xFFD0D0;
constexpr unsigned coloreTesto = 0xB00000;

}  // namespace

void lampeggiaAvviso(Vendita& v, std::initializer_list<Campo*> campi) {
    struct Colori {
        Campo* campo;
        std::optional<unsigned> fondo, testo;
    };
    std::vector<Colori> prima;
    for (Campo* campo : campi) {
        prima.push_back({campo, campo->coloreFondo(), campo->coloreTesto()});
        campo->colori(coloreFondo, coloreTesto);
    }
    v.schermo.operatore().pausa(durata);
    for (const Colori& colori : prima) {
        colori.campo->colori(colori.fondo, colori.testo);
    }
}
