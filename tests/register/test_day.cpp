#include <iostream>

#include "core/value_helpers.h"
#include "register/day_at_the_till.h"

namespace {

const char* nomeCausa(Causa causa) {
    constexpr std::array<const char*, numeroCause> nomi{
        "none",
        "link down",
        "suspended",
        "dropped by the operator",
        "two answers in one chunk",
        "error frame split",
        "error frame behind an ACK",
        "two frames in flight",
        "closed dialogue",
        "retry on two accounts",
        "rollback after the receipt",
    };
    return nomi[static_cast<size_t>(causa)];
}

// Sale and receipt agree: in the books once and on paper once.
struct Conteggio {
    int uguali = 0;
    int inspiegate = 0;
    std::map<Causa, int> diverse;
};

// The only sale that a receipt can be of; 0: it is no sale's.
int venditaDi(const QStringList& scontrino) {
    return scontrino.size() == 1 ? scontrino.first().toInt() : 0;
}

}  // namespace

class Day : public Giornata {
  protected:
    bool concorda(int vendita) const { return registrata(vendita) && stampata(vendita) == 1; }
    // Each sale against the paper.
    Conteggio confronta(int vendite) const {
        Conteggio conto;
        for (int i = 1; i <= vendite; ++i) {
            if (concorda(i)) {
                ++conto.uguali;
            } else if (const auto causa = cause.find(i); causa != cause.end()) {
                ++conto.diverse[causa->second];
            } else {
                ADD_FAILURE() << "sale " << i << ": booked " << registrata(i) << ", printed " << stampata(i);
                ++conto.inspiegate;
            }
        }
        return conto;
    }
    // Each receipt against the sales: one that is empty, mixed, or of no sale has come out under a fault.
    Conteggio confrontaCarta() const {
        Conteggio conto;
        for (size_t i = 0; i < rotolo.scontrini().size(); ++i) {
            const int vendita = venditaDi(rotolo.scontrini()[i]);
            if (vendita > 0 && concorda(vendita)) {
                ++conto.uguali;
            } else if (rotolo.cause()[i] != Causa::Nessuna) {
                ++conto.diverse[rotolo.cause()[i]];
            } else {
                ADD_FAILURE() << "receipt of rows " << rotolo.scontrini()[i].join("+").toStdString();
                ++conto.inspiegate;
            }
        }
        return conto;
    }
    // On the list of sales without a good receipt; the amount tells them apart.
    bool elencata(int vendita) const {
        const QString importo = "€ " + formattaImporto(vendita * 12.2, 2);
        const auto voci = link.scontrini.voci();
        return std::any_of(voci.begin(), voci.end(), [&](const RegistroScontrini::Voce& voce) {
            return voce.vendita.endsWith(importo);
        });
    }
    // Random sales until at least so many; every tenth or so under each fault in turn.
    int giornata(int vendite) {
        int ultima = 0;
        for (int giro = 0; ultima < vendite && !HasFatalFailure(); ++giro) {
            const bool conGuasto = std::uniform_int_distribution<int>(0, 2)(dado) == 0;
            const int causa = conGuasto ? 1 + giro % (numeroCause - 1) : 0;
            vendeConGuasto(static_cast<Causa>(causa));
            ultima = vendute();
        }
        return ultima;
    }
};

class DayLong : public Day {};

TEST_F(Day, EveryDifferenceHasExactlyOneNamedCause) {
    const int vendite = giornata(60);
    EXPECT_EQ(confronta(vendite).inspiegate, 0);
}

TEST_F(Day, EveryReceiptThatIsNoSalesHasExactlyOneNamedCause) {
    giornata(60);
    const Conteggio conto = confrontaCarta();
    EXPECT_EQ(conto.inspiegate, 0);
    EXPECT_FALSE(conto.diverse.empty());
}

TEST_F(Day, EverySaleThatDiffersIsOnTheListAndNoOtherOneThatHadNoFault) {
    const int vendite = giornata(60);
    for (int i = 1; i <= vendite; ++i) {
        EXPECT_TRUE(concorda(i) || elencata(i))
            << "sale " << i << " is missing, cause " << (cause.contains(i) ? nomeCausa(cause.at(i)) : "none");
        EXPECT_FALSE(tranquille.contains(i) && elencata(i)) << "sale " << i << " is listed";
    }
}

TEST_F(Day, EachCauseMakesADifference) {
    for (int causa = 1; causa < numeroCause; ++causa) {
        vendeConGuasto(static_cast<Causa>(causa));
        if (HasFatalFailure()) return;
    }
    const Conteggio conto = confronta(vendute());
    for (int causa = 1; causa < numeroCause; ++causa) {
        const auto trovata = conto.diverse.find(static_cast<Causa>(causa));
        EXPECT_TRUE(trovata != conto.diverse.end()) << nomeCausa(static_cast<Causa>(causa));
    }
}

TEST_F(Day, FaultsThatTheLinkCopesWithLeaveEveryReceiptOnceAndInOrder) {
    constexpr int vendite = 36;
    for (int i = 0; i < vendite && !HasFatalFailure(); ++i) {
        vendeConDisturbo(i % 6);
    }
    std::vector<QStringList> attesi;
    for (int i = 1; i <= vendite; ++i) {
        attesi.push_back({QString::number(i)});
    }
    EXPECT_EQ(rotolo.scontrini(), attesi);
}

TEST_F(DayLong, AThousandSalesWithRandomFaults) {
    const int vendite = giornata(1000);
    const Conteggio conto = confronta(vendite);
    std::cout << vendite << " sales, " << conto.uguali << " as they should be\n";
    for (const auto& [causa, quante] : conto.diverse) {
        std::cout << "  " << nomeCausa(causa) << ": " << quante << "\n";
    }
    const Conteggio carta = confrontaCarta();
    std::cout << rotolo.scontrini().size() << " receipts, " << carta.uguali << " of one sale each\n";
    for (const auto& [causa, quanti] : carta.diverse) {
        std::cout << "  " << nomeCausa(causa) << ": " << quanti << "\n";
    }
    EXPECT_EQ(conto.inspiegate, 0);
    EXPECT_EQ(carta.inspiegate, 0);
    EXPECT_EQ(conto.diverse.size(), numeroCause - 1u);
}

TEST_F(DayLong, AThousandSalesWithFaultsThatTheLinkCopesWith) {
    constexpr int vendite = 1000;
    for (int i = 0; i < vendite && !HasFatalFailure(); ++i) {
        vendeConDisturbo(std::uniform_int_distribution<int>(0, 5)(dado));
    }
    ASSERT_EQ(rotolo.scontrini().size(), static_cast<size_t>(vendite));
    for (int i = 1; i <= vendite; ++i) {
        ASSERT_EQ(rotolo.scontrini()[static_cast<size_t>(i - 1)], QStringList{QString::number(i)});
    }
}
