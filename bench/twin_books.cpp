#include "twin_books.h"

#include <algorithm>
#include <chrono>

#include <QFile>

#include "core/numbers.h"
#include "data/gateway.h"
#include "sale/recall.h"

namespace {

using Orologio = std::chrono::steady_clock;

double secondi(Orologio::time_point da) {
    return std::chrono::duration<double>(Orologio::now() - da).count();
}

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
        const auto inizio = Orologio::now();
        if (!azione()) qFatal("non scritta");
        t.till = secondi(inizio);
    });
    const auto testi = IstruzioniNude::inUtf8(viste);
    const auto inizio = Orologio::now();
    mNude->esegui(testi);
    t.nude = secondi(inizio);
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
    const double istruzioni = diTutti([](const Tempi& t) { return t.istruzioni; });
    stato.counters["istruzioni"] = istruzioni;
    stato.counters["per_riga"] = istruzioni / righe;
    constexpr double secondiPausa = 0.015;
    const double pausa = diTutti([](const Tempi& t) { return t.pause; }) * secondiPausa;
    if (pausa > 0) stato.counters["quota_pausa"] = pausa / (pausa + till);
}
