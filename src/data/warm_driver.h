#pragma once

#include <algorithm>
#include <vector>

#include "data/server_driver.h"

// A server type whose connections are kept open between operations, so that an operation costs no
// handshake. `C` is the connection: C::luogoDi(stringa) names the place that a connection string points to,
// C::apri(luogo, secondi, errore) opens one there, luogo() is where it was opened, ancoraValida() tells
// whether it may be given out again, and daTenere() whether it may be kept.
template <class C>
class DriverCaldo final : public ServerDriver {
  public:
    std::unique_ptr<Connessione> apri(const QString& stringaConnessione, int secondi,
                                      const AttesaServer& attesa, ErroreServer& errore) override {
        const QString& luogo = luogoDi(stringaConnessione);
        std::unique_ptr<C> connessione = prendiCalda(luogo);
        if (!connessione) connessione = C::apri(luogo, secondi, errore);
        if (connessione) connessione->impostaAttesa(attesa);
        return connessione;
    }

    void restituisci(std::unique_ptr<Connessione> connessione) override {
        auto* nostra = dynamic_cast<C*>(connessione.get());
        if (nostra == nullptr || mCalde.size() >= caldeMassime || !nostra->daTenere()) return;
        connessione.release();
        mCalde.emplace_back(nostra);
    }

    void chiudi() override { mCalde.clear(); }

  private:
    // More than nested reads ever need at once.
    static constexpr size_t caldeMassime = 4;

    // The string is the same one operation after another.
    const QString& luogoDi(const QString& stringaConnessione) {
        if (stringaConnessione != mStringa) {
            mStringa = stringaConnessione;
            mLuogo = C::luogoDi(stringaConnessione);
        }
        return mLuogo;
    }

    // The newest one to that place. Where it does not work any more, neither do the older ones; those to
    // another place are of settings that are no longer in force.
    std::unique_ptr<C> prendiCalda(const QString& luogo) {
        std::erase_if(mCalde, [&](const auto& calda) { return calda->luogo() != luogo; });
        if (mCalde.empty()) return nullptr;
        auto calda = std::move(mCalde.back());
        mCalde.pop_back();
        if (calda->ancoraValida()) return calda;
        mCalde.clear();
        return nullptr;
    }

    std::vector<std::unique_ptr<C>> mCalde;
    QString mStringa;
    QString mLuogo;
};
