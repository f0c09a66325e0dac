#pragma once

#include <random>

#include "exact_pricing.h"

// Rows of every kind, each from a seed of its own: the seed alone brings a row back.
class RigheACaso {
  public:
    explicit RigheACaso(unsigned seme) : mCaso(seme) {}

    RigaEditor riga() {
        RigaEditor r;
        r.decimaliDopo = tra(0, 2) != 0 ? 2 : tra(0, 6);
        r.listino = importo();
        r.iva = aliquota();
        r.qta = quantita();
        for (Decimale& sconto : r.sconti) {
            sconto = percentuale();
        }
        r.prezzoRiga = importo();
        return r;
    }

    int tra(int da, int a) { return std::uniform_int_distribution<int>(da, a)(mCaso); }
    bool unaVoltaSu(int n) { return tra(1, n) == 1; }

    // Up to seven digits before the comma and six behind it; now and then negative or 0.
    Decimale importo() {
        if (unaVoltaSu(50)) return {0, 2};
        const int decimali = unaVoltaSu(3) ? tra(0, 6) : 2;
        Decimale d{0, decimali};
        const int cifre = tra(1, 7) + decimali;
        for (int i = 0; i < cifre; ++i) {
            d.cifre = d.cifre * 10 + tra(0, 9);
        }
        return segno(d, 15);
    }

    Decimale quantita() {
        if (unaVoltaSu(40)) return {0, 2};
        if (unaVoltaSu(2)) return segno({tra(1, 60), 0}, 8);
        const int decimali = unaVoltaSu(3) ? tra(0, 5) : 2;
        return segno({tra(1, 999999), decimali + (decimali < 2 ? 2 : 0)}, 8);
    }

  private:
    Decimale segno(Decimale d, int unaNegativaSu) {
        if (unaVoltaSu(unaNegativaSu)) d.cifre = -d.cifre;
        return d;
    }

    Decimale aliquota() {
        const int usuali[] = {0, 400, 500, 1000, 2200, 2000};
        if (!unaVoltaSu(4)) return {usuali[tra(0, 5)], 2};
        return {tra(0, 999999), 4};  // to 99,9999
    }

    Decimale percentuale() {
        switch (tra(0, 9)) {
            case 0:
            case 1:
                return {tra(0, 9999), 2};
            case 2:
                return {tra(0, 999999), 4};
            case 3:
                return {unaVoltaSu(20) ? 100 : tra(1, 99), 0};
            case 4:
                return {tra(-5000, 15000), 2};
            case 5:
            case 6:
                return {tra(1, 99), 0};
            default:
                return {0, 2};
        }
    }

    std::mt19937 mCaso;
};
