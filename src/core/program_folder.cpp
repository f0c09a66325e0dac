#include "core/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace {

QString cartellaDelProgramma;
QString cartellaDiLavoro;

bool siScriveIn(const QString& cartella) {
    if (cartella.isEmpty()) return false;
    QTemporaryFile prova(cartella + "/.prova-XXXXXX");
    return prova.open();
}

}  // namespace

QString cartellaProgramma() {
    return cartellaDelProgramma.isEmpty() ? QCoreApplication::applicationDirPath() : cartellaDelProgramma;
}

QString cartellaScrivibile() {
    if (cartellaDiLavoro.isEmpty()) cartellaDiLavoro = scegliCartellaScrivibile(cartellaProgramma());
    return cartellaDiLavoro;
}

QString scegliCartellaScrivibile(const QString& programma) {
    if (siScriveIn(programma)) return programma;
    const QString cartella =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Bottegon";
    QDir().mkpath(cartella);
    return cartella;
}

void impostaCartellaProgramma(const QString& cartella) {
    cartellaDelProgramma = cartella;
    cartellaDiLavoro = cartella;
}
