#pragma once

#include <QDate>
#include <QString>

#include "core/currency.h"

// One entry of PrimaNota: a document's, which books the receivable and the revenue, or a collection's,
// which books the cash. Its accounts come from the causal.
struct RegistrazionePN {
    int idPrimaNota = -1;  // below 1 a new entry is made, otherwise this one is rewritten
    int idCausale = -1;
    int idAnagrafe = -1;
    QString descrizione;  // stored up to 255 characters
    QString riferimenti;  // stored up to 255 characters
    Currency importo;
    QDate data;
    QDate dataValuta;
    Currency imposta;
    Currency terzoImporto;  // discount or expense of a collection; 0 on a sale
    int idPagamento = -1;
    QString codicePartita;  // stored up to 20 characters
    QString numDocumento;
};

// Creates or rewrites the entry and all its lines, inside the caller's transaction: its key, -1 on
// failure, 0 after an unforeseen error. A rewrite keeps key and progressive.
int salvaPrimaNota(const RegistrazionePN& registrazione);

// The accounts of a causal, PianoConti keys; 0 when not in use.
struct ContiCausale {
    int dare1 = 0;
    int dare2 = 0;
    int avere1 = 0;
    int avere2 = 0;
};

// What the two below answer when all went well; empty when a statement failed; any other text is for the
// operator.
inline const QString righeScritte = "#";

// The accounts of a causal.
QString leggiConti(int idCausale, ContiCausale& conti);
// Replaces the lines of the entry, `conti` being the accounts of its causal.
QString saveDettagliPrimaNota(const RegistrazionePN& r, const ContiCausale& conti);
