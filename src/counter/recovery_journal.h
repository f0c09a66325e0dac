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
        // 0 to 3; above them the place of a sale that stays in the file without an account.
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
    // `rimaste` are those that did not come back: they stay in the file for the next start.
    void cominciaRipresa();
    void finisciRipresa(std::vector<VenditaAperta> rimaste);
    // What the last run left behind is not wanted any more.
    void dimentica();

    // Writes down what has changed on the open accounts. After every key.
    void annota();
    // On the disk before the commit: what the books will hold if it succeeds. The sale itself stays written
    // down as it was before its save, without the keys that only the commit makes true. Of a sale that is not
    // written down there is nothing to say.
    void inSalvataggio(int conto, const SalvataggioIncerto& salvataggio);
    // On the disk before a deletion: the keys of the rows that leave the books if it succeeds.
    void inCancellazione(int conto, const std::set<int>& righe);

    // This user's file for the archive and desk in force: another archive's sales wait in theirs.
    static QString percorsoUtente();

  private:
    // A sale as it changes, and as the file tells it.
    struct VenditaSeguita {
        TracciaVendita traccia;
        VenditaAperta scritta;
    };

    // The file of the last run, while its sales are being brought back.
    QString percorsoPrima() const { return mPercorso + ".prima"; }
    bool primaSuperata() const;
    void togliPrima();
    bool qualcosaDaSalvare() const;
    // Both answer whether the file tells all that there is.
    bool aggiorna();
    bool sgombra();
    void impegna(int conto, const QJsonObject& record);
    void scrivi(int conto, QJsonObject record);
    bool ricomincia();
    void sincronizza();
    void riferisci(bool& detto, const QString& guasto) const;

    QString mPercorso;
    RegistroAppeso mRegistro;
    std::array<std::optional<VenditaSeguita>, contiMassimi> mSeguite;
    std::vector<VenditaAperta> mRimaste;
    bool mPrimaPendente = false;  // the last run's file stays until this one is on the disk
    bool mDaCapo = false;         // the file lacks something, and has to begin anew
    bool mGuasto = false;         // the file cannot be written; told once
    bool mGuastoNome = false;     // the same of its name
};

// The journal in force; nothing when none is kept.
GiornaleVendite* giornaleVendite();
