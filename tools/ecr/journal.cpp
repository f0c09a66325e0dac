#include "ecr/journal.h"

#include <algorithm>

#include <QDir>
#include <QFile>

namespace {

bool scriviTutto(QFile& file, const QByteArray& testo) {
    return file.write(testo) == testo.size() && file.flush();
}

}  // namespace

int Giornale::prossimoNumero() const {
    int ultimo = 0;
    for (const QString& nome : QDir(mCartella).entryList({"*_*.txt"}, QDir::Files)) {
        ultimo = std::max(ultimo, nome.section(u'_', -1).chopped(4).toInt());
    }
    return ultimo + 1;
}

QString Giornale::percorso(const Scontrino& scontrino, const QString& copia) const {
    return mCartella + "/" + scontrino.ora.toString("yyyy-MM-dd") + "_" +
           QString::number(scontrino.numero).rightJustified(4, u'0') + copia + ".txt";
}

bool Giornale::scrivi(const Scontrino& scontrino) const {
    QDir().mkpath(mCartella);
    QFile file(percorso(scontrino));
    for (int copia = 2; !file.open(QIODevice::WriteOnly | QIODevice::NewOnly); ++copia) {
        if (!file.exists()) return false;
        file.setFileName(percorso(scontrino, "-" + QString::number(copia)));
    }
    if (scriviTutto(file, (striscia(scontrino).join(u'\n') + u'\n').toUtf8())) return true;
    file.remove();
    return false;
}
