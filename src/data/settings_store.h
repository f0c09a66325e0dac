#pragma once

#include <map>
#include <memory>
#include <vector>

#include <QSettings>
#include <QString>
#include <QStringList>

// The door to the per-user settings: texts by application, section and key. An empty section is the top
// level of its application. Nothing here stops the program: what goes wrong is a warning.
class SettingsStore {
  public:
    struct Voce {
        QString sezione;
        QString chiave;
        QString valore;
    };

    virtual ~SettingsStore() = default;

    virtual QString leggi(const QString& applicazione, const QString& sezione, const QString& chiave,
                          const QString& predefinito) = 0;
    // Writes what is missing or differs from what is stored, in one go.
    virtual void scriviTutte(const QString& applicazione, const std::vector<Voce>& voci) = 0;
    void scrivi(const QString& applicazione, const QString& sezione, const QString& chiave,
                const QString& valore) {
        scriviTutte(applicazione, {{sezione, chiave, valore}});
    }

    // A text for the operator, kept until somebody can show it; the same one is kept once.
    void avverti(const QString& avviso);
    // The warnings so far, each handed out once.
    QStringList prendiAvvisi();

  private:
    QStringList mAvvisi;
    QStringList mGiaDetti;
};

// One file an application, <folder>/<application>.ini, readable by its owner alone. A file that cannot be
// read as settings is put aside as "<application>.ini.guasto" (with a number when that exists).
class SettingsOnDisk final : public SettingsStore {
  public:
    // Without a folder: $XDG_CONFIG_HOME/Orbelune.
    explicit SettingsOnDisk(QString cartella = cartellaUtente());
    ~SettingsOnDisk() override;

    static QString cartellaUtente();

    QString leggi(const QString& applicazione, const QString& sezione, const QString& chiave,
                  const QString& predefinito) override;
    void scriviTutte(const QString& applicazione, const std::vector<Voce>& voci) override;

  private:
    struct File {
        std::unique_ptr<QSettings> contenuto;  // empty: the file cannot be used
        bool scrivibile = true;                // false: writing would lose what is in it
    };

    QString percorso(const QString& applicazione) const;
    File& apri(const QString& applicazione);
    File esamina(const QString& percorso);
    bool salva(File& file, const QString& percorso, const std::vector<Voce>& voci);
    bool mettiDaParte(const QString& percorso, const QString& motivo);
    bool ripulisci(const QString& percorso, const QSettings::SettingsMap& voci);
    void avvertiScrittura(const QString& percorso);

    QString mCartella;
    std::map<QString, File> mFile;
};

// The settings in force: those on disk, until others are set (a null pointer puts the disk back).
SettingsStore& impostazioni();
void impostaImpostazioni(SettingsStore* impostazioni);
