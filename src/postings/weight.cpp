#include "postings/weight.h"

#include <cmath>
#include <limits>

#include "core/globals.h"
#include "core/run_time_error.h"
#include "data/gateway.h"
#include "sale/vendita.h"

namespace {

double valoreProdotto(const char* colonna, int idProdotto, const char* procedura) {
    return gAdo
        .getValueBySQL(
            "SELECT " + QString(colonna) + " FROM Prodotti WHERE RID = " + QString::number(idProdotto),
            gNomeModulo + procedura)
        .toDouble();
}

}  // namespace

float getPesoProd(int idProdotto) {
    return static_cast<float>(valoreProdotto("PESO", idProdotto, ".getPesoProd"));
}

int getColliProd(int idProdotto) {
    return arrotondaColli(valoreProdotto("COLLI", idProdotto, ".getColliProd"));
}

int arrotondaColli(double colli) {
    const double arrotondati = std::nearbyint(colli);
    if (!(std::fabs(arrotondati) <= std::numeric_limits<short>::max()))
        throw RunTimeError(RunTimeError::Overflow);
    return static_cast<int>(arrotondati);
}

void getNewPesoColli(const Vendita& v, int& colli, float& peso) {
    const FlexVB& g = v.flxVB;
    colli = 0;
    peso = 0;
    for (int r = 1; r <= g.ultima(); ++r) {
        if (!g.viva(r) || !g.cella(r, Colonna::IdDistintaBase).isEmpty()) continue;
        const int prodotto = g.chiave(r, Colonna::IdProdotto);
        const double quantita = static_cast<double>(g.single(r, Colonna::Quantita));
        peso = static_cast<float>(static_cast<double>(peso) +
                                  quantita * static_cast<double>(getPesoProd(prodotto)));
        colli = arrotondaColli(colli + arrotondaColli(quantita * getColliProd(prodotto)));
    }
}

bool updatePesoColli(int idMovimento, float peso, int colli) {
    return gAdo.executeSQL("UPDATE Movimenti SET PESOCONS = " + getSqlNumber(peso) + ", COLLICONS = " +
                               QString::number(colli) + " WHERE RID = " + QString::number(idMovimento),
                           gNomeModulo + ".updatePesoColli");
}
