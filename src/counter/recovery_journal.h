#pragma once

#include <array>
#include <optional>
#include <set>

#include "counter/accounts.h"
#include "counter/open_sale_record.h"
#include "data/append_log.h"

// The sales being rung up on all accounts, written down key by key in a file of this user's, so that they
// outlive the program: after a crash the next start brings them back. The file is there only while there is
// something in it that the books do not have.
class GiornaleVendite {
  public:
    explicit GiornaleVendite(const QString& percorso);
    ~GiornaleVendite();

    // A sale that was open when the program ended.
    struct VenditaAperta {
        int conto = 0;
        ImmagineVendita immagine;
        // It was being saved: whether that is in the books has to be looked up.
        std::optional<SalvataggioIncerto> salvataggio;
        // It was being deleted: its rows, DettagliMovimento keys, of which the same is true.
        std::set<int> cancellate;
    };
    // What the last run left behind.
    std::vector<VenditaAperta> leggi();
    // Keeps what `leggi` found until the sales brought back have been written down anew, by the second call.
    void cominciaRipresa();
    void finisciRipresa();
    // What the last run left behind is not wanted any more.
    void dimentica();

    // Writes down what has changed on the open accounts. After every key.
    void annota();
    // On the disk before the commit: what the books will hold if it succeeds. The sale itself stays written
    // down as it was before its save, without the keys that only the commit makes true.
    void inSalvataggio(int conto, const SalvataggioIncerto& salvataggio);
    // On the disk before a deletion: the keys of the rows that leave the books if it succeeds. Of a sale that
    // is not written down there is nothing to say.
    void inCancellazione(int conto, const std::set<int>& righe);

    // This user's file for the archive and desk in force: another archive's sales wait in theirs.
    static QString percorsoUtente();

  private:
    // The file of the last run, while its sales are being brought back.
    QString percorsoPrima() const { return mPercorso + ".prima"; }
    bool qualcosaDaSalvare() const;
    bool scrivi(const QJsonObject& record);
    void sincronizza();
    void riferisciGuasto();

    QString mPercorso;
    RegistroAppeso mRegistro;
    std::array<std::optional<TracciaVendita>, contiMassimi> mTracce;
    bool mGuasto = false;  // the file cannot be written; told once
};

// The journal in force; nothing when none is kept.
GiornaleVendite* giornaleVendite();

// Offers to bring back what the last run left behind, each sale on its account.
void riprendiVendite(GiornaleVendite& giornale, OperatorPort& operatore);
