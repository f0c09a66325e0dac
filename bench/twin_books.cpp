#include "twin_books.h"

#include <algorithm>
#include <chrono>
#include <ctime>

#include <QFile>

#include "core/numbers.h"
#include "data/gateway.h"
#include "sale/recall.h"

namespace {

using Orologio = std::chrono::steady_clock;

double secondiProcessore() {
    timespec ora{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ora);
    return static_cast<double>(ora.tv_sec) + static_cast<double>(ora.tv_nsec) * 1e-9;
}

class Cronometro {
  public:
    void leggi(double& secondi, double& processore) const {
        secondi = std::chrono::duration<double>(Orologio::now() - mInizio).count();
        processore = secondiProcessore() - mProcessore;
    }

  private:
    Orologio::time_point mInizio = Orologio::now();
    double mProcessore = secondiProcessore();
};

double mediano(std::vector<double> valori) {
    std::sort(valori.begin(), valori.end());
    return valori.empty() ? 0 : valori[valori.size() / 2];
}

}  // namespace

LibriGemelli::LibriGemelli(const MisureNegozio* misure)
    : mTill(misure == nullptr ? std::make_unique<TillDimostrativa>()
                              : std::make_unique<TillDimostrativa>(*misure)) {
    gAdo.chiudiConnessioniCalde();
    const QString copia = mCartella.filePath("gemello.mdb");
    if (!QFile::copy(mTill->archivio(), copia)) qFatal("copia");
    mNude = std::make_unique<IstruzioniNude>(copia);
}

void LibriGemelli::prepara(int righe) {
    conto().tasto(Qt::Key_F2);
    // A product that stands there already would only grow.
    while (vendita().flxVB.ultima() < righe)
        conto().scansiona(mTill->barcode(mDaBarcode++));
}

void LibriGemelli::richiama() {
    showVendita(vendita(), vendita().rid(), -1, valIntero(vendita().txtSottoProg.testo()), -1);
}

LibriGemelli::Tempi LibriGemelli::esegui(const std::function<bool()>& azione) {
    Tempi t{};
    const int pausePrima = TillDimostrativa::pause();
    const QStringList viste = TillDimostrativa::istruzioni([&] {
        const Cronometro cronometro;
        if (!azione()) qFatal("non scritta");
        cronometro.leggi(t.till, t.tillCpu);
    });
    const auto testi = IstruzioniNude::inUtf8(viste);
    const Cronometro cronometro;
    mNude->esegui(testi);
    cronometro.leggi(t.nude, t.nudeCpu);
    t.istruzioni = static_cast<double>(viste.size());
    t.pause = TillDimostrativa::pause() - pausePrima;
    return t;
}

void LibriGemelli::misura(benchmark::State& stato, const std::function<bool()>& azione) {
    mTempi.push_back(esegui(azione));
    stato.SetIterationTime(mTempi.back().till);
}

void LibriGemelli::mostra(benchmark::State& stato, int righe) {
    const auto diTutti = [&](auto&& quale) {
        std::vector<double> valori;
        for (const Tempi& t : mTempi)
            valori.push_back(quale(t));
        return mediano(std::move(valori));
    };
    const double till = diTutti([](const Tempi& t) { return t.till; });
    stato.counters["till_us"] = till * 1e6;
    stato.counters["nude_us"] = diTutti([](const Tempi& t) { return t.nude; }) * 1e6;
    stato.counters["rapporto"] = diTutti([](const Tempi& t) { return t.till / t.nude; });
    stato.counters["rapporto_cpu"] = diTutti([](const Tempi& t) { return t.tillCpu / t.nudeCpu; });
    const double istruzioni = diTutti([](const Tempi& t) { return t.istruzioni; });
    stato.counters["istruzioni"] = istruzioni;
    stato.counters["per_riga"] = istruzioni / righe;
    constexpr double secondiPausa = 0.015;
    const double pausa = diTutti([](const Tempi& t) { return t.pause; }) * secondiPausa;
    if (pausa > 0) stato.counters["quota_pausa"] = pausa / (pausa + till);
}
