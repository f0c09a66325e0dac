#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTextStream>

#include "archivio/create_archive.h"
#include "archivio/link_till.h"
#include "archivio/trial_server.h"
#include "core/globals.h"
#include "data/client_settings.h"
#include "data/gateway.h"
#include "data/settings_store.h"

TEST(LinkOnServer, TillWorksOnTheDatabaseAfterwards) {
    const QTemporaryDir cartella;
    SettingsOnDisk disco(cartella.path());
    impostaImpostazioni(&disco);
    const DatabaseDiProva database;
    QString testo;
    QTextStream esito(&testo);
    ASSERT_TRUE(creaArchivio(database.nome(), {}, esito)) << testo.toStdString();
    ASSERT_TRUE(collegaCassa(database.nome(), esito)) << testo.toStdString();
    leggiImpostazioniServer();
    gAdo.impostaStringaConnessione([] { return gStrConnessione; });
    EXPECT_EQ(gAdo.getValueBySQL("SELECT COUNT(*) FROM Opzioni", "prova").toInt(), 28);
    gAdo.chiudiConnessioniCalde();
    impostaImpostazioni(nullptr);
}
