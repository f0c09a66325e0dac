#include "data/append_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

#include "data/disk.h"

namespace {

constexpr qsizetype cifreControllo = 4;

QByteArray controllo(const QByteArray& record) {
    return QByteArray::number(qChecksum(record), 16).rightJustified(cifreControllo, '0');
}

// The record of a line; a null one when the line is not whole.
QByteArray recordDi(const QByteArray& riga) {
    if (!riga.endsWith('\n') || riga.size() < cifreControllo + 2 || riga[cifreControllo] != ' ') return {};
    const QByteArray record = riga.mid(cifreControllo + 1).chopped(1);
    return controllo(record) == riga.left(cifreControllo) ? record : QByteArray();
}

bool scriviTutto(int file, const QByteArray& dati) {
    qsizetype scritti = 0;
    while (scritti < dati.size()) {
        const ssize_t n =
            ::write(file, dati.constData() + scritti, static_cast<size_t>(dati.size() - scritti));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        scritti += n;
    }
    return true;
}

}  // namespace

RegistroAppeso::RegistroAppeso(QString percorso)
    : mPercorso(std::move(percorso)), mScarico([this](const std::stop_token& fine) { lavora(fine); }) {}

RegistroAppeso::~RegistroAppeso() {
    mScarico.request_stop();
    mScarico.join();
    chiudi();
}

QList<QByteArray> RegistroAppeso::leggi(const QString& percorso) {
    QList<QByteArray> record;
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly)) return record;
    while (!file.atEnd()) {
        const QByteArray letto = recordDi(file.readLine());
        if (letto.isNull()) break;
        record << letto;
    }
    return record;
}

bool RegistroAppeso::apri() {
    if (mFile >= 0) return true;
    const QByteArray percorso = QFile::encodeName(mPercorso);
    mFile =
        ::open(percorso.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR);
    mLunghezza = 0;
    mScaricoFallito = false;
    if (mFile >= 0) ++mNomi;
    return mFile >= 0;
}

bool RegistroAppeso::aggiungi(const QByteArray& record) {
    const std::lock_guard serratura(mSerratura);
    if (!apri()) return false;
    const QByteArray riga = controllo(record) + ' ' + record + '\n';
    if (!scriviTutto(mFile, riga)) {
        // Half a line would hide whatever comes after it.
        [[maybe_unused]] const int esito = ::ftruncate(mFile, mLunghezza);
        return false;
    }
    mLunghezza += riga.size();
    mDaScaricare = true;
    mSveglia.notify_one();
    return true;
}

EsitoScarico RegistroAppeso::sincronizza() {
    std::unique_lock serratura(mSerratura);
    mSveglia.wait(serratura, [this] { return !mScaricoInCorso; });
    if (mFile < 0) return EsitoScarico::Fatto;
    mDaScaricare = false;
    if (!disco().scarica(mFile)) mScaricoFallito = true;
    if (mNomiSuDisco != mNomi && disco().scaricaCartellaDi(mPercorso)) mNomiSuDisco = mNomi;
    if (mScaricoFallito) return EsitoScarico::DatiRifiutati;
    return mNomiSuDisco == mNomi ? EsitoScarico::Fatto : EsitoScarico::NomeRifiutato;
}

void RegistroAppeso::elimina() {
    const std::lock_guard serratura(mSerratura);
    chiudi();
    if (!QFile::remove(mPercorso)) return;
    ++mNomi;
    mDaScaricare = true;
    mSveglia.notify_one();
}

void RegistroAppeso::chiudi() {
    if (mFile >= 0) ::close(mFile);
    mFile = -1;
    mDaScaricare = false;
}

// Whoever writes is not held up meanwhile: the disk is waited for on a handle of this thread's own.
void RegistroAppeso::lavora(const std::stop_token& fine) {
    std::unique_lock serratura(mSerratura);
    while (mSveglia.wait(serratura, fine, [this] { return mDaScaricare; })) {
        mDaScaricare = false;
        mScaricoInCorso = true;
        const int nomi = mNomi;
        const bool nomeNuovo = mNomiSuDisco != nomi;
        const int copia = mFile < 0 ? -1 : ::fcntl(mFile, F_DUPFD_CLOEXEC, 0);
        serratura.unlock();
        bool scaricato = true;
        if (copia >= 0) {
            scaricato = disco().scarica(copia);
            ::close(copia);
        }
        const bool nomeScaricato = nomeNuovo && disco().scaricaCartellaDi(mPercorso);
        serratura.lock();
        if (!scaricato && nomi == mNomi) mScaricoFallito = true;
        if (nomeScaricato) mNomiSuDisco = nomi;
        mScaricoInCorso = false;
        mSveglia.notify_all();
    }
}
