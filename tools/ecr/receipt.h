#pragma once

#include <vector>

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "core/currency.h"

// One receipt as the till's commands build it.
struct Scontrino {
    struct Riga {
        QString codice;
        QString descrizione;
        double quantita = 0;
        Currency prezzo;  // of one piece, VAT included
        QString iva;      // rate in per cent
        Currency importo() const { return Currency::daDouble(prezzo.toDouble() * quantita); }
    };
    std::vector<Riga> righe;
    Currency totale;
    int numero = 0;
    QDateTime ora;
};

// The printer's side of the commands "RST", "REP", "TOT" and "OFF".
class Stampante {
  public:
    enum class Esito { Fatto, Stampato, Spento, Errore };
    struct Risultato {
        Esito esito;
        QString errore = {};  // of Errore
    };

    explicit Stampante(int primoNumero = 1) : mNumero(primoNumero) {}

    // One command. After Stampato, scontrino() is the receipt that came out.
    Risultato esegui(const QString& comando);
    const Scontrino& scontrino() const { return mStampato; }

  private:
    Risultato aggiungi(const QStringList& campi);
    Risultato chiudi(const QStringList& campi);

    int mNumero;
    Scontrino mAperto;
    Scontrino mStampato;
};

// The receipt as its paper strip, lines of 40 characters.
QStringList striscia(const Scontrino& scontrino);
