#include "archivio/trial_mdb.h"

#include <gtest/gtest.h>

#include <QDir>

#include "archivio/trial_archive.h"

namespace {

constexpr char separatore = '\x1f';

QByteArray riga(const std::vector<QByteArray>& campi) {
    QByteArray testo;
    for (size_t i = 0; i < campi.size(); ++i) {
        if (i > 0) testo += separatore;
        testo += campi[i];
    }
    return testo + '\n';
}

}  // namespace

// What is asked for stands at the end: the file, and the table. The tables lie beside the file.
FileMdbFinto::FileMdbFinto() : mPath(qgetenv("PATH")) {
    scriviFile(percorso(), "");
    QDir().mkpath(percorso() + ".d");
    programma("mdb-tables", "for f; do :; done; ls -1 \"$f.d\"\n");
    programma("mdb-export",
              "[ \"$1 $3 $4 $5 $7\" = '-d -b strip -D -T' ] || { echo 'unexpected options' >&2; exit 2; }\n"
              "shift $(($# - 2)); exec cat \"$1.d/$2\"\n");
    qputenv("PATH", mCartella.path().toUtf8() + ":" + mPath);
}

FileMdbFinto::~FileMdbFinto() {
    qputenv("PATH", mPath);
}

void FileMdbFinto::programma(const QString& nome, const QByteArray& testo) {
    const QString file = mCartella.filePath(nome);
    scriviFile(file, "#!/bin/sh\n" + testo);
    EXPECT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void FileMdbFinto::tabella(const QString& nome, const std::vector<QByteArray>& colonne,
                           const std::vector<std::vector<QByteArray>>& righe) {
    QByteArray uscita = riga(colonne);
    for (const auto& campi : righe)
        uscita += riga(campi);
    grezza(nome, uscita);
}

void FileMdbFinto::grezza(const QString& nome, const QByteArray& uscita) {
    scriviFile(percorso() + ".d/" + nome, uscita);
}
