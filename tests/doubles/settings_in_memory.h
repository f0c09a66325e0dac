#pragma once

#include <map>
#include <tuple>

#include "data/settings_store.h"

// Settings that live as long as the test, and take the place of those on disk while they do.
class SettingsInMemory final : public SettingsStore {
  public:
    SettingsInMemory() { impostaImpostazioni(this); }
    ~SettingsInMemory() override { impostaImpostazioni(nullptr); }

    QString leggi(const QString& applicazione, const QString& sezione, const QString& chiave,
                  const QString& predefinito) override {
        const auto trovata = valori.find({applicazione, sezione, chiave});
        return trovata == valori.end() ? predefinito : trovata->second;
    }
    void scriviTutte(const QString& applicazione, const std::vector<Voce>& voci) override {
        for (const Voce& voce : voci) {
            valori[{applicazione, voce.sezione, voce.chiave}] = voce.valore;
        }
    }

    std::map<std::tuple<QString, QString, QString>, QString> valori;  // by application, section, key
};
