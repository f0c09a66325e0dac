#include <gtest/gtest.h>

#include <QTextStream>

#include "archivio/import_access.h"
#include "archivio/trial_archive.h"
#include "archivio/trial_mdb.h"
#include "archivio/verify_archive.h"

namespace {

struct Esito {
    bool riuscito;
    QString testo;
};

Esito importa(const FileMdbFinto& file, const ArchivioInCartella& cartella) {
    QString testo;
    QTextStream esito(&testo);
    const bool riuscito = importaAccess(file.percorso(), cartella.percorso("nuovo.db"), false, esito);
    return {riuscito, testo};
}

// The field of the one imported row of Anagrafiche, as SQLite writes it.
QString campo(const QByteArray& colonna, const QByteArray& valore) {
    FileMdbFinto file;
    file.tabella("Anagrafiche", {"RID", colonna}, {{"1", valore}});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_TRUE(esito.riuscito) << esito.testo.toStdString();
    return cartella.leggiDa("nuovo.db", "SELECT quote(" + colonna + ") FROM Anagrafiche");
}

}  // namespace

TEST(ImportAccess, KeysAndTextsComeOver) {
    FileMdbFinto file;
    file.tabella("gruppi", {"rid", "Codice"}, {{"7", "\"A\""}, {"3", "\"B\""}});
    const ArchivioInCartella cartella;
    ASSERT_TRUE(importa(file, cartella).riuscito);
    EXPECT_EQ(cartella.conta("nuovo.db", "Gruppi WHERE RID = 7 AND CODICE = 'A'"), 1);
    EXPECT_EQ(cartella.conta("nuovo.db", "Gruppi"), 2);
}

TEST(ImportAccess, TextWithLineBreaksAndQuotesIsWhole) {
    EXPECT_EQ(campo("DENOMINAZIONE", "\"Da \"\"Gino\"\"\nl'oste, è \xf0\x9f\x98\x80\""),
              QString::fromUtf8("'Da \"Gino\"\nl''oste, è \xf0\x9f\x98\x80'"));
}

TEST(ImportAccess, YesOfAccessIsOne) {
    EXPECT_EQ(campo("SEGNALA", "-1"), "1");
}

TEST(ImportAccess, MissingValueIsNull) {
    EXPECT_EQ(campo("DENOMINAZIONE", ""), "NULL");
}

TEST(ImportAccess, MoneyKeepsFourDecimals) {
    EXPECT_EQ(campo("FIDO", "1234.5678"), "1234.5678");
}

TEST(ImportAccess, SinglePrecisionIsWhatWasTyped) {
    EXPECT_EQ(campo("SCONTO", "1.00000001e-01"), "0.1");
}

TEST(ImportAccess, DoublePrecisionIsExact) {
    EXPECT_EQ(campo("SCONTO", "3.3333333333333331e-01").toDouble(), 1.0 / 3.0);
}

TEST(ImportAccess, DateKeepsItsTime) {
    EXPECT_EQ(campo("DATANASCITA", "\"1965-03-31 13:45:00\""), "'1965-03-31 13:45:00'");
}

TEST(ImportAccess, RowThatNoColumnKeepsIsLeftOutAndTold) {
    FileMdbFinto file;
    file.tabella("Gruppi", {"RID", "CODICE"},
                 {{"1", "\"A\""}, {"2", ""}, {"3", "\"" + QByteArray(51, 'x') + "\""}});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("1 righe, 2 rifiutate")) << esito.testo.toStdString();
    EXPECT_TRUE(esito.testo.contains("rifiutata la riga 2: CODICE: manca")) << esito.testo.toStdString();
    EXPECT_TRUE(esito.testo.contains("rifiutata la riga 3: CODICE: il testo ha 51"))
        << esito.testo.toStdString();
    EXPECT_EQ(cartella.conta("nuovo.db", "Gruppi"), 1);
}

TEST(ImportAccess, KeyThatComesTwiceIsLeftOutAndTold) {
    FileMdbFinto file;
    file.tabella("Gruppi", {"RID", "CODICE"}, {{"1", "\"A\""}, {"1", "\"B\""}});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_TRUE(esito.testo.contains("rifiutata la riga 1: ")) << esito.testo.toStdString();
    EXPECT_EQ(cartella.conta("nuovo.db", "Gruppi WHERE CODICE = 'A'"), 1);
}

TEST(ImportAccess, UnknownAndMissingColumnsAreTold) {
    FileMdbFinto file;
    file.tabella("Gruppi", {"RID", "CODICE", "COLORE"}, {{"1", "\"A\"", "\"rosso\""}});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_TRUE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("colonne che il file non ha: DESCRIZIONE\n"))
        << esito.testo.toStdString();
    EXPECT_TRUE(esito.testo.contains("colonne del file non conosciute: COLORE\n"))
        << esito.testo.toStdString();
}

TEST(ImportAccess, UnknownAndMissingTablesAreTold) {
    FileMdbFinto file;
    file.tabella("Gruppi", {"RID", "CODICE"}, {});
    file.tabella("Ricette della nonna", {"A"}, {});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_TRUE(esito.testo.contains("Tabelle del file non conosciute: Ricette della nonna\n"))
        << esito.testo.toStdString();
    EXPECT_TRUE(esito.testo.contains("Tabelle che il file non ha: Iva, ")) << esito.testo.toStdString();
}

TEST(ImportAccess, ReferenceOfZeroIsNone) {
    FileMdbFinto file;
    file.tabella("Prodotti", {"RID", "CODICE", "FK_MARCA"}, {{"1", "\"A\"", "0"}});
    const ArchivioInCartella cartella;
    EXPECT_TRUE(importa(file, cartella).riuscito);
    EXPECT_EQ(cartella.conta("nuovo.db", "Prodotti WHERE FK_MARCA IS NULL"), 1);
}

TEST(ImportAccess, ReferenceToNothingIsEmptiedAndTold) {
    FileMdbFinto file;
    file.tabella("Prodotti", {"RID", "CODICE", "FK_MARCA"}, {{"1", "\"A\"", "55"}});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("Prodotti: 1 righe, riferimento svuotato: FK_MARCA"))
        << esito.testo.toStdString();
    EXPECT_TRUE(verificaArchivio(cartella.percorso("nuovo.db")).errori.isEmpty());
}

TEST(ImportAccess, RowWithoutTheRowItBelongsToIsTakenOutAndTold) {
    FileMdbFinto file;
    file.tabella("DettagliMovimento", {"RID", "FK_MOVIMENTO"}, {{"9", "55"}});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_TRUE(
        esito.testo.contains("DettagliMovimento: 1 righe, tolte: FK_MOVIMENTO senza il suo record di "
                             "Movimenti (9)"))
        << esito.testo.toStdString();
    EXPECT_EQ(cartella.conta("nuovo.db", "DettagliMovimento"), 0);
}

TEST(ImportAccess, OptionThatComesTwiceStaysOnce) {
    FileMdbFinto file;
    file.tabella("Opzioni", {"RID", "NOME", "VALORE"}, {{"1", "\"A\"", "\"x\""}, {"2", "\"a\"", "\"y\""}});
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_TRUE(esito.testo.contains("doppione di NOME (2)")) << esito.testo.toStdString();
    EXPECT_EQ(cartella.conta("nuovo.db", "Opzioni WHERE VALORE = 'x'"), 1);
}

TEST(ImportAccess, RowsWithoutAKeyGetOne) {
    FileMdbFinto file;
    file.tabella("Contatori", {"FK_NUMERATORE", "ANNO", "NUMERO"},
                 {{"1", "2.0250000000000000e+03", "12"}, {"2", "\"2025\"", "3"}});
    const ArchivioInCartella cartella;
    ASSERT_TRUE(importa(file, cartella).riuscito);
    EXPECT_EQ(cartella.conta("nuovo.db", "Contatori WHERE ANNO = '2025' AND RID IN (1, 2)"), 2);
}

TEST(ImportAccess, FileWithoutOurTablesIsRefused) {
    FileMdbFinto file;
    file.tabella("Ricette", {"A"}, {});
    const ArchivioInCartella cartella;
    EXPECT_FALSE(importa(file, cartella).riuscito);
    EXPECT_EQ(cartella.file(), QStringList{"prova.db"});
}

TEST(ImportAccess, ExportThatStopsHalfwayMakesNothing) {
    FileMdbFinto file;
    file.grezza("Gruppi",
                "RID\x1f"
                "CODICE\n1\x1f\"A");
    const ArchivioInCartella cartella;
    const Esito esito = importa(file, cartella);
    EXPECT_FALSE(esito.riuscito);
    EXPECT_TRUE(esito.testo.contains("si interrompe")) << esito.testo.toStdString();
    EXPECT_EQ(cartella.file(), QStringList{"prova.db"});
}

TEST(ImportAccess, ExportThatFailsMakesNothing) {
    FileMdbFinto file;
    file.tabella("Gruppi", {"RID", "CODICE"}, {});
    QFile::remove(file.percorso() + ".d/Gruppi");
    const ArchivioInCartella cartella;
    EXPECT_FALSE(importa(file, cartella).riuscito);
    EXPECT_EQ(cartella.file(), QStringList{"prova.db"});
}

// The real programs, on what is no file of theirs.
TEST(ImportAccess, GarbageIsRefusedByTheRealTools) {
    const ArchivioInCartella cartella;
    scriviFile(cartella.percorso("brutto.mdb"), QByteArray(5000, 'x'));
    QString testo;
    QTextStream esito(&testo);
    EXPECT_FALSE(importaAccess(cartella.percorso("brutto.mdb"), cartella.percorso("nuovo.db"), false, esito));
    EXPECT_TRUE(testo.contains("mdb-tables non riesce a leggere il file")) << testo.toStdString();
    EXPECT_FALSE(cartella.file().contains("nuovo.db"));
}

TEST(ImportAccess, MissingFileIsRefused) {
    const ArchivioInCartella cartella;
    QString testo;
    QTextStream esito(&testo);
    EXPECT_FALSE(importaAccess(cartella.percorso("manca.mdb"), cartella.percorso("nuovo.db"), false, esito));
    EXPECT_TRUE(testo.contains("non esiste")) << testo.toStdString();
}
