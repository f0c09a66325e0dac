#pragma once

#include <map>
#include <random>
#include <set>

#include "register/shop_with_register.h"

// Why a sale and its receipt may differ, by the design of the link.
enum class Causa {
    Nessuna,
    Scollegato,
    Sospeso,
    Annullato,
    DueRisposteInUna,
    ErroreSpezzato,
    ErroreDietroAck,
    DueInVolo,
    DialogoChiuso,
    RiprovaDueConti,
    RollbackDopo,
};
constexpr int numeroCause = 11;

// A paper roll: the receipts that a register has printed, as its peer understands the frames.
class RotoloDiCarta {
  public:
    // A frame that the register took.
    void stampa(const QByteArray& cornice);
    // Quantities of the rows of each receipt that was closed by a total, receipt by receipt.
    const std::vector<QStringList>& scontrini() const { return mScontrini; }
    // The fault under which each of them came out.
    const std::vector<Causa>& cause() const { return mCause; }
    Causa causaInForza = Causa::Nessuna;

  private:
    QStringList mRighe;
    std::vector<QStringList> mScontrini;
    std::vector<Causa> mCause;
};

// A day of sales of one row each, told apart by their quantity: sale number i sells i pieces.
class Giornata : public NegozioConRegistratore {
  protected:
    Giornata();

    // Rings up the next sale and presses F5; answers its number.
    int vende();
    void vendeConGuasto(Causa causa);
    // A sale under a fault that the link copes with.
    void vendeConDisturbo(int disturbo);
    // The peer takes and prints every frame from now on, and what waits goes out.
    void rimettiInOrdine();
    bool registrata(int vendita) const;
    int stampata(int vendita) const;
    int vendute() const { return mVendite; }

    RotoloDiCarta rotolo;
    std::map<int, Causa> cause;  // by sale
    std::set<int> tranquille;    // sales under no fault, and with no older answer missing
    // --gtest_shuffle --gtest_random_seed=N tries another day.
    std::mt19937 dado{20260316U + static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed())};

  private:
    QByteArray accetta(const QByteArray& cornice);
    // The n-th frame from now on gets that answer and is not printed, the others are accepted.
    void allaCornice(int n, const QByteArray& risposta);
    int aCaso(int da, int a) { return std::uniform_int_distribution<int>(da, a)(dado); }
    void attendiFrame(int quante);
    void spingiConUnAltra();
    // The next sale differs from its receipt by that cause.
    void guasta(Causa causa);
    void vendeSenzaGuasto();
    void guastoScollegato();
    void guastoSospeso();
    void guastoAnnullato();
    void guastoDueRisposteInUna();
    void guastoErroreSpezzato();
    void guastoErroreDietroAck();
    void guastoDueInVolo();
    void guastoDialogoChiuso();
    void guastoRiprovaDueConti();
    void guastoRollbackDopo();

    int mVendite = 0;
    bool mRispostaPersa = false;  // a frame of the sale before never gets its answer
};
