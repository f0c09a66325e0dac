#include "register/monitor.h"

#include "register/frames.h"

namespace {

const char* const fineRiga = "\r\n";
constexpr qsizetype caratteriFineRiga = 2;

qsizetype peso(const QString& riga) {
    return (riga.size() + caratteriFineRiga) * static_cast<qsizetype>(sizeof(QChar));
}

}  // namespace

void MonitorRegCassa::scriviMonitor(const QString& testo, bool forzata) {
    if (!mAcceso && !forzata) return;
    QString riga = conNomi(testo);
    riga.truncate(mLimite / static_cast<qsizetype>(sizeof(QChar)) - caratteriFineRiga);
    mByte += peso(riga);
    mRighe.push_back(riga);
    int tolte = 0;
    for (; mByte > mLimite; ++tolte) {
        mByte -= peso(mRighe.front());
        mRighe.pop_front();
    }
    if (mOsservatore) mOsservatore(riga, tolte);
}

QString MonitorRegCassa::testo() const {
    QString tutto;
    tutto.reserve(mByte / static_cast<qsizetype>(sizeof(QChar)));
    for (const QString& riga : mRighe) {
        tutto += riga;
        tutto += fineRiga;
    }
    return tutto;
}
