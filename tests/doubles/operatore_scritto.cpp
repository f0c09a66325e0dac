#include "doubles/operatore_scritto.h"

#include <gtest/gtest.h>

OperatoreScritto::~OperatoreScritto() {
    for (const Atteso& atteso : mAttesi) {
        ADD_FAILURE() << "atteso e mai comparso: " << atteso.testo.toStdString();
    }
}

void OperatoreScritto::attendiDomanda(const QString& testo, Risposta risposta, std::function<void()> prima) {
    Atteso atteso{Genere::Domanda, testo};
    atteso.risposta = risposta;
    atteso.prima = std::move(prima);
    mAttesi.push_back(std::move(atteso));
}

void OperatoreScritto::attendiMessaggio(const QString& testo, Icona icona) {
    Atteso atteso{Genere::Messaggio, testo};
    atteso.icona = icona;
    mAttesi.push_back(std::move(atteso));
}

void OperatoreScritto::attendiAvviso(const QString& modulo, bool prosegue) {
    Atteso atteso{Genere::Avviso, modulo};
    atteso.prosegue = prosegue;
    mAttesi.push_back(std::move(atteso));
}

std::optional<OperatoreScritto::Atteso> OperatoreScritto::prendi(Genere genere, const QString& testo) {
    if (mAttesi.empty() || mAttesi.front().genere != genere || mAttesi.front().testo != testo) {
        ADD_FAILURE() << "inatteso: " << testo.toStdString() << "\nprossimo atteso: "
                      << (mAttesi.empty() ? std::string("nulla") : mAttesi.front().testo.toStdString());
        return std::nullopt;
    }
    Atteso atteso = std::move(mAttesi.front());
    mAttesi.pop_front();
    if (atteso.prima) atteso.prima();
    return atteso;
}

void OperatoreScritto::messaggio(const QString& testo, Icona icona, const QString& titolo) {
    visti.push_back({titolo, icona, {"OK"}});
    const auto atteso = prendi(Genere::Messaggio, testo);
    if (!atteso || atteso->icona == Icona::Nessuna) return;
    EXPECT_EQ(atteso->icona, icona) << testo.toStdString();
}

OperatorPort::Risposta OperatoreScritto::domanda(const QString& testo, Pulsanti pulsanti, Icona icona) {
    QStringList nomi{"Sì", "No"};
    if (pulsanti == Pulsanti::SiNoAnnulla) nomi << "Annulla";
    if (pulsanti == Pulsanti::NoSi) nomi.swapItemsAt(0, 1);
    visti.push_back({titoloApplicazione(), icona, nomi});
    const auto atteso = prendi(Genere::Domanda, testo);
    return atteso ? atteso->risposta : Risposta::No;
}

bool OperatoreScritto::avviso(const Errore& errore) {
    avvisi.push_back(errore);
    const auto atteso = prendi(Genere::Avviso, errore.modulo);
    if (!atteso) {
        ADD_FAILURE() << errore.numero << " " << errore.descrizione.toStdString() << "\n"
                      << errore.avanzate.toStdString();
    }
    return !atteso || atteso->prosegue;
}

void OperatoreScritto::pausa(int millisecondi) {
    pause.push_back(millisecondi);
    if (durantePausa) durantePausa();
}
