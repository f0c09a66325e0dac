#pragma once

#include <atomic>
#include <thread>

// A line to the server that can be cut: it passes on what both sides say, and at a commit it can fail.
class LineaTagliabile {
  public:
    enum class Guasto {
        Nessuno,
        PrimaDelCommit,  // the commit does not reach the server
        DopoIlCommit,    // its answer does not reach the till
    };

    explicit LineaTagliabile(int portaServer);
    ~LineaTagliabile();
    LineaTagliabile(const LineaTagliabile&) = delete;
    LineaTagliabile& operator=(const LineaTagliabile&) = delete;

    int porta() const { return mPorta; }
    // What happens at the next commit, and whether the line stays dead after it.
    void guasta(Guasto guasto, bool restaInterrotta);
    void ripristina() { mInterrotta = false; }
    bool accaduto() const { return mAccaduto; }

  private:
    struct Coppia;
    void servi();
    void accetta();
    bool passa(Coppia& coppia, int da);
    bool taglia(Coppia& coppia, const char* dati, long quanti);

    const int mPortaServer;
    int mAscolto;
    int mPorta = 0;
    std::atomic<Guasto> mGuasto{Guasto::Nessuno};
    std::atomic<bool> mRestaInterrotta{false};
    std::atomic<bool> mInterrotta{false};
    std::atomic<bool> mAccaduto{false};
    std::atomic<bool> mFine{false};
    struct Coppie;
    Coppie* mCoppie;
    std::thread mFilo;
};
