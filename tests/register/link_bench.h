#pragma once

#include <deque>
#include <gtest/gtest.h>

#include "core/globals.h"
#include "register/failure.h"
#include "register/interface_link.h"
#include "register/peer.h"

// The operator before the failure dialogue: answers as told, and fails the test when it comes unexpected.
class DialoghiScritti final : public DialoghiRegCassa {
  public:
    DialoghiScritti() { impostaDialoghiRegCassa(this); }
    ~DialoghiScritti() override {
        impostaDialoghiRegCassa(nullptr);
        EXPECT_TRUE(mAttesi.empty()) << "failure dialogues that never came: " << mAttesi.size();
    }
    DialoghiScritti(const DialoghiScritti&) = delete;
    DialoghiScritti& operator=(const DialoghiScritti&) = delete;

    // `prima` runs while the dialogue is up.
    void attendi(Scelta scelta, std::function<void()> prima = {}) {
        mAttesi.push_back({scelta, std::move(prima)});
    }
    // All that were foreseen have come.
    bool esauriti() const { return mAttesi.empty(); }
    // Answers to all dialogues that were not foreseen.
    std::function<Scelta()> altrimenti;

    Scelta errore(const QString& descrizione, const QString& buffer) override {
        descrizioni << descrizione;
        buffers << buffer;
        if (mAttesi.empty()) {
            if (altrimenti) return altrimenti();
            ADD_FAILURE() << "unexpected failure dialogue: " << descrizione.toStdString();
            return Nessuna;
        }
        const Atteso atteso = std::move(mAttesi.front());
        mAttesi.pop_front();
        if (atteso.prima) atteso.prima();
        return atteso.scelta;
    }
    void mostraMonitor() override { ++monitorMostrato; }

    QStringList descrizioni;
    QStringList buffers;
    int monitorMostrato = 0;

  private:
    struct Atteso {
        Scelta scelta;
        std::function<void()> prima;
    };
    std::deque<Atteso> mAttesi;
};

// A link of its own, connected to the test's peer, with one screen that hears of its failures.
class Collegato : public testing::Test {
  protected:
    Collegato() {
        gTCPPort = peer.porta();
        gRegCassa = "Prova";
        impostaFrmRegCassa(&link);
        link.monitor.acceso(true);
        QObject::connect(&link.eventi, &EventiRegCassa::evtError, &schermo,
                         [this](int codice, const QString& d) { mFrmRegCassa_evtError(link, codice, d); });
    }
    ~Collegato() override {
        impostaFrmRegCassa(nullptr);
        ripristinaGlobali();
    }

    void connetti() {
        link.connetti();
        ASSERT_TRUE(diventa([this] { return link.statoConnessione() && peer.collegato(); }));
    }
    // Every command was answered and nothing waits.
    bool finito() const { return link.Buffer().isEmpty() && link.stato() == StatoRegCassa::Pronto; }
    QStringList righe() const {
        QStringList tutte;
        for (const QString& riga : link.monitor.righe()) {
            tutte << riga;
        }
        return tutte;
    }

    PeerDiProva peer;
    InterfacciaRegCassa link;
    DialoghiScritti dialoghi;
    QObject schermo;
};
