#include "ecr/journal.h"

#include <algorithm>

#include <QDir>
#include <QSaveFile>

int Giornale::prossimoNumero() const {
    int ultimo = 0;
    for (const QString& nome : QDir(mCartella).entryList({"*_*.txt"}, QDir::Files)) {
        ultimo = std::max(ultimo, nome.section(u'_', -1).chopped(4).toInt());
    }
    return ultimo + 1;
}

QString Giornale::percorso(const Scontrino& scontrino) const {
    return mCartella + "/" + scontrino.ora.toString("yyyy-MM-dd") + "_" +
           QString::number(scontrino.numero).rightJustified(4, u'0') + ".txt";
}

bool Giornale::scrivi(const Scontrino& scontrino) const {
    QDir().mkpath(mCartella);
    QSaveFile file(percorso(scontrino));
    return file.open(QIODevice::WriteOnly) &&
           file.write((striscia(scontrino).join(u'\n') + u'\n').toUtf8()) > 0 && file.commit();
}
