#include "ecr/frame_reader.h"

namespace {

constexpr char stx = 2;
constexpr char etx = 3;

// A checksum has two digits, or one when the sum is below 10.
LettoreCornici::Cornice esamina(const QByteArray& dentro) {
    for (const qsizetype cifre : {2, 1}) {
        if (dentro.size() < cifre) continue;
        const QByteArray corpo = dentro.chopped(cifre);
        if (controllo(corpo) == dentro.right(cifre)) return {corpo, true};
    }
    return {dentro, false};
}

}  // namespace

QByteArray controllo(const QByteArray& corpo) {
    quint64 somma = 0;
    for (const char c : corpo) {
        somma += static_cast<unsigned char>(c);
    }
    return QByteArray::number(somma).right(2);
}

QByteArray cornice(const QByteArray& corpo) {
    return stx + corpo + controllo(corpo) + etx;
}

QList<LettoreCornici::Cornice> LettoreCornici::leggi(const QByteArray& byte) {
    QList<Cornice> complete;
    mResto += byte;
    for (;;) {
        const qsizetype inizio = mResto.indexOf(stx);
        mResto.remove(0, inizio < 0 ? mResto.size() : inizio);
        const qsizetype fine = mResto.indexOf(etx);
        if (fine < 0) break;
        complete << esamina(mResto.mid(1, fine - 1));
        mResto.remove(0, fine + 1);
    }
    if (mResto.size() > massimo) mResto.clear();
    return complete;
}
