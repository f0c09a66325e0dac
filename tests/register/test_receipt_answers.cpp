#include "register/receipt_log_fixture.h"

// ---- Answers that are missing

TEST_F(ReceiptLog, LinkLostInMidReceiptLeavesItListedEvenWhenItsRestIsPrinted) {
    vende("A", 3);
    invia(2);
    r.collegamentoPerso();
    EXPECT_EQ(voci(), QStringList{"A: collegamento caduto durante la stampa"});
    vende("B", 1);
    invia(2);
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: collegamento caduto durante la stampa"});
}

// The other side has lost the rows that it had taken.
TEST_F(ReceiptLog, RetryBehindALostLinkLeavesTheReceiptListed) {
    vende("A", 2);
    invia(2);
    r.collegamentoPerso();
    r.ripresa();
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: collegamento caduto durante la stampa"});
}

TEST_F(ReceiptLog, RetryOfAFrameRefusedBeforeTheLinkWasLostLeavesTheReceiptListed) {
    vende("A", 3);
    invia(2);
    r.rifiutata();
    r.collegamentoPerso();
    r.ripresa();
    invia(2);
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: collegamento caduto durante la stampa"});
}

TEST_F(ReceiptLog, RefusalBehindALostLinkMakesNothingGoodAgain) {
    vende("A", 2);
    r.inviata();
    r.collegamentoPerso();
    r.inviata();
    r.rifiutata();
    r.ripresa();
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: collegamento caduto durante la stampa"});
}

TEST_F(ReceiptLog, ReceiptOfWhichNothingWasSentOutlivesALostLink) {
    vende("A", 1);
    r.collegamentoPerso();
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, LinkLostBetweenTwoReceiptsMakesNoDifference) {
    vende("A", 1);
    r.inviata();
    r.accettata();
    r.collegamentoPerso();
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, ReceiptsThatOverlapAreGoodWhenEveryFrameHasItsAnswer) {
    vende("A", 1);
    r.inviata();
    vende("B", 1);
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci().size(), 2);
    r.accettata();
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, ReceiptsThatOverlapAreInDoubtWhenAnAnswerIsMissing) {
    vende("A", 2);
    r.inviata();  // its answer never comes
    vende("B", 1);
    invia(2);
    r.accettata();
    vende("C", 1);
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), (QStringList{"A: le risposte non tornano: da controllare",
                                   "B: le risposte non tornano: da controllare",
                                   "C: le risposte non tornano: da controllare"}));
}

TEST_F(ReceiptLog, AnswerThatIsMissingBehindOneThatCameIsNotWaitedFor) {
    vende("A", 1);
    r.inviata();
    vende("B", 1);
    r.inviata();
    EXPECT_EQ(r.inAttesa(), 2);
    r.accettata();
    EXPECT_EQ(r.inAttesa(), 0);
}

// The answer to the last frame of B comes when the first one of C is on its way.
TEST_F(ReceiptLog, ReceiptThatTakesALateAnswerForItsOwnIsInDoubt) {
    vende("A", 1);
    r.inviata();
    vende("B", 1);
    r.inviata();
    r.accettata();
    vende("C", 2);
    r.inviata();
    r.accettata();  // the late one
    r.inviata();
    r.accettata();  // of the first frame: the second one has none
    EXPECT_EQ(voci().last(), "C: le risposte non tornano: da controllare");
}

TEST_F(ReceiptLog, LateAnswerThatComesBeforeTheNextReceiptPutsNobodyInDoubt) {
    vende("A", 1);
    r.inviata();
    r.annullate();
    r.accettata();
    vende("B", 1);
    invia(1);
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}

TEST_F(ReceiptLog, ReceiptBehindACancelWithAFrameInFlightIsInDoubt) {
    vende("A", 2);
    r.inviata();
    r.annullate();
    vende("B", 1);
    r.inviata();
    r.accettata();  // of the frame of A
    EXPECT_EQ(voci(),
              (QStringList{"A: annullato dall'operatore", "B: le risposte non tornano: da controllare"}));
}

TEST_F(ReceiptLog, ReceiptBehindANewConnectionTakesNoLateAnswer) {
    vende("A", 2);
    r.inviata();
    r.annullate();
    r.collegamentoPerso();
    vende("B", 1);
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: annullato dall'operatore"});
}

TEST_F(ReceiptLog, AnswersThatCameTogetherLeaveNoneMissingForTheNextReceipt) {
    vende("A", 1);
    r.inviata();
    vende("B", 1);
    r.inviata();
    r.rispostaNascosta();
    r.accettata();
    vende("C", 1);
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), (QStringList{"A: le risposte non tornano: da controllare",
                                   "B: le risposte non tornano: da controllare"}));
}

TEST_F(ReceiptLog, AnswerThatWasNotReadLeavesTheReceiptInDoubt) {
    vende("A", 1);
    r.inviata();
    r.rispostaNascosta();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}

TEST_F(ReceiptLog, RetryOfOneOfTwoFramesInFlightLeavesBothReceiptsListed) {
    vende("A", 1);
    r.inviata();
    vende("B", 1);
    r.inviata();
    r.rifiutata();
    r.ripresa();
    r.inviata();
    r.accettata();
    r.accettata();
    EXPECT_EQ(voci(), (QStringList{"A: un comando rifiutato non è stato ripreso",
                                   "B: le risposte non tornano: da controllare"}));
}

TEST_F(ReceiptLog, FrameThatIsRetriedTwiceLeavesTheReceiptInDoubt) {
    vende("A", 1);
    r.inviata();
    r.rifiutata();
    for (int schermo = 0; schermo < 2; ++schermo) {
        r.ripresa();
        r.inviata();
    }
    r.accettata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}

// While it waits the operator goes on selling: the last frame is soon another one.
TEST_F(ReceiptLog, RetryThatSendsAnotherFrameThanTheRefusedOneLeavesTheReceiptInDoubt) {
    vende("A", 2);
    r.inviata();
    r.rifiutata();
    invia(1);
    r.ripresa();
    r.inviata();
    r.accettata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}

TEST_F(ReceiptLog, FrameRetriedBehindACancelBelongsToNoLaterReceipt) {
    vende("A", 2);
    r.inviata();
    r.rifiutata();
    r.annullate();
    r.ripresa();
    r.inviata();
    r.accettata();
    vende("B", 1);
    EXPECT_EQ(voci(), (QStringList{"A: annullato dall'operatore", "B: in attesa del registratore"}));
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: annullato dall'operatore"});
}

TEST_F(ReceiptLog, AnswerToAFrameRetriedBehindACancelMayBeTakenForALaterReceipt) {
    vende("A", 2);
    r.inviata();
    r.rifiutata();
    r.annullate();
    r.ripresa();
    r.inviata();
    vende("B", 1);
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(),
              (QStringList{"A: annullato dall'operatore", "B: le risposte non tornano: da controllare"}));
}

// ---- Answers that nobody waited for

// The first answer was one too many: what comes behind the end is that of the total.
TEST_F(ReceiptLog, AnswerTooManyInMidReceiptPutsItInDoubtWhenTheTotalIsAnswered) {
    for (const bool rifiutato : {false, true}) {
        RegistroScontrini altro;
        std::swap(r, altro);
        vende("A", 3);
        invia(3);
        r.accettata();
        EXPECT_EQ(voci(), QStringList());
        rifiutato ? r.rifiutata() : r.accettata();
        EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"}) << rifiutato;
    }
}

TEST_F(ReceiptLog, RefusalThatNobodyAskedForLeavesTheRetriedReceiptInDoubt) {
    vende("A", 3);
    invia(2);
    r.rifiutata();  // comes before the answer
    r.ripresa();
    r.inviata();
    r.accettata();
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList());
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}

TEST_F(ReceiptLog, AnswerTooManyBehindReceiptsThatOverlapPutsAllOfThemInDoubt) {
    for (const char* vendita : {"A", "B"}) {
        vende(vendita, 1);
        r.inviata();
    }
    r.accettata();
    r.accettata();
    r.accettata();
    EXPECT_EQ(voci(), (QStringList{"A: le risposte non tornano: da controllare",
                                   "B: le risposte non tornano: da controllare"}));
}

TEST_F(ReceiptLog, AnswerTooManyPutsOnlyTheLastReceiptInDoubtAndOnlyOnce) {
    for (const char* vendita : {"A", "B"}) {
        vende(vendita, 1);
        r.inviata();
        r.accettata();
    }
    r.accettata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"B: le risposte non tornano: da controllare"});
}

TEST_F(ReceiptLog, SecondRefusalOfOneFrameCannotBeMadeGood) {
    vende("A", 2);
    invia(2);
    r.rifiutata();
    r.rifiutata();
    r.ripresa();
    r.inviata();
    r.accettata();
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}

TEST_F(ReceiptLog, AnswerTooManyPutsASaleOfWhichNobodyKnowsInDoubtToo) {
    consegna("A", 1);
    r.inviata();
    const int numero = r.salvataggioIncerto();
    r.accettata();
    r.accettata();
    r.chiarisci(numero, true);
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}

// A program that greets: what it says belongs to no frame of the connection before.
TEST_F(ReceiptLog, AnswerOnANewConnectionPutsNobodyInDoubt) {
    vende("A", 1);
    r.inviata();
    r.accettata();
    r.collegamentoPerso();
    r.accettata();
    EXPECT_EQ(voci(), QStringList());
}

// ---- A cancel while receipts overlap

TEST_F(ReceiptLog, CancelLeavesAReceiptThatWasSentToItsEndInDoubt) {
    vende("A", 1);
    r.inviata();
    vende("B", 2);
    r.inviata();
    r.accettata();
    r.rifiutata();
    r.annullate();
    EXPECT_EQ(voci(),
              (QStringList{"A: le risposte non tornano: da controllare", "B: annullato dall'operatore"}));
}

TEST_F(ReceiptLog, CancelKeepsAPrintedReceiptOfASaleThatWasRolledBack) {
    consegna("A", 1);
    r.inviata();
    r.salvataggioConcluso(false);
    vende("B", 2);
    r.inviata();
    r.accettata();
    r.rifiutata();
    r.annullate();
    EXPECT_EQ(voci(),
              (QStringList{"A: scontrino inviato, salvataggio NON riuscito", "B: annullato dall'operatore"}));
}

TEST_F(ReceiptLog, CancelForgetsARefusedReceiptOfASaleThatWasRolledBack) {
    consegna("A", 1);
    r.inviata();
    r.salvataggioConcluso(false);
    r.rifiutata();
    r.annullate();
    EXPECT_EQ(voci(), QStringList());
}

TEST_F(ReceiptLog, CancelOnAnotherScreenLeavesARetriedLastFrameInDoubt) {
    vende("A", 1);
    r.inviata();
    r.rifiutata();
    r.ripresa();
    r.inviata();
    r.annullate();
    EXPECT_EQ(voci(), QStringList{"A: le risposte non tornano: da controllare"});
}
