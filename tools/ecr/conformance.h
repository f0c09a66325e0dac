#pragma once

#include <functional>
#include <vector>

#include <QByteArray>
#include <QString>

// Drives an interface program as a till would, and says what it does wrong.
class Conformita {
  public:
    struct Esito {
        QString prova;
        QString difetto;  // empty: passed
    };

    // `attesa`: milliseconds that an answer may take.
    explicit Conformita(int porta, int attesa = 3000) : mPorta(porta), mAttesa(attesa) {}

    // All checks in order; `detto` hears of each as it ends. It prints short receipts, and says "OFF" last.
    std::vector<Esito> esegui(const std::function<void(const Esito&)>& detto = {});

  private:
    int mPorta;
    int mAttesa;
};
