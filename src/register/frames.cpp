#include "register/frames.h"

#include <limits>
#include <numeric>

#include <QStringList>

#include "core/errors.h"
#include "register/ansi_text.h"

namespace {

const char* const comandoInizio = "RST";
constexpr int nessunaFine = 9999;

// From 1; 0 when the text does not hold the mark.
int posizione(const QString& testo, QChar segno) {
    const qsizetype trovata = testo.indexOf(segno) + 1;
    if (trovata > std::numeric_limits<qint16>::max()) throw RunTimeError(RunTimeError::Overflow);
    return static_cast<int>(trovata);
}

int fineCornice(const QString& testo) {
    const int ack = posizione(testo, mACK);
    int fine = ack > 0 ? ack : nessunaFine;
    for (const QChar segno : {mNAK, mETX}) {
        const int trovata = posizione(testo, segno);
        if (trovata >= 1 && trovata < fine) fine = trovata;
    }
    return fine == nessunaFine ? 0 : fine;
}

}  // namespace

QString getCKS(const QString& testo) {
    return protetto(
        moduloFrmRegCassa, "getCKS",
        [&] {
            const QByteArray byte = inAnsi(testo);
            const qint64 somma = std::accumulate(byte.begin(), byte.end(), qint64{0}, [](qint64 s, char b) {
                return s + static_cast<unsigned char>(b);
            });
            if (somma > std::numeric_limits<qint32>::max()) throw RunTimeError(RunTimeError::Overflow);
            return QString::number(somma).right(2);
        },
        QString());
}

QString cornice(const QString& comando) {
    return mSTX + comando + getCKS(comando) + mETX;
}

QString corniciDi(const QString& comandi) {
    QString cornici = cornice(comandoInizio);
    if (comandi.isEmpty()) return cornici;
    const QStringList pezzi = comandi.split(mSepComandi);
    if (pezzi.size() == 1) return {};
    for (const QString& pezzo : pezzi) {
        cornici += cornice(pezzo);
    }
    return cornici;
}

qsizetype numeroCornici(const QString& cornici) {
    return cornici.count(mETX) + cornici.count(mACK) + cornici.count(mNAK);
}

int getPosEOB(const QString& testo) {
    if (testo.isEmpty()) return 0;
    return protetto(
        moduloFrmRegCassa, "getPosEOB", [&] { return fineCornice(testo); }, 0);
}

QString conNomi(QString testo) {
    return testo.replace(mSTX, "<STX>").replace(mETX, "<ETX>").replace(mACK, "<ACK>").replace(mNAK, "<NAK>");
}
