#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "core/program_folder.h"
#include "doubles/operatore_scritto.h"
#include "register/link_bench.h"
#include "register/start.h"

class StartOfTheLink : public Collegato {
  protected:
    StartOfTheLink() { impostaCartellaProgramma(cartella.path()); }
    ~StartOfTheLink() override { impostaCartellaProgramma({}); }

    // An interface program that does nothing.
    void installa(const QString& nome) {
        QFile programma(cartella.filePath(nome));
        ASSERT_TRUE(programma.open(QIODevice::WriteOnly));
        programma.write("#!/bin/sh\necho \"$#\" > \"$0.avviato\"\n");
        programma.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QTemporaryDir cartella;
    OperatoreScritto operatore;
};

TEST_F(StartOfTheLink, ProgramBesideTheTillIsStartedAndConnectedTo) {
    QString avviato;
    link.startMe(operatore, [&](const QString& percorso) {
        avviato = percorso;
        return true;
    });
    EXPECT_EQ(avviato, cartella.filePath("prgECRProva"));
    EXPECT_TRUE(diventa([&] { return link.statoConnessione(); }));
    EXPECT_EQ(link.titolo(), "Interfaccia Registratore di Cassa: Prova");
}

TEST_F(StartOfTheLink, ProgramThatCannotBeStartedIsSaidAndTheLinkStaysDown) {
    operatore.attendiMessaggio("Impossibile avviare l'interfaccia del Registratore di cassa: Prova",
                               OperatorPort::Icona::Critica);
    setRegCassa(operatore);
    EXPECT_EQ(operatore.visti.front().titolo, "Bottegon");
    EXPECT_FALSE(link.statoConnessione());
    EXPECT_EQ(link.titolo(), "Interfaccia Registratore di Cassa: Prova");
}

TEST_F(StartOfTheLink, DeskWithoutARegisterStartsNothing) {
    gRegCassa.clear();
    setRegCassa(operatore);
    EXPECT_EQ(link.titolo(), "Interfaccia Registratore di Cassa:");
}

TEST_F(StartOfTheLink, ProgramGetsNoArguments) {
    installa("prgECRProva");
    setRegCassa(operatore);
    QFile traccia(cartella.filePath("prgECRProva.avviato"));
    ASSERT_TRUE(diventa([&] { return traccia.exists() && traccia.size() > 0; }));
    ASSERT_TRUE(traccia.open(QIODevice::ReadOnly));
    EXPECT_EQ(traccia.readAll(), "0\n");
}

TEST_F(StartOfTheLink, LinkExistsFromItsFirstUse) {
    impostaFrmRegCassa(nullptr);
    EXPECT_FALSE(gFrmRegCassa().statoConnessione());
    EXPECT_EQ(&gFrmRegCassa(), &gFrmRegCassa());
}
