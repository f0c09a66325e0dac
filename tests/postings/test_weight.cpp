#include "core/run_time_error.h"
#include "doubles/negozio.h"
#include "postings/weight.h"

namespace {

// "A" weighs 1,25 and comes in 2 packages, "B" 0,4 in none.
struct Weight : testing::Test {
    Negozio n;
    Vendita& v = n.apriConto().vendita();
    int a = n.prodotto({.codice = "A", .listino1 = 1});
    int b = n.prodotto({.codice = "B", .listino1 = 1});
    int colli = 99;
    float peso = 99;

    void SetUp() override {
        n.sql(QString("UPDATE Prodotti SET PESO = 1.25, COLLI = 2 WHERE RID = %1").arg(a));
        n.sql(QString("UPDATE Prodotti SET PESO = 0.4 WHERE RID = %1").arg(b));
    }
    int riga(int prodotto, const QString& quantita) {
        const int r = v.flxVB.aggiungi();
        v.flxVB.scrivi(r, Colonna::IdProdotto, QString::number(prodotto));
        v.flxVB.scrivi(r, Colonna::Quantita, quantita);
        v.flxVB.scrivi(r, Colonna::Gestione, "1");
        return r;
    }
};

struct RigaPesata {
    char prodotto;
    const char* quantita;
    Colonna colonna = Colonna::Gestione;
    const char* valore = "1";
};

struct PesoAtteso {
    const char* nome;
    std::vector<RigaPesata> righe;
    float peso;
    int colli;
};

class WeightOf : public Weight, public testing::WithParamInterface<PesoAtteso> {};

TEST_P(WeightOf, IsThatOfThePiecesThatLeave) {
    for (const RigaPesata& r : GetParam().righe) {
        v.flxVB.scrivi(riga(r.prodotto == 'A' ? a : b, r.quantita), r.colonna, r.valore);
    }
    getNewPesoColli(v, colli, peso);
    EXPECT_EQ(peso, GetParam().peso);
    EXPECT_EQ(colli, GetParam().colli);
}

INSTANTIATE_TEST_SUITE_P(
    Sales, WeightOf,
    testing::Values(
        PesoAtteso{"SeveralRows", {{'A', "3,00"}, {'B', "2,00"}}, 4.55F, 6}, PesoAtteso{"NoRows", {}, 0, 0},
        PesoAtteso{"DeletedRow", {{'A', "1,00"}, {'A', "5,00", Colonna::Gestione, "3"}}, 1.25F, 2},
        PesoAtteso{
            "ComponentOfAKit", {{'A', "1,00"}, {'B', "5,00", Colonna::IdDistintaBase, "1*"}}, 1.25F, 2},
        PesoAtteso{"ReturnedPieces", {{'A', "3,00"}, {'A', "-1,00"}}, 2.5F, 4},
        // 0,4 and 0,6 of a package: whole row by row.
        PesoAtteso{"PartsOfAPackage", {{'A', "0,20"}, {'A', "0,30"}}, 0.625F, 1}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST_F(Weight, MorePackagesThanSixteenBitsOverflow) {
    riga(a, "20.000,00");
    EXPECT_THROW(getNewPesoColli(v, colli, peso), RunTimeError);
}

}  // namespace
