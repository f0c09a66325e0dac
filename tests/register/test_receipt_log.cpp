#include "register/receipt_log_fixture.h"

TEST_F(ReceiptLog, PrintedSaleIsNotListed) {
    consegna("A", 3);
    invia(3);
    r.salvataggioConcluso(true);
    r.accettata();
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, SaleInTheQueueWaits) {
    vende("A", 3);
    EXPECT_EQ(voci(), QStringList{"A: in attesa del registratore"});
}

TEST_F(ReceiptLog, SaleWithTheLinkDownIsListedOnceItIsSaved) {
    r.inizia("A");
    r.nonConsegnato(Esito::Scollegato);
    EXPECT_EQ(voci(), QStringList());
    r.salvataggioConcluso(true);
    EXPECT_EQ(voci(), QStringList{"A: registratore scollegato"});
}

TEST_F(ReceiptLog, SaleThatWasNotSavedNeedsNoReceipt) {
    r.inizia("A");
    r.nonConsegnato(Esito::Sospeso);
    r.salvataggioConcluso(false);
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, CancelListsEverythingInTheQueue) {
    vende("A", 3);
    invia(3);  // its last frame is refused
    vende("B", 3);
    r.rifiutata();
    r.annullate();
    EXPECT_EQ(voci(), (QStringList{"A: annullato dall'operatore", "B: annullato dall'operatore"}));
}

TEST_F(ReceiptLog, RefusedFrameThatIsNotSentAgainLeavesTheReceiptIncomplete) {
    vende("A", 3);
    r.inviata();
    r.rifiutata();
    invia(2);
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: un comando rifiutato non è stato ripreso"});
}

TEST_F(ReceiptLog, RetriedFrameLeavesTheReceiptWhole) {
    vende("A", 2);
    invia(2);
    r.rifiutata();
    r.ripresa();
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, ReceiptOfASaleThatWasRolledBackIsListed) {
    consegna("A", 1);
    r.inviata();
    r.salvataggioConcluso(false);
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: scontrino inviato, salvataggio NON riuscito"});
}

TEST_F(ReceiptLog, ReceiptPrintedBeforeTheFailedSaveHasEndedIsListed) {
    consegna("A", 1);
    r.inviata();
    r.accettata();
    r.salvataggioConcluso(false);
    EXPECT_EQ(voci(), QStringList{"A: scontrino inviato, salvataggio NON riuscito"});
}

TEST_F(ReceiptLog, OldestEntriesGoBeyondTheLimit) {
    for (size_t i = 0; i <= RegistroScontrini::vociMassime; ++i) {
        r.inizia(QString::number(i));
        r.nonConsegnato(Esito::Scollegato);
        r.salvataggioConcluso(true);
    }
    EXPECT_EQ(r.voci().size(), RegistroScontrini::vociMassime);
    EXPECT_EQ(r.voci().front().vendita, "1");
}

TEST_F(ReceiptLog, SaveThatBeginsAnewWithinItselfHasFailedSoFar) {
    consegna("A", 1);
    r.inviata();
    r.accettata();
    consegna("B", 1);
    r.inviata();
    r.salvataggioConcluso(true);
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: scontrino inviato, salvataggio NON riuscito"});
}

// ---- A save of which nobody knows how it has ended

TEST_F(ReceiptLog, UncertainSaleStaysListedUntilItIsKnown) {
    consegna("A", 1);
    r.inviata();
    const int numero = r.salvataggioIncerto();
    EXPECT_EQ(voci(), QStringList{"A: in attesa del registratore, salvataggio incerto"});
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: scontrino stampato, salvataggio incerto"});
    r.chiarisci(numero, true);
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, UncertainSaleThatIsNotInTheBooksHasAReceiptTooMany) {
    consegna("A", 1);
    r.inviata();
    const int numero = r.salvataggioIncerto();
    r.accettata();
    r.chiarisci(numero, false);
    EXPECT_EQ(voci(), QStringList{"A: scontrino inviato, salvataggio NON riuscito"});
}

TEST_F(ReceiptLog, UncertainSaleStillInTheQueueIsKnownBeforeItIsPrinted) {
    consegna("A", 1);
    const int numero = r.salvataggioIncerto();
    r.chiarisci(numero, false);
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: scontrino inviato, salvataggio NON riuscito"});
}

TEST_F(ReceiptLog, UncertainSaleWithoutAReceiptIsListedOnceItIsInTheBooks) {
    r.inizia("A");
    r.nonConsegnato(Esito::Scollegato);
    const int numero = r.salvataggioIncerto();
    EXPECT_EQ(voci(), QStringList{"A: registratore scollegato, salvataggio incerto"});
    r.salvataggioConcluso(false);
    EXPECT_EQ(voci().size(), 1);
    r.chiarisci(numero, true);
    EXPECT_EQ(voci(), QStringList{"A: registratore scollegato"});
}

TEST_F(ReceiptLog, UncertainSaleWithoutAReceiptIsForgottenWhenItIsNotInTheBooks) {
    r.inizia("A");
    r.nonConsegnato(Esito::Sospeso);
    r.chiarisci(r.salvataggioIncerto(), false);
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, AnotherSaleDoesNotDecideAnUncertainOne) {
    consegna("A", 1);
    r.inviata();
    const int numero = r.salvataggioIncerto();
    r.accettata();
    consegna("B", 1);
    r.inviata();
    r.salvataggioConcluso(true);
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: scontrino stampato, salvataggio incerto"});
    r.chiarisci(numero, true);
    EXPECT_EQ(voci(), QStringList());
}
