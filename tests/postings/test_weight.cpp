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

TEST_F(Weight, IsSummedOverTheRows) {
    riga(a, "3,00");
    riga(b, "2,00");
    getNewPesoColli(v, colli, peso);
    EXPECT_EQ(peso, 4.55F);
    EXPECT_EQ(colli, 6);
}

TEST_F(Weight, EmptySaleHasNone) {
    getNewPesoColli(v, colli, peso);
    EXPECT_EQ(peso, 0.0F);
    EXPECT_EQ(colli, 0);
}

TEST_F(Weight, DeletedRowDoesNotCount) {
    riga(a, "1,00");
    v.flxVB.scrivi(riga(a, "5,00"), Colonna::Gestione, "3");
    getNewPesoColli(v, colli, peso);
    EXPECT_EQ(peso, 1.25F);
    EXPECT_EQ(colli, 2);
}

TEST_F(Weight, ComponentOfAKitDoesNotCount) {
    riga(a, "1,00");
    v.flxVB.scrivi(riga(b, "5,00"), Colonna::IdDistintaBase, "1*");
    getNewPesoColli(v, colli, peso);
    EXPECT_EQ(peso, 1.25F);
}

TEST_F(Weight, ReturnedPiecesAreTakenOff) {
    riga(a, "3,00");
    riga(a, "-1,00");
    getNewPesoColli(v, colli, peso);
    EXPECT_EQ(peso, 2.5F);
    EXPECT_EQ(colli, 4);
}

TEST_F(Weight, PackagesAreWholeRowByRow) {
    riga(a, "0,20");  // 0,4 of a package
    riga(a, "0,30");  // 0,6
    getNewPesoColli(v, colli, peso);
    EXPECT_EQ(colli, 1);
}

TEST_F(Weight, MorePackagesThanSixteenBitsOverflow) {
    riga(a, "20.000,00");
    EXPECT_THROW(getNewPesoColli(v, colli, peso), RunTimeError);
}

}  // namespace
