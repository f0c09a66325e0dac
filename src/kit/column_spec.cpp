#include "kit/column_spec.h"

#include <QDateTime>
#include <QStringList>

#include "core/format.h"
#include "core/numbers.h"

namespace {

enum Parte { Titolo, Larghezza, Nome };

ColonnaElenco leggiColonna(const QString& pezzo) {
    const QStringList parti = pezzo.split(u'¤');
    ColonnaElenco colonna;
    colonna.titolo = parti.value(Titolo);
    if (!colonna.titolo.isEmpty() && QStringView(u"<>^").contains(colonna.titolo.front())) {
        colonna.allineata = colonna.titolo.front();
        colonna.titolo.remove(0, 1);
    }
    colonna.titolo = colonna.titolo.trimmed();
    colonna.larghezza = parti.value(Larghezza).toInt();
    colonna.campo = parti.value(Nome);
    return colonna;
}

}  // namespace

std::vector<ColonnaElenco> getAddInfoCOls(const QString& specifica) {
    std::vector<ColonnaElenco> colonne;
    for (const QString& pezzo : specifica.split('|')) {
        colonne.push_back(leggiColonna(pezzo));
    }
    return colonne;
}

QString testoCampo(const QVariant& valore) {
    switch (valore.typeId()) {
        case QMetaType::QDateTime:
            return Format(valore.toDateTime(), u"DD/MM/YYYY");
        case QMetaType::Double:
            return testoNumero(valore.toDouble());
        default:
            return valore.toString();
    }
}
