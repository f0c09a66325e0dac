#include "ecr/ui/run.h"

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>

#include <QApplication>

#include "core/program_folder.h"
#include "data/client_settings.h"
#include "data/settings_store.h"
#include "ecr/arguments.h"
#include "ecr/conformance.h"
#include "ecr/journal.h"
#include "ecr/simulator.h"
#include "ecr/ui/strip_window.h"

namespace {

QString impostazione(const char* chiave, const char* predefinito) {
    return impostazioni().leggi(applicazioneClient, "Client", chiave, predefinito);
}

void scriviRiga(std::ostream& dove, const QString& riga) {
    dove << riga.toStdString() << std::endl;
}

int eseguiSimulatore(const ArgomentiEcr& argomenti) {
    const Giornale giornale(argomenti.giornale.isEmpty() ? cartellaScrivibile() + "/Scontrini"
                                                         : argomenti.giornale);
    Simulatore simulatore(giornale.prossimoNumero());
    const int porta = argomenti.porta.value_or(portaDelleImpostazioni(impostazione("TCPPort", "")));
    if (!simulatore.ascolta(porta)) {
        scriviRiga(std::cerr, "La porta " + QString::number(porta) + " è occupata.");
        return EXIT_FAILURE;
    }
    simulatore.guasto(argomenti.guasto, argomenti.unaVolta);
    std::unique_ptr<FinestraStriscia> finestra;
    if (argomenti.finestra) finestra = std::make_unique<FinestraStriscia>(simulatore);
    QObject::connect(&simulatore, &Simulatore::stampato, [&](const Scontrino& scontrino) {
        const bool scritto = giornale.scrivi(scontrino);
        if (!scritto) scriviRiga(std::cerr, "Non si può scrivere " + giornale.percorso(scontrino));
        // A program that the till has started is heard in its window alone.
        if (finestra) finestra->avviso(scritto ? "" : "Lo scontrino non è stato scritto in Scontrini");
    });
    QObject::connect(&simulatore, &Simulatore::spento, QCoreApplication::instance(), &QCoreApplication::quit);
    QObject::connect(&simulatore, &Simulatore::morto, [] { std::_Exit(EXIT_FAILURE); });
    if (finestra) finestra->show();
    return QCoreApplication::exec();
}

int eseguiVerifica(int porta) {
    int difetti = 0;
    Conformita(porta).esegui([&](const Conformita::Esito& esito) {
        if (!esito.difetto.isEmpty()) ++difetti;
        scriviRiga(std::cout, esito.difetto.isEmpty() ? "ok    " + esito.prova
                                                      : "NO    " + esito.prova + ": " + esito.difetto);
    });
    scriviRiga(std::cout, difetti == 0 ? QString("Il programma di interfaccia è conforme.")
                                       : "Difetti: " + QString::number(difetti));
    return difetti == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

// Makes the simulator the register of this user's till; one that has a register keeps it.
int collegaCassa() {
    if (!impostazione("RegCassa", "").isEmpty()) return EXIT_SUCCESS;
    impostazioni().scrivi(applicazioneClient, "Client", "RegCassa", "Simulatore");
    for (const QString& avviso : impostazioni().prendiAvvisi()) {
        scriviRiga(std::cerr, avviso);
    }
    return EXIT_SUCCESS;
}

// Without a window no display is needed.
std::unique_ptr<QCoreApplication> applicazione(int& argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        for (const char* parola : {"--senza-finestra", "--verifica", "--collega", "--aiuto"}) {
            if (std::strcmp(argv[i], parola) == 0) return std::make_unique<QCoreApplication>(argc, argv);
        }
    }
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

int eseguiProgramma(int argc, char* argv[]) {
    const auto programma = applicazione(argc, argv);
    QString errore;
    const auto argomenti = leggiArgomenti(QCoreApplication::arguments().mid(1), errore);
    if (!argomenti) {
        std::cerr << errore.toStdString() << "\n\n" << testoAiuto().toStdString();
        return 2;
    }
    if (argomenti->aiuto) {
        std::cout << testoAiuto().toStdString();
        return 0;
    }
    if (argomenti->collega) return collegaCassa();
    if (argomenti->verifica) return eseguiVerifica(*argomenti->verifica);
    return eseguiSimulatore(*argomenti);
}
