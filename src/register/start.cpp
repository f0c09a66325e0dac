#include "register/start.h"

#include <QFileInfo>
#include <QProcess>

#include "core/globals.h"
#include "register/interface_link.h"

void setRegCassa(OperatorPort& operatore) {
    impostaCollegamentoRegCassa(&gFrmRegCassa());
    if (!gRegCassa.isEmpty()) gFrmRegCassa().startMe(operatore, &avviaInterfaccia);
}

bool avviaInterfaccia(const QString& percorso) {
    QProcess programma;
    programma.setProgram(percorso);
    // What it says belongs to no terminal of the till.
    programma.setStandardOutputFile(QProcess::nullDevice());
    programma.setStandardErrorFile(QProcess::nullDevice());
    qint64 numero = 0;
    return QFileInfo(percorso).isExecutable() && programma.startDetached(&numero) && numero > 0;
}
