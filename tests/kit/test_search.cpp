#include "data/schema_archive.h"
#include "kit/search.h"

namespace {

const char sqlPagamenti[] = "SELECT TOP 3 RID, CODICE, DESCRIZIONE FROM Pagamenti ";

class Search : public testing::Test {
  protected:
    // Ten of them: C01 "voce 01" to C10 "voce 10".
    Search() {
        QStringList righe;
        for (int i = 1; i <= 10; ++i) {
            const QString numero = QString::number(i).rightJustified(2, '0');
            righe << "(" + QString::number(i) + ", 'C" + numero + "', 'voce " + numero + "')";
        }
        archivio.sql("DELETE FROM Pagamenti");
        archivio.sql("INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE) VALUES " + righe.join(", "));
    }
    void metti(int rid, const QString& codice, const QString& descrizione) {
        archivio.sql(QString("INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE) VALUES (%1, '%2', '%3')")
                         .arg(QString::number(rid), QString(codice).replace("'", "''"),
                              QString(descrizione).replace("'", "''")));
    }
    Ricerca& apri(RichiestaRicerca richiesta = {.sql = sqlPagamenti, .campoChiave = "DESCRIZIONE"}) {
        ricerca = std::make_unique<Ricerca>(std::move(richiesta), archivio.operatore);
        return *ricerca;
    }
    // The keys of the page.
    QString pagina() const {
        QStringList chiavi;
        for (int r = 1; r <= ricerca->righe(); ++r) {
            chiavi << ricerca->cella(r, 1);
        }
        return chiavi.join(' ');
    }
    void cerca(const QString& testo) {
        ricerca->txtRicerca.testo(testo);
        ricerca->cmdInvio();
    }
    bool notizia() const { return ricerca->pctNessuna.visibile(); }

    LibriDiProva archivio;
    std::unique_ptr<Ricerca> ricerca;
};

TEST_F(Search, OpensOnTheFirstPageInTheOrderOfItsKey) {
    apri();
    EXPECT_EQ(pagina(), "1 2 3");
    EXPECT_EQ(ricerca->rigaCorrente(), 1);
    EXPECT_EQ(ricerca->cella(1, 2), "C01");
    EXPECT_EQ(ricerca->cella(1, 3), "voce 01");
    EXPECT_EQ(ricerca->cella(1, 0), "");
}

TEST_F(Search, PagesForthAndBackInTheSameOrder) {
    apri().cmdDown();
    EXPECT_EQ(pagina(), "4 5 6");
    ricerca->cmdDown();
    EXPECT_EQ(pagina(), "7 8 9");
    ricerca->cmdSu();
    EXPECT_EQ(pagina(), "4 5 6");
}

TEST_F(Search, TheLastPageMayBeShort) {
    apri();
    for (int i = 0; i < 3; ++i) {
        ricerca->cmdDown();
    }
    EXPECT_EQ(pagina(), "10");
    EXPECT_FALSE(notizia());
}

TEST_F(Search, BehindTheLastPageTheNoticeComesAndThePageStays) {
    apri();
    for (int i = 0; i < 4; ++i) {
        ricerca->cmdDown();
    }
    EXPECT_EQ(pagina(), "10");
    EXPECT_TRUE(notizia());
}

TEST_F(Search, BeforeTheFirstPageTheNoticeComesAndThePageStays) {
    apri().cmdSu();
    EXPECT_EQ(pagina(), "1 2 3");
    EXPECT_TRUE(notizia());
}

TEST_F(Search, DescendingRunsFromTheHighestKeyDown) {
    apri({.sql = sqlPagamenti, .campoChiave = "DESCRIZIONE", .discendente = true}).cmdDown();
    EXPECT_EQ(pagina(), "7 6 5");
    ricerca->cmdSu();
    EXPECT_EQ(pagina(), "10 9 8");
}

TEST_F(Search, AnotherKeyColumnCutsThePagesByIt) {
    metti(20, "A01", "zeta");
    metti(21, "A02", "alfa");
    apri({.sql = sqlPagamenti, .campoChiave = "CODICE", .colonnaChiave = 1});
    EXPECT_EQ(pagina(), "20 21 1");
    ricerca->cmdDown();
    EXPECT_EQ(pagina(), "2 3 4");
}

TEST_F(Search, TypedTextNarrowsFromTheBeginningOfTheDescription) {
    apri();
    cerca("voce 1");
    EXPECT_EQ(pagina(), "10");
    cerca("oce 1");
    EXPECT_TRUE(notizia());
}

TEST_F(Search, WithTheWildcardItNarrowsAnywhere) {
    apri().cambiaOvunque();
    cerca("ce 1");
    EXPECT_EQ(pagina(), "10");
}

TEST_F(Search, ThePagesGoOnInsideWhatWasTyped) {
    metti(30, "X", "altro");
    apri();
    cerca("voce 0");
    ricerca->cmdDown();
    ricerca->cmdDown();
    EXPECT_EQ(pagina(), "7 8 9");
    ricerca->cmdDown();
    EXPECT_EQ(pagina(), "7 8 9");
}

TEST_F(Search, AnotherColumnNarrowsByItsField) {
    apri().scegliColonna(2);
    EXPECT_EQ(ricerca->lblDesc.testo(), "CODICE");
    cerca("c07");
    EXPECT_EQ(pagina(), "7");
}

TEST_F(Search, AColumnBeyondTheGridChangesNothing) {
    apri().scegliColonna(10);
    EXPECT_EQ(ricerca->lblDesc.testo(), "DESCRIZIONE");
    EXPECT_EQ(ricerca->lblDesc.tag(), "3");
}

TEST_F(Search, AConditionOfTheCallerHoldsWithTheTypedText) {
    apri({.sql = "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Pagamenti WHERE RID > 5",
          .campoChiave = "DESCRIZIONE"});
    cerca("voce 0");
    EXPECT_EQ(pagina(), "6 7 8 9");
}

TEST_F(Search, AnApostropheIsATextLikeAnyOther) {
    metti(40, "D'O", "Rimessa d'ordine");
    apri();
    cerca("rimessa d'o");
    EXPECT_EQ(pagina(), "40");
}

TEST_F(Search, ABackslashIsACharacterLikeAnyOther) {
    archivio.sql("UPDATE Pagamenti SET DESCRIZIONE = 'a\\b\\' WHERE RID = 5");
    archivio.sql("UPDATE Pagamenti SET DESCRIZIONE = 'a%b' WHERE RID = 6");
    apri();
    for (const char* testo : {"a\\", "a\\b\\", "a_b\\"}) {
        cerca(testo);
        EXPECT_EQ(pagina(), "5") << testo;
    }
    ricerca->cambiaOvunque();
    cerca("\\b");
    EXPECT_EQ(pagina(), "5");
}

TEST_F(Search, ATextThatLooksLikeSQLOnlyFindsNothing) {
    apri();
    for (const char* testo :
         {"' OR '1'='1", "¤ OR 1=1 OR ¤", "'; DROP TABLE Pagamenti; --", "\\", "[a-z]", "\"", "`"}) {
        cerca(testo);
        EXPECT_TRUE(notizia()) << testo;
        EXPECT_EQ(pagina(), "1 2 3") << testo;
        ricerca->pctNessuna.visibile(false);
    }
    EXPECT_TRUE(archivio.operatore.avvisi.empty());
}

TEST_F(Search, AnOperatorMayTypePercentForAnyTextAndUnderscoreForOneCharacter) {
    apri();
    cerca("%10");
    EXPECT_EQ(pagina(), "10");
    cerca("voce_10");
    EXPECT_EQ(pagina(), "10");
    cerca("voce__10");
    EXPECT_TRUE(notizia());
}

TEST_F(Search, ATextOfAThousandCharactersFindsNothingAndFailsNothing) {
    apri().cambiaOvunque();
    cerca(QString(1000, 'x'));
    EXPECT_TRUE(notizia());
    cerca(QString(1000, '%'));
    EXPECT_TRUE(archivio.operatore.avvisi.empty());
}

TEST_F(Search, AnEmptyTableShowsTheNoticeAndTheHeaderServesAsTheKey) {
    archivio.sql("DELETE FROM Pagamenti");
    apri();
    EXPECT_TRUE(notizia());
    EXPECT_EQ(ricerca->rigaCorrente(), 0);
    ricerca->cmdDown();
    EXPECT_TRUE(gAdo.getLastSQLCommand().contains("DESCRIZIONE > 'DESCRIZIONE'"));
    ricerca->cmdSu();
    ricerca->freccia(true);
    EXPECT_EQ(ricerca->scelti(), "");
}

TEST_F(Search, AServerThatFailsIsReportedAndThePageStays) {
    apri();
    LibriDiProva::guastaServer();
    cerca("voce");
    EXPECT_EQ(pagina(), "1 2 3");
    EXPECT_FALSE(notizia());
    ASSERT_EQ(archivio.operatore.avvisi.size(), 1U);
    EXPECT_TRUE(archivio.operatore.avvisi[0].modulo.contains("frmRicerca.fillGrid"));
}

// ---- Live

TEST_F(Search, TypingNarrowsWithoutTheNotice) {
    apri().txtRicerca.testo("voce 1");
    ricerca->cercaDalVivo();
    EXPECT_EQ(pagina(), "10");
    ricerca->txtRicerca.testo("voce 1x");
    ricerca->cercaDalVivo();
    EXPECT_FALSE(notizia());
    EXPECT_EQ(ricerca->lblEsito.testo(), "Nessuna corrispondenza per «voce 1x»");
    EXPECT_EQ(pagina(), "10");
    ricerca->txtRicerca.testo("voce 02");
    ricerca->cercaDalVivo();
    EXPECT_EQ(ricerca->lblEsito.testo(), "");
}

TEST_F(Search, TheSameTextIsNotAskedTwice) {
    apri().txtRicerca.testo("voce 0");
    ricerca->cercaDalVivo();
    ricerca->cmdDown();
    ricerca->cercaDalVivo();
    EXPECT_EQ(pagina(), "4 5 6");
}

TEST_F(Search, AServerThatFailsIsNotAskedAtEveryLetter) {
    apri();
    LibriDiProva::guastaServer();
    for (const char* testo : {"v", "vo", "voc"}) {
        ricerca->txtRicerca.testo(testo);
        ricerca->cercaDalVivo();
    }
    EXPECT_EQ(archivio.operatore.avvisi.size(), 1U);
}

TEST_F(Search, TypingAsksAgainOnceTheServerAnswered) {
    apri();
    LibriDiProva::guastaServer();
    cerca("v");
    sondaIstruzioni() = {};
    cerca("vo");
    ricerca->txtRicerca.testo("voce 05");
    ricerca->cercaDalVivo();
    EXPECT_EQ(pagina(), "5");
}

// ---- What acts on rows asks first what was typed

TEST_F(Search, AnArrowStandsOnTheRowsOfTheTextThatWasJustTyped) {
    apri().txtRicerca.testo("voce 0");
    EXPECT_TRUE(ricerca->righeDelTesto());
    ricerca->txtRicerca.testo("voce 10");
    ricerca->freccia(true);
    EXPECT_EQ(pagina(), "10");
    EXPECT_EQ(ricerca->rigaCorrente(), 1);
}

TEST_F(Search, TheChoiceIsOfTheRowsOfTheTextThatWasJustTyped) {
    apri().txtRicerca.testo("voce 07");
    EXPECT_EQ(ricerca->cmdSelect(), std::optional<QString>("7|"));
}

TEST_F(Search, NothingIsChosenWhereTheTextJustTypedFindsNothing) {
    apri().txtRicerca.testo("voce x");
    EXPECT_EQ(ricerca->cmdSelect(), std::nullopt);
    EXPECT_EQ(ricerca->lblEsito.testo(), "Nessuna corrispondenza per «voce x»");
    EXPECT_EQ(pagina(), "1 2 3");
}

TEST_F(Search, ThePageBehindIsOneOfTheTextThatWasJustTyped) {
    metti(11, "C11", "altra 1");
    metti(12, "C12", "altra 2");
    metti(13, "C13", "altra 3");
    metti(14, "C14", "altra 4");
    apri().txtRicerca.testo("voce 01");
    ricerca->cmdInvio();
    ricerca->txtRicerca.testo("altra");
    ricerca->cmdDown();
    EXPECT_EQ(pagina(), "14");
}

TEST_F(Search, ThePageBeforeIsOneOfTheTextThatWasJustTyped) {
    apri().cmdDown();
    ASSERT_EQ(pagina(), "4 5 6");
    ricerca->txtRicerca.testo("voce 1");
    ricerca->cmdSu();
    EXPECT_EQ(pagina(), "10");
    EXPECT_TRUE(notizia());
}

TEST_F(Search, ATextThatWasPagedUnderIsStillAskedFromItsFirstPage) {
    apri().txtRicerca.testo("voce");
    ricerca->cmdInvio();
    ricerca->cmdDown();
    ricerca->txtRicerca.testo("voce 0");
    ricerca->cercaDalVivo();
    EXPECT_EQ(pagina(), "1 2 3");
}

// ---- The notice

TEST_F(Search, TheNoticeIsToldEachTimeItComesUp) {
    int volte = 0;
    apri().osserva([] {}, [&] { ++volte; });
    cerca("x");
    cerca("y");
    EXPECT_EQ(volte, 2);
}

TEST_F(Search, RowsThatComeTakeTheNoticeAway) {
    apri();
    cerca("x");
    ASSERT_TRUE(notizia());
    cerca("voce 05");
    EXPECT_FALSE(notizia());
}

// ---- Columns

TEST_F(Search, AColumnWithoutAFieldOfItsOwnCannotBeChosen) {
    apri({.sql = sqlPagamenti, .campoChiave = "DESCRIZIONE", .colonne = "<A¤1|<B¤1|>C¤1"});
    ASSERT_EQ(ricerca->colonne(), 5);
    EXPECT_TRUE(ricerca->cercabile(3));
    EXPECT_FALSE(ricerca->cercabile(4));
    ricerca->scegliColonna(4);
    EXPECT_EQ(ricerca->colonnaRicerca(), 3);
}

// ---- Arrows

TEST_F(Search, TheFirstArrivalAtAnEdgeStaysAndTheNextPressTurnsThePage) {
    apri();
    ricerca->freccia(true);
    ricerca->freccia(true);
    EXPECT_EQ(ricerca->rigaCorrente(), 3);
    EXPECT_EQ(pagina(), "1 2 3");
    ricerca->freccia(true);
    EXPECT_EQ(pagina(), "4 5 6");
    EXPECT_EQ(ricerca->rigaCorrente(), 1);
}

TEST_F(Search, UpAcrossThePageStandsOnItsLastRow) {
    apri().cmdDown();
    ricerca->freccia(false);
    EXPECT_EQ(pagina(), "4 5 6");
    ricerca->freccia(false);
    EXPECT_EQ(pagina(), "1 2 3");
    EXPECT_EQ(ricerca->rigaCorrente(), 3);
}

TEST_F(Search, UpAtTheVeryBeginningStays) {
    apri();
    ricerca->freccia(false);
    EXPECT_FALSE(notizia());
    ricerca->freccia(false);
    EXPECT_TRUE(notizia());
    EXPECT_EQ(ricerca->rigaCorrente(), 1);
}

// ---- Choosing

TEST_F(Search, TheCurrentRowIsTheChoice) {
    apri().rigaCorrente(2);
    EXPECT_EQ(ricerca->scelti(), "2|");
}

TEST_F(Search, MarkedRowsAreTheChoiceWhereTheWorkstationKeepsSeveral) {
    gMultiSel = 1;
    apri({.sql = sqlPagamenti, .campoChiave = "DESCRIZIONE", .multi = true});
    ricerca->segna(3);
    ricerca->segna(1);
    EXPECT_EQ(ricerca->scelti(), "1|3|");
    ricerca->segna(1);
    EXPECT_EQ(ricerca->scelti(), "3|");
    EXPECT_EQ(ricerca->segnate(), 1);
}

TEST_F(Search, WithoutThatSettingACallersWishForSeveralHasNoEffect) {
    gMultiSel = 0;
    apri({.sql = sqlPagamenti, .campoChiave = "DESCRIZIONE", .multi = true});
    ricerca->segna(3);
    EXPECT_FALSE(ricerca->multi());
    EXPECT_EQ(ricerca->scelti(), "1|");
}

TEST_F(Search, MarksEndWithTheirPage) {
    gMultiSel = 1;
    apri({.sql = sqlPagamenti, .campoChiave = "DESCRIZIONE", .multi = true}).segna(1);
    ricerca->cmdDown();
    ricerca->cmdSu();
    EXPECT_EQ(ricerca->scelti(), "");
}

// ---- Columns

TEST_F(Search, ASpecificationOfOneColumnIsNotUsed) {
    apri({.sql = sqlPagamenti, .campoChiave = "DESCRIZIONE", .colonne = "<SOLA¤950"});
    EXPECT_EQ(ricerca->colonne(), 4);
    EXPECT_EQ(ricerca->colonna(2).titolo, "CODICE");
    EXPECT_TRUE(ricerca->larghezzeProprie());
}

TEST_F(Search, ASpecificationGivesTitlesWidthsAndAlignment) {
    archivio.sql("UPDATE Pagamenti SET NRATE = 2");
    apri({.sql = "SELECT TOP 3 RID, CODICE, DESCRIZIONE, NRATE FROM Pagamenti ",
          .campoChiave = "DESCRIZIONE",
          .colonne = "<COD.¤950|NOME¤3700|>RATE¤600"});
    EXPECT_EQ(ricerca->colonne(), 5);
    EXPECT_EQ(ricerca->colonna(2).titolo, "COD.");
    EXPECT_EQ(ricerca->colonna(3).larghezza, 3700);
    EXPECT_EQ(ricerca->colonna(4).allineata, u'>');
    EXPECT_EQ(ricerca->cella(1, 4), "2");
}

TEST_F(Search, LivePricesAreAskedForEachProductAndShownWithTwoDecimals) {
    archivio.sql("INSERT INTO Prodotti (RID, CODICE, DESCRIZIONE) VALUES (5, 'V', 'Vite'), (6, 'D', 'Dado')");
    std::vector<int> chiesti;
    apri({.sql = "SELECT TOP 8 RID, CODICE, DESCRIZIONE, GIACENZA, LISTINO1 FROM Prodotti ",
          .campoChiave = "DESCRIZIONE",
          .colonne = "<CODICE¤1500|<DESCRIZIONE¤5000|>GIAC.¤1000|>PR.NETTO¤1500|>PR.FIN.¤1500",
          .prezzi = [&](int id) {
              chiesti.push_back(id);
              return PrezziRicerca{12.5F, Currency::daIntero(1000), Currency::daDouble(1220.005)};
          }});
    EXPECT_EQ(chiesti, (std::vector{6, 5}));
    EXPECT_EQ(ricerca->cella(2, 2), "V");
    EXPECT_EQ(ricerca->cella(2, 4), "12,50");
    EXPECT_EQ(ricerca->cella(2, 5), "1.000,00");
    EXPECT_EQ(ricerca->cella(2, 6), "1.220,01");
}

// ---- The text

TEST_F(Search, TheOnScreenKeyboardAppendsAndDeletes) {
    apri();
    ricerca->tasto("V");
    ricerca->tasto(" ");
    ricerca->tasto("1");
    EXPECT_EQ(ricerca->txtRicerca.testo(), "V 1");
    ricerca->cmdDel();
    EXPECT_EQ(ricerca->txtRicerca.testo(), "V ");
    ricerca->cmdNuovo();
    ricerca->cmdDel();
    EXPECT_EQ(ricerca->txtRicerca.testo(), "");
}

TEST_F(Search, EnterAsksAndGoesNoFurther) {
    apri().txtRicerca.testo("voce 09");
    EXPECT_FALSE(ricerca->tastoNelTesto(u'\r'));
    EXPECT_EQ(pagina(), "9");
    EXPECT_FALSE(ricerca->tastoNelTesto(u'\r'));
}

}  // namespace
