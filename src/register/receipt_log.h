#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include <QDateTime>
#include <QString>

// Which sales since the start of the program have no receipt, or one that does not tell the truth about
// them. The books say what they hand over, the link what becomes of it.
class RegistroScontrini {
  public:
    enum class Esito {
        InCoda,      // handed over, not yet printed
        Scollegato,  // the link was down
        Sospeso,     // sending was suspended
        Annullato,   // thrown away by the operator
        Incompleto,  // a refused command was left out
        NonSalvata,  // printed or on its way, but the save did not succeed
    };
    struct Voce {
        QDateTime ora;
        QString vendita;
        Esito esito;
    };
    // The oldest entries go beyond this number.
    static constexpr size_t vociMassime = 10000;

    // ---- The books
    // The sale under way, named for a person; without a name it is not listed.
    void inizia(const QString& vendita) { mVendita = vendita; }
    void nonConsegnato(Esito esito);
    void consegnato(qsizetype cornici);
    // How the save that handed over the latest receipt has ended.
    void salvataggioConcluso(bool salvata);

    // ---- The link
    void inviata();    // a frame left the queue
    void accettata();  // the frame in flight was taken
    void rifiutata();  // it was refused
    void ripresa();    // it goes back into the queue
    void annullate();  // the queue was emptied

    // Sales without a good receipt, by time.
    std::vector<Voce> voci() const;
    void osserva(std::function<void()> osservatore) { mOsservatore = std::move(osservatore); }

  private:
    // A receipt in the queue.
    struct Lotto {
        Voce voce;
        qsizetype daInviare;
        bool rifiutato = false;
    };

    void archivia(const Lotto& lotto);
    void aggiungi(Voce voce);
    void cambiato() const;

    std::deque<Voce> mMancanti;
    std::deque<Lotto> mCoda;
    int mInVolo = -1;  // place in the queue of the receipt whose frame was sent last
    QString mVendita;
    // Of the save under way: its receipt is in the queue, or has left it, or was never handed over.
    bool mConsegnato = false;
    std::optional<Voce> mStampato;
    std::optional<Voce> mNonConsegnato;
    std::function<void()> mOsservatore;
};

// What the screen says of such a sale.
QString descrizioneEsito(RegistroScontrini::Esito esito);
