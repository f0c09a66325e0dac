#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "data/disk.h"

// Counts what reaches the disk, and says when. It fails on demand: the contents of files, the names in
// folders.
class DiscoDiProva final : public Disco {
  public:
    DiscoDiProva() { impostaDisco(this); }
    ~DiscoDiProva() override { impostaDisco(nullptr); }
    DiscoDiProva(const DiscoDiProva&) = delete;
    DiscoDiProva& operator=(const DiscoDiProva&) = delete;

    bool scarica(int file) override { return conta(mFile, Disco::scarica(file) && !guastoDati); }
    bool scaricaCartellaDi(const QString& file) override {
        return conta(mCartelle, Disco::scaricaCartellaDi(file) && !guastoNomi);
    }
    int cartelle() {
        const std::lock_guard serratura(mSerratura);
        return mCartelle;
    }
    // Waits for the thread that brings records to the disk.
    bool aspettaCartelle(int quante) {
        std::unique_lock serratura(mSerratura);
        return mCambiato.wait_for(serratura, std::chrono::seconds(10), [&] { return mCartelle >= quante; });
    }

    std::atomic<bool> guastoDati = false;
    std::atomic<bool> guastoNomi = false;

  private:
    bool conta(int& contatore, bool esito) {
        const std::lock_guard serratura(mSerratura);
        ++contatore;
        mCambiato.notify_all();
        return esito;
    }

    std::mutex mSerratura;
    std::condition_variable mCambiato;
    int mFile = 0;
    int mCartelle = 0;
};
