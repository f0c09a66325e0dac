#include "kit/ui/touch_keys.h"

#include <QGridLayout>

#include "kit/CTastierino.h"
#include "kit/ui/touch_widgets.h"

namespace {

constexpr int distanza = 4;
constexpr char ruoloCifra[] = "cifra";

struct Tasto {
    QString codice;
    QString didascalia;
    QString nomeAccessibile;
    int riga, colonna, righe, colonne;
    bool ripete = false;          // while it is held
    const char* ruolo = nullptr;  // its part in the style sheet
};

QWidget* tastiera(const std::vector<Tasto>& tasti, const TastoPremuto& premuto, QWidget* padre) {
    auto* tutto = new QWidget(padre);
    auto* griglia = new QGridLayout(tutto);
    griglia->setContentsMargins(0, 0, 0, 0);
    griglia->setSpacing(distanza);
    int numero = 0;
    for (const Tasto& tasto : tasti) {
        auto* pulsante = new QPushButton(tasto.didascalia, tutto);
        pulsante->setObjectName("tasto_" + QString::number(numero++));
        pulsante->setAccessibleName(tasto.nomeAccessibile);
        pulsante->setFocusPolicy(Qt::NoFocus);
        pulsante->setAutoDefault(false);
        pulsante->setAutoRepeat(tasto.ripete);
        if (tasto.ruolo != nullptr) pulsante->setProperty("ruolo", tasto.ruolo);
        pulsante->setMinimumSize(altezzaTocco, altezzaTocco);
        pulsante->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        QObject::connect(pulsante, &QPushButton::clicked, tutto,
                         [premuto, codice = tasto.codice] { premuto(codice); });
        griglia->addWidget(pulsante, tasto.riga, tasto.colonna, tasto.righe, tasto.colonne);
    }
    return tutto;
}

}  // namespace

QWidget* tastieraLettere(const TastoPremuto& premuto, QWidget* padre) {
    const QString righe[] = {"1234567890-", "QWERTYUIOP/", "ASDFGHJKL'%", "ZXCVBNM,.+*"};
    std::vector<Tasto> tasti;
    int riga = 0;
    for (const QString& lettere : righe) {
        int colonna = 0;
        for (const QChar lettera : lettere) {
            tasti.push_back({lettera, lettera, "Tasto " + QString(lettera), riga, colonna++, 1, 1});
        }
        ++riga;
    }
    tasti.push_back({" ", "SPAZIO", "Spazio", 0, 11, 4, 1});
    return tastiera(tasti, premuto, padre);
}

QWidget* tastierino(QWidget* padre) {
    std::vector<Tasto> tasti;
    for (int cifra = 1; cifra <= 9; ++cifra) {
        const QString testo = QString::number(cifra);
        tasti.push_back(
            {testo, testo, "Cifra " + testo, 2 - (cifra - 1) / 3, (cifra - 1) % 3, 1, 1, false, ruoloCifra});
    }
    tasti.push_back({"0", "0", "Cifra 0", 3, 0, 1, 2, false, ruoloCifra});
    tasti.push_back({",", ",", "Virgola", 3, 2, 1, 1, false, ruoloCifra});
    tasti.push_back({"D", "⌫", "Cancella l'ultimo carattere", 0, 3, 1, 1, true, ruoloCifra});
    tasti.push_back({"C", "C", "Svuota", 1, 3, 1, 1, false, ruoloCifra});
    tasti.push_back({"I", "INVIO", "Invio", 2, 3, 2, 1, false, "principale"});
    return tastiera(
        tasti, [](const QString& tasto) { CTastierino().sendTasto(tasto); }, padre);
}
