#include <algorithm>

#include <QStringList>

#include "archivio/demo_context.h"
#include "archivio/demo_shop.h"

namespace {

// Quantities from a range's lower end to its upper one, and its three discounts.
struct Scaglione {
    double da;
    double a;
    int sconti[3];
};

void scriviScaglioni(Scrittore& scrittore, const char* tabella, const char* testa, qint64 chiave,
                     const std::vector<Scaglione>& scaglioni) {
    for (const Scaglione& s : scaglioni) {
        scrittore.inserisci(tabella, {{testa, chiave},
                                      {"RANGEMIN", s.da},
                                      {"RANGEMAX", s.a},
                                      {"SCONTO1", s.sconti[0]},
                                      {"SCONTO2", s.sconti[1]},
                                      {"SCONTO3", s.sconti[2]}});
    }
}

QVariant marcaOppureNull(const ContestoDemo& c, const QString& marca) {
    return marca.isEmpty() ? QVariant() : QVariant(c.marche.at(marca));
}

void scriviScontoVendita(ContestoDemo& c, const QString& categoria, const QString& fascia,
                         const QString& marca, const std::vector<Scaglione>& scaglioni) {
    const qint64 chiave =
        c.scrittore.inserisci("CatScVendita", {{"FK_CATEGORIA", c.categorieSconti.at(categoria)},
                                               {"FK_FASCIA", c.fasce.at(fascia)},
                                               {"FK_MARCA", marcaOppureNull(c, marca)}});
    scriviScaglioni(c.scrittore, "CatScVenditeSconti", "FK_CATSCVENDITE", chiave, scaglioni);
}

constexpr double senzaLimite = 999999;

void scriviScontiVendita(ContestoDemo& c) {
    const QStringList categorie = {"FER", "UTE", "VER", "IDR", "ELE", "CAS", "GIA"};
    for (const QString& categoria : categorie) {
        scriviScontoVendita(c, categoria, "ART", "",
                            {{0.01, 9.99, {5, 0, 0}}, {10, senzaLimite, {10, 0, 0}}});
        scriviScontoVendita(
            c, categoria, "IMP", "",
            {{0.01, 9.99, {10, 0, 0}}, {10, 99.99, {10, 5, 0}}, {100, senzaLimite, {10, 5, 3}}});
        scriviScontoVendita(c, categoria, "RIV", "", {{0.01, senzaLimite, {20, 5, 0}}});
    }
    // A brand with terms of its own only from ten pieces on; below, the general terms hold.
    scriviScontoVendita(c, "FER", "ART", "BULLONEZ", {{10, senzaLimite, {15, 5, 0}}});
    scriviScontoVendita(c, "FER", "IMP", "BULLONEZ", {{1, senzaLimite, {18, 5, 0}}});
    scriviScontoVendita(c, "VER", "IMP", "COLORALBA",
                        {{1, 23.99, {15, 0, 0}}, {24, senzaLimite, {20, 5, 0}}});
    scriviScontoVendita(c, "UTE", "RIV", "MARTELLARO", {{1, senzaLimite, {25, 5, 2}}});
}

// Net prices by band and quantity, for every article of the net-price category.
void scriviPrezziNetti(ContestoDemo& c) {
    const qint64 categoria = DemoNegozio::categoriaPrezziNetti;
    for (const ProdottoVenduto& prodotto : c.venduti) {
        if (!prodotto.prezzoNetto) continue;
        for (const auto& [fascia, chiaveFascia] : c.fasce) {
            const qint64 testa = c.scrittore.inserisci(
                "CatScProdVendita",
                {{"FK_CATEGORIA", categoria}, {"FK_FASCIA", chiaveFascia}, {"FK_PRODOTTO", prodotto.chiave}});
            const std::pair<double, double> scaglioni[] = {{0.01, 9.99}, {10, senzaLimite}};
            int percento = 92;
            for (const auto& [da, a] : scaglioni) {
                c.scrittore.inserisci("CatScVenditaProd",
                                      {{"FK_CATSCVENDITEPROD", testa},
                                       {"RANGEMIN", da},
                                       {"RANGEMAX", a},
                                       {"PREZZO", euro(std::max(1, prodotto.listino1 * percento / 100))}});
                percento -= 6;
            }
        }
    }
}

void scriviScontiAcquisto(ContestoDemo& c) {
    struct Condizione {
        const char* categoria;
        size_t fornitore;
        const char* marca;
        std::vector<Scaglione> scaglioni;
    };
    const std::vector<Condizione> condizioni = {
        {"FER", 0, "", {{0.01, 99.99, {5, 0, 0}}, {100, senzaLimite, {5, 3, 0}}}},
        {"FER", 7, "BULLONEZ", {{0.01, senzaLimite, {8, 2, 0}}}},
        {"GIA", 6, "", {{0.01, senzaLimite, {4, 0, 0}}}},
    };
    for (const Condizione& v : condizioni) {
        const qint64 chiave =
            c.scrittore.inserisci("CatScAcquisto", {{"FK_CATEGORIA", c.categorieSconti.at(v.categoria)},
                                                    {"FK_FORNITORE", c.fornitori[v.fornitore]},
                                                    {"FK_MARCA", marcaOppureNull(c, v.marca)}});
        scriviScaglioni(c.scrittore, "CatScAcquistoSconti", "FK_CATSCACQUISTO", chiave, v.scaglioni);
    }
}

void scriviPrezzoPersonale(ContestoDemo& c, int cliente, int prodotto, int centesimi) {
    c.scrittore.inserisci("Listini",
                          {{"FK_ANAGRAFE", cliente}, {"FK_PRODOTTO", prodotto}, {"PREZZO", euro(centesimi)}});
}

// The plumber's tap and cable; a row of 0 stands for no price of his own.
void scriviListini(ContestoDemo& c) {
    scriviPrezzoPersonale(c, DemoNegozio::clienteArtigiano, 6, 3500);
    scriviPrezzoPersonale(c, DemoNegozio::clienteArtigiano, 7, 95);
    scriviPrezzoPersonale(c, DemoNegozio::clienteArtigiano, 1, 0);
    for (int i = 0; i < 60; ++i) {
        const int cliente = 7 + i % 20;
        scriviPrezzoPersonale(c, cliente, c.prodotto(30 + i * 31), c.casuale.tra(100, 2500));
    }
}

}  // namespace

void scriviSconti(ContestoDemo& c) {
    scriviScontiVendita(c);
    scriviPrezziNetti(c);
    scriviScontiAcquisto(c);
    scriviListini(c);
}
