#include "data/disk.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

namespace {

Disco* discoInForza = nullptr;

}  // namespace

bool Disco::scarica(int file) {
    return ::fdatasync(file) == 0;
}

bool Disco::scaricaCartellaDi(const QString& file) {
    const QByteArray cartella = QFile::encodeName(QFileInfo(file).absolutePath());
    const int aperta = ::open(cartella.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (aperta < 0) return false;
    // A file system that has no such call for folders keeps their names by itself.
    const bool scaricata = ::fsync(aperta) == 0 || errno == EINVAL || errno == ENOTSUP;
    ::close(aperta);
    return scaricata;
}

Disco& disco() {
    static Disco macchina;
    return discoInForza != nullptr ? *discoInForza : macchina;
}

void impostaDisco(Disco* disco) {
    discoInForza = disco;
}
