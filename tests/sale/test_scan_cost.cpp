#include <QRegularExpression>

#include "gesti.h"

namespace {

// The tables that statements read first, in order.
QStringList tabelle(const QStringList& istruzioni) {
    static const QRegularExpression dopoFrom("\\bFROM \\(*(\\w+)", QRegularExpression::CaseInsensitiveOption);
    QStringList lette;
    for (const QString& sql : istruzioni) {
        lette << dopoFrom.match(sql).captured(1);
    }
    return lette;
}

struct ScanCost : testing::Test {
    Negozio n;
    ContoDiProva& c = n.apriConto();

    void SetUp() override {
        n.prodotto({.codice = "P", .listino1 = 10, .barcode = "8001"});
        n.prodotto({.codice = "Q", .listino1 = 10, .barcode = "8002"});
        c.scansiona("8002");  // the connections are open from now on
    }
    QStringList lette(const QString& barcode) {
        const ContaIstruzioni conta;
        c.scansiona(barcode);
        return tabelle(conta.istruzioni);
    }
};

TEST_F(ScanCost, NewProductIsOneQueryAndTheLookUps) {
    EXPECT_EQ(lette("8001"),
              (QStringList{"Prodotti",             // the product
                           "Anagrafiche",          // its price: the customer's list,
                           "Prodotti",             // the price of that list,
                           "Listini",              // the customer's own one
                           "Prodotti",             // its discounts: brand and category,
                           "Anagrafiche",          // the customer's band
                           "ProdottiAlternativi",  // its alternatives, both ways
                           "ProdottiAlternativi",
                           "DettagliProdotto",  // its margin: cost layers,
                           "Prodotti"}));       // else the purchase price
}

TEST_F(ScanCost, DoesNotGrowWithTheRows) {
    const QStringList prima = lette("8001");
    for (int i = 0; i < 50; ++i) {
        n.prodotto({.codice = QString("R%1").arg(i), .listino1 = 1, .barcode = QString("900%1").arg(i)});
        c.scansiona(QString("900%1").arg(i));
    }
    n.prodotto({.codice = "S", .listino1 = 10, .barcode = "8003"});
    EXPECT_EQ(lette("8003"), prima);
}

}  // namespace
