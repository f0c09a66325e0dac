#include "core/format.h"

#include <algorithm>

#include <QVarLengthArray>

#include "core/decimal_digits.h"
#include "core/run_time_error.h"

namespace {

using Scritto = QVarLengthArray<QChar, 64>;

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

QString formattaCifre(CifreDecimali cifre, const ModelloNumero& modello) {
    cifre.arrotonda(modello.decimaliMassimi);

    Scritto testo;
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

template <class Numero>
QString formattaMigliaia(Numero valore, int decimali) {
    const int posti = std::max(decimali, 0);
    if (valore != Numero()) return formattaCifre(CifreDecimali(valore), {1, posti, posti, true, true});
    // Most discounts of a sale are none.
    QString zero(2 + posti, u'0');
    zero[1] = u',';
    return zero;
}

// A number of at least so many digits.
void scrivi(Scritto& testo, int valore, int cifre) {
    int potenza = 1;
    for (; cifre > 1 || valore / potenza >= 10; --cifre)
        potenza *= 10;
    for (; potenza > 0; potenza /= 10)
        testo += QChar(u'0' + valore / potenza % 10);
}

// One run of the same letter of a date pattern; false when it stands for itself.
bool scriviCampoData(Scritto& testo, QChar lettera, qsizetype lunghezza, bool dopoOre, QDate data,
                     QTime ora) {
    const bool anno = lettera == u'y' && (lunghezza == 2 || lunghezza == 4);
    if (lettera == u'y' ? !anno : lunghezza > 2) return false;
    const auto numero = [&](int valore) {
        scrivi(testo, valore, static_cast<int>(lunghezza));
        return true;
    };
    switch (lettera.unicode()) {
        case u'y':
            return numero(lunghezza == 4 ? data.year() : data.year() % 100);
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
            return false;
    }
}

QString formattaData(QDate data, QTime ora, QStringView modello) {
    if (!data.isValid()) return {};
    Scritto testo;
    bool dopoOre = false;
    for (qsizetype i = 0; i < modello.size();) {
        const QChar lettera = modello[i].toLower();
        qsizetype fine = i + 1;
        while (fine < modello.size() && modello[fine].toLower() == lettera)
            ++fine;

        if (scriviCampoData(testo, lettera, fine - i, dopoOre, data, ora)) {
            dopoOre = lettera == u'h';
        } else {
            testo.append(modello.constData() + i, fine - i);
        }
        i = fine;
    }
    return QString(testo.constData(), testo.size());
}

}  // namespace

QString Format(double valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), leggiModello(modello));
}

QString Format(float valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), leggiModello(modello));
}

QString Format(Currency valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), leggiModello(modello));
}

QString Format(qint64 valore, QStringView modello) {
    return formattaCifre(CifreDecimali(valore), leggiModello(modello));
}

QString formatoMigliaia(double valore, int decimali) {
    return formattaMigliaia(valore, decimali);
}

QString formatoMigliaia(float valore, int decimali) {
    return formattaMigliaia(valore, decimali);
}

QString formatoMigliaia(Currency valore, int decimali) {
    return formattaMigliaia(valore, decimali);
}

QString Format(const QDateTime& valore, QStringView modello) {
    return formattaData(valore.date(), valore.time(), modello);
}

QString Format(QDate valore, QStringView modello) {
    return formattaData(valore, QTime(0, 0), modello);
}
