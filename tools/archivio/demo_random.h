#pragma once

#include <vector>

#include <QtGlobal>

// A small generator of our own, so that a seed means the same shop on every machine and library.
class Casuale {
  public:
    explicit Casuale(quint64 seme) : mStato(seme) {}

    quint64 prossimo() {
        mStato += 0x9E3779B97F4A7C15ULL;
        quint64 z = mStato;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    // From `minimo` to `massimo`, both included.
    int tra(int minimo, int massimo) {
        return minimo + static_cast<int>(prossimo() % static_cast<quint64>(massimo - minimo + 1));
    }
    bool percento(int probabilita) { return tra(1, 100) <= probabilita; }
    template <typename T>
    const T& uno(const std::vector<T>& elenco) {
        return elenco[static_cast<size_t>(tra(0, static_cast<int>(elenco.size()) - 1))];
    }

  private:
    quint64 mStato;
};
