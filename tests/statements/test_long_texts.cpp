#include <gtest/gtest.h>

#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "doubles/negozio.h"

// A text of 100,000 characters in every text column of the archive: kept as it is, or refused with a reason.

namespace {

const QString lungo = QString("àè'\\¤‡(x),@ ").repeated(8334).left(100000);

bool diTesto(const schema::Colonna& c) {
    return c.tipo == schema::Tipo::Testo || c.tipo == schema::Tipo::Note;
}

// What the column needs to be filled with where it must not be empty.
QString valoreMinimo(const schema::Colonna& c) {
    return diTesto(c)                        ? testoSQL("X")
           : c.tipo == schema::Tipo::DataOra ? gAdo.getSQLDate(QDate(2026, 3, 16))
                                             : "1";
}

QString inserimento(const schema::Tabella& t, const schema::Colonna& lunga) {
    QStringList colonne{lunga.nome};
    QStringList valori{testoSQL(lungo)};
    for (const schema::Colonna& c : t.colonne) {
        if (!c.obbligatoria || c.nome == lunga.nome || !c.predefinito.isEmpty()) continue;
        colonne << c.nome;
        valori << valoreMinimo(c);
    }
    // Some names are words of a server.
    const QString nomi = "`" + colonne.join("`, `") + "`";
    return "INSERT INTO " + t.nome + " (" + nomi + ") VALUES (" + valori.join(", ") + ")";
}

}  // namespace

TEST(LongTexts, EveryTextColumnKeepsThemOrRefusesThemWithAReason) {
    Negozio n;
    ASSERT_TRUE(gAdo.Connect("prova", 5, 0, false));
    Connessione& c = *gAdo.getActiveConnection();
    int provate = 0;
    int tenute = 0;
    for (const schema::Tabella& t : schema::tabelle()) {
        for (const schema::Colonna& colonna : t.colonne) {
            if (!diTesto(colonna)) continue;
            const QString dove = t.nome + "." + colonna.nome;
            SCOPED_TRACE(dove.toStdString());
            const int prima = n.conta(t.nome);
            ++provate;
            if (!c.esegui(gAdo.prepareSQL(inserimento(t, colonna)), nullptr)) {
                EXPECT_EQ(c.errore().classe, ErroreServer::Classe::Altro);
                EXPECT_NE(c.errore().descrizione, "");
                EXPECT_EQ(n.conta(t.nome), prima);
                continue;
            }
            ++tenute;
            Recordset letti;
            const QString chiave = t.colonne.front().nome;
            ASSERT_TRUE(
                c.esegui(gAdo.prepareSQL("SELECT `" + colonna.nome + "` FROM " + t.nome + " WHERE " + chiave +
                                         " = (SELECT MAX(" + chiave + ") FROM " + t.nome + ")"),
                         &letti))
                << qPrintable(c.errore().descrizione);
            EXPECT_TRUE(letti.campo(0).toString() == lungo);
        }
    }
    gAdo.disconnect();
    EXPECT_GT(provate, 100);
    EXPECT_GT(tenute, 0);
}
