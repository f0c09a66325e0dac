#pragma once

#include <optional>
#include <set>
#include <vector>

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include "sale/vendita.h"

// A sale under way as records that can be written down and brought back: each tells what has changed since
// the one before.

// What a field shows and remembers.
struct ValoreCampo {
    QString testo;
    QString tag;
    int valore = 0;
    int segni = 0;  // locked, enabled, visible: bits 0, 1, 2

    bool operator==(const ValoreCampo&) const = default;
};

// Follows one sale from record to record.
class TracciaVendita {
  public:
    // What has changed since the last call, everything at the first; empty when nothing has. `attivo` is the
    // field being typed in, or none.
    QJsonObject differenza(const Vendita& v, const Campo* attivo);

  private:
    QJsonObject differenzaCampi(const Vendita& v);
    QJsonObject differenzaRighe(const FlexVB& righe);

    std::vector<ValoreCampo> mCampi;
    QJsonObject mStato;
    std::vector<quint64> mRevisioni;
    bool mIniziata = false;
};

// A sale as its records tell it.
class ImmagineVendita {
  public:
    void applica(const QJsonObject& record);
    // There are rows that were not saved.
    bool daSalvare() const;
    // All of it as one record.
    QJsonObject intera() const;
    // The name of the field that was being typed in; empty when none was.
    QString campoAttivo() const;
    // Puts the sale on a screen that was opened for it.
    void scriviIn(Vendita& v) const;

    // The save and the deletion of which it was not known whether they are in the books.
    std::optional<SalvataggioIncerto> salvataggioIncerto() const;
    std::set<int> cancellazioneIncerta() const;
    // Nothing was changed since that save.
    bool comeSalvata() const;
    // It is known now.
    void salvataggioChiarito();
    void cancellazioneChiarita();

  private:
    QHash<QString, ValoreCampo> mCampi;
    QJsonObject mStato;
    QList<QJsonObject> mRighe;
};
