#include "ecr/receipt.h"

#include <cmath>
#include <utility>

#include "core/clock.h"
#include "core/value_helpers.h"

namespace {

using Risultato = Stampante::Risultato;
using Esito = Stampante::Esito;

constexpr QChar separatore(u'\u00A4');
constexpr qsizetype larghezza = 40;
constexpr qsizetype colonnaImporto = 11;
constexpr qsizetype colonnaIva = 5;
constexpr double centesimo = 0.01;
constexpr double valoreMassimo = 1e6;

// Numbers come with a decimal point and without thousands.
bool numero(const QString& testo, double& valore) {
    bool riuscito = false;
    valore = testo.toDouble(&riuscito);
    return riuscito && std::abs(valore) < valoreMassimo;
}

QString centrata(const QString& testo) {
    return QString((larghezza - testo.size()) / 2, u' ') + testo;
}

QString colonne(const QString& sinistra, const QString& iva, const QString& importo) {
    constexpr qsizetype resto = larghezza - colonnaIva - colonnaImporto;
    return sinistra.leftJustified(resto, u' ', true) + iva.rightJustified(colonnaIva) +
           importo.rightJustified(colonnaImporto);
}

// Two decimals as the till shows it, three for what is sold by weight or length.
QString quantitaScritta(double quantita) {
    const QString scritta = formattaImporto(quantita, 3);
    return scritta.endsWith(u'0') ? scritta.chopped(1) : scritta;
}

QStringList righeDi(const Scontrino::Riga& riga) {
    QStringList righe;
    if (riga.quantita != 1.0)
        righe << "  " + quantitaScritta(riga.quantita) + " x " + formattaImporto(riga.prezzo, 2);
    righe << colonne(riga.descrizione, riga.iva + "%", formattaImporto(riga.importo(), 2));
    return righe;
}

}  // namespace

Risultato Stampante::esegui(const QString& comando) {
    const QString nome = comando.left(3);
    const QStringList campi = comando.mid(3).split(separatore);
    if (nome == "RST") {
        mAperto = {};
        return {Esito::Fatto};
    }
    if (nome == "REP") return aggiungi(campi);
    if (nome == "TOT") return chiudi(campi);
    if (nome == "OFF") return {Esito::Spento};
    return {Esito::Errore, "Comando sconosciuto"};
}

Risultato Stampante::aggiungi(const QStringList& campi) {
    Scontrino::Riga riga;
    double prezzo = 0;
    if (campi.size() != 7) return {Esito::Errore, "Riga con campi in piu' o in meno"};
    if (!numero(campi[2], riga.quantita) || !numero(campi[3], prezzo))
        return {Esito::Errore, "Quantita' o prezzo non validi"};
    riga.codice = campi[0];
    riga.descrizione = campi[1].isEmpty() ? campi[0] : campi[1];
    riga.prezzo = Currency::daDouble(prezzo);
    riga.iva = campi[5];
    mAperto.righe.push_back(riga);
    return {Esito::Fatto};
}

// The till sums prices that it has not rounded, and sends them to the cent: half a cent a piece may be lost.
Risultato Stampante::chiudi(const QStringList& campi) {
    double totale = 0;
    if (campi.size() != 2 || !numero(campi[0], totale)) return {Esito::Errore, "Totale non valido"};
    if (mAperto.righe.empty()) return {Esito::Errore, "Scontrino senza righe"};
    mAperto.totale = Currency::daDouble(totale);
    Currency somma;
    double tolleranza = centesimo;
    for (const Scontrino::Riga& riga : mAperto.righe) {
        somma += riga.importo();
        tolleranza += std::abs(riga.quantita) * centesimo / 2;
    }
    if ((somma - mAperto.totale).assoluto() > Currency::daDouble(tolleranza))
        return {Esito::Errore, "Il totale non e' la somma delle righe"};
    mAperto.numero = mNumero++;
    mAperto.ora = orologio().adesso();
    mStampato = std::exchange(mAperto, {});
    return {Esito::Stampato};
}

QStringList striscia(const Scontrino& scontrino) {
    QStringList righe{
        centrata("NEGOZIO DIMOSTRATIVO"),  centrata("Via Roma 1 - 00100 ROMA"),
        centrata("P.IVA 00000000000"),     QString(),
        colonne("EURO", "IVA", "IMPORTO"),
    };
    for (const Scontrino::Riga& riga : scontrino.righe) {
        righe << righeDi(riga);
    }
    righe << QString(larghezza, u'-') << colonne("TOTALE EURO", {}, formattaImporto(scontrino.totale, 2))
          << QString()
          << colonne(scontrino.ora.toString("dd/MM/yyyy HH:mm"), {},
                     "N. " + QString::number(scontrino.numero).rightJustified(4, u'0'))
          << centrata("NON FISCALE - SIMULATORE");
    return righe;
}
