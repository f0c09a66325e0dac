#pragma once

#include <optional>

#include <QStringList>

#include "ecr/faults.h"

// What the simulator is told on its command line.
struct ArgomentiEcr {
    std::optional<int> porta;  // otherwise that of the settings
    Guasto guasto = Guasto::Nessuno;
    bool unaVolta = false;
    bool finestra = true;
    QString giornale;
    std::optional<int> verifica;  // checks the interface program on that port
    bool collega = false;         // makes itself the register of this user's till
    bool aiuto = false;
};

// The port that a till reads from its setting `TCPPort`: the number at the head of the text, 4310 for one
// that is no port from 1 to 32767.
int portaDelleImpostazioni(const QString& testo);

// Nothing when a word is not known; `errore` then says which.
std::optional<ArgomentiEcr> leggiArgomenti(const QStringList& parole, QString& errore);
QString testoAiuto();
