#include "archivio/progress.h"

#include <algorithm>
#include <unistd.h>

#include <QTextStream>

namespace {

constexpr int millisecondiTraDisegni = 200;
constexpr int larghezza = 30;

}  // namespace

Avanzamento::Avanzamento(qint64 totale)
    : mTerminale(::isatty(STDERR_FILENO) != 0), mTotale(std::max<qint64>(totale, 1)) {
    mUltimoDisegno.start();
}

Avanzamento::~Avanzamento() {
    if (mTerminale) QTextStream(stderr) << "\r\033[K";
}

void Avanzamento::aggiungi(qint64 quante, const QString& cosa) {
    mFatte += quante;
    if (!mTerminale || mUltimoDisegno.elapsed() < millisecondiTraDisegni) return;
    mUltimoDisegno.restart();
    disegna(cosa);
}

void Avanzamento::disegna(const QString& cosa) const {
    const qint64 fatte = std::min(mFatte, mTotale);
    const auto piene = static_cast<qsizetype>(fatte * larghezza / mTotale);
    QTextStream(stderr) << "\r[" << QString('#').repeated(piene) << QString(' ').repeated(larghezza - piene)
                        << "] " << fatte * 100 / mTotale << "% " << cosa << "\033[K";
}
