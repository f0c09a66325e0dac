#include "core/format.h"

#include <algorithm>

#include <QVarLengthArray>

#include "core/decimal_digits.h"
#include "core/run_time_error.h"

namespace {

// What a pattern asks for.
struct ModelloNumero {
    int interiMinimi = 0;    // shown with zeros in front
    int decimaliMinimi = 0;  // shown with zeros behind
    int decimaliMassimi = 0;
    bool virgola = false;
    bool migliaia = false;
};

ModelloNumero leggiModello(QStringView modello) {
    ModelloNumero letto;
    bool postoPrima = false;     // a digit place was seen
    bool separatoreFra = false;  // and a "," behind it
    for (const QChar c : modello) {
        if (c == u'.' && !letto.virgola) {
            letto.virgola = true;
        } else if (c == u',' && !letto.virgola) {
            separatoreFra = postoPrima;
        } else if (c == u'0' || c == u'#') {
            if (letto.virgola) {
                ++letto.decimaliMassimi;
                if (c == u'0') letto.decimaliMinimi = letto.decimaliMassimi;
            } else {
                postoPrima = true;
                letto.migliaia = letto.migliaia || separatoreFra;
                if (c == u'0' || letto.interiMinimi > 0) ++letto.interiMinimi;
            }
        } else {
            throw RunTimeError(RunTimeError::ChiamataNonValida);
        }
    }
    return letto;
}

QString formattaCifre(CifreDecimali cifre, QStringView testoModello) {
    const ModelloNumero modello = leggiModello(testoModello);
    cifre.arrotonda(modello.decimaliMassimi);

    QVarLengthArray<QChar, 64> testo;
    if (cifre.negativo()) testo += u'-';
    for (int posto = std::max(cifre.interi(), modello.interiMinimi) - 1; posto >= 0; --posto) {
        testo += cifre.cifra(posto);
        if (modello.migliaia && posto > 0 && posto % 3 == 0) testo += u'.';
    }
    if (modello.virgola) testo += u',';
    const int decimali = std::max(cifre.decimali(), modello.decimaliMinimi);
    for (int posto = -1; posto >= -decimali; --posto)
        testo += cifre.cifra(posto);
    return QString(testo.constData(), testo.size());
}

QString aDueCifre(int valore) {
    return QString::number(valore).rightJustified(2, u'0');
}

// One run of the same letter of a date pattern; empty when it stands for itself.
QString campoData(QChar lettera, qsizetype lunghezza, bool dopoOre, QDate data, QTime ora) {
    const auto numero = [lunghezza](int valore) {
        return lunghezza == 1 ? QString::number(valore) : aDueCifre(valore);
    };
    if (lettera == u'y' && lunghezza == 4) return QString::number(data.year()).rightJustified(4, u'0');
    if (lettera == u'y' && lunghezza == 2) return aDueCifre(data.year() % 100);
    if (lunghezza > 2) return {};
    switch (lettera.unicode()) {
        case u'd':
            return numero(data.day());
        case u'm':
            return numero(dopoOre ? ora.minute() : data.month());
        case u'h':
            return numero(ora.hour());
        case u'n':
            return numero(ora.minute());
        case u's':
            return numero(ora.second());
        default:
            return {};
    }
}

QString formattaData(QDate data, QTime ora, QStringView modello) {
    if (!data.isValid()) return {};
    QString testo;
    bool dopoOre = false;
    for (qsizetype i = 0; i < modello.size();) {
        const QChar lettera = modello[i].toLower();
        qsizetype fine = i + 1;
        while (fine < modello.size() && modello[fine].toLower() == lettera)
            ++fine;

        const QString campo = campoData(lettera, fine - i, dopoOre, data, ora);
        if (campo.isEmpty()) {
            testo += modello.mid(i, fine - i);
        } else {
            testo += campo;
            dopoOre = lettera == u'h';
        }
        i = fine;
    }
    return testo;
}

}  // namespace

QString Format(double valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), modello);
}

QString Format(float valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), modello);
}

QString Format(Currency valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), modello);
}

QString Format(qint64 valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), modello);
}

QString Format(const QDateTime& valore, QStringView modello) {
    return formattaData(valore.date(), valore.time(), modello);
}

QString Format(QDate valore, QStringView modello) {
    return formattaData(valore, QTime(0, 0), modello);
}
