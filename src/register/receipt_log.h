#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include <QDateTime>
#include <QString>

// Which sales since the start of the program have no receipt, or one that may not tell the truth about them.
// The books say what they hand over and how the save ends, the link what becomes of the receipt.
//
// The wire numbers nothing, so an answer belongs to whatever is in flight: while receipts overlap, all of
// them wait on the list until each frame has its answer. A receipt that is handed over while an older answer
// may still come is in doubt, since that answer would be taken for one of its own.
class RegistroScontrini {
  public:
    enum class Esito {
        InCoda,      // handed over, not yet printed
        Scollegato,  // the link was down
        Sospeso,     // sending was suspended
        Annullato,   // thrown away by the operator
        Incompleto,  // a refused command was left out
        Interrotto,  // the link was lost while a command was in flight
        Dubbio,      // an answer is missing, came unasked or was not read, or a command went out twice
        Stampato,    // all went well
        NonSalvata,  // printed or on its way, but the save did not succeed
    };
    struct Voce {
        QDateTime ora;
        QString vendita;
        Esito esito;
        int salvataggio = 0;   // the save that has not ended, by its number; 0 when it has
        bool incerta = false;  // nobody knows how it has ended
    };
    // The oldest entries go beyond this number.
    static constexpr size_t vociMassime = 10000;

    // ---- The books
    // The sale under way, named for a person; without a name it is not listed.
    void inizia(const QString& vendita);
    void nonConsegnato(Esito esito);
    void consegnato(qsizetype cornici);
    // How the save under way has ended.
    void salvataggioConcluso(bool salvata);
    // It has ended, and nobody knows how. Its entry stays until chiarisci() is told the number answered here.
    int salvataggioIncerto();
    void chiarisci(int salvataggio, bool salvata);

    // ---- The link
    void inviata();            // a frame left the queue
    void accettata();          // the frame in flight was taken
    void rispostaNascosta();   // behind an answer that is told next stood another one, which was not read
    void rifiutata();          // the frame in flight was refused
    void ripresa();            // the last frame goes back into the queue
    void annullate();          // the queue was emptied
    void collegamentoPerso();  // no answer comes any more, and the other side may have lost what it took

    // Receipts that are still to be printed, or of which some frame has no answer yet. Where all are sent and
    // an answer is missing behind one that came, nothing is waited for: it may never come.
    qsizetype inAttesa() const;
    // Those of them behind the one at work.
    qsizetype accodati() const { return std::max<qsizetype>(0, inAttesa() - 1); }
    // Sales without a good receipt, by time.
    std::vector<Voce> voci() const;
    void osserva(std::function<void()> osservatore) { mOsservatore = std::move(osservatore); }

  private:
    // A receipt in the queue.
    struct Lotto {
        Voce voce;
        qsizetype daInviare;
        std::optional<Esito> difetto = {};
        bool iniziato = false;  // some frame was sent
        bool intero = false;    // all were sent, at least once: it may be on paper
        Voce comeSta() const;
        // What was refused can be made good, nothing else can: the first such flaw stays.
        void guasta(Esito nuovo);
    };

    Voce nuovaVoce(Esito esito) const;
    // The receipts of which some frame has no answer.
    void segnaInVolo(Esito difetto);
    void archiviaInviati();
    // An answer came while no frame of the queue waited for one.
    void rispostaSenzaCornice();
    // An entry out of the queue: listed as far as it must be, once its save has ended.
    void archivia(Voce voce);
    void decidi(Voce voce, bool salvata);
    void cambiato() const;

    std::deque<Voce> mMancanti;
    std::vector<Voce> mInSospeso;  // out of the queue, or never in it, of saves that have not ended
    std::vector<Voce> mUltimi;     // not listed, printed by what the last answers said
    std::deque<Lotto> mCoda;
    int mInVolo = -1;              // place in the queue of the receipt whose frame was sent last
    int mSenzaRisposta = 0;        // frames in flight
    int mOrfane = 0;               // frames to be sent again whose receipt is no longer in the queue
    bool mRisposteAttese = false;  // the link is done with the queue, but answers are missing
    int mArretrate = 0;            // answers that may still come, to frames of no receipt in the queue
    bool mRiprendibile = false;    // sending the last frame again makes its receipt whole
    QString mVendita;
    int mSalvataggio = 0;  // number of the save under way; 0: none
    int mUltimoSalvataggio = 0;
    std::function<void()> mOsservatore;
};

// What the screen says of such a sale.
QString descrizioneEsito(RegistroScontrini::Esito esito);
QString descrizione(const RegistroScontrini::Voce& voce);
