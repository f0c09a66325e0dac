#include <QCoreApplication>
#include <QTextStream>

#include "archivio/command_line.h"

int main(int argc, char* argv[]) {
    const QCoreApplication applicazione(argc, argv);
    QTextStream esito(stdout);
    return eseguiComando(QCoreApplication::arguments().mid(1), esito);
}
