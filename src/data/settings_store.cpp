#include "data/settings_store.h"

#include <algorithm>
#include <fcntl.h>
#include <iterator>
#include <unistd.h>
#include <utility>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>

#include "data/settings_format.h"

namespace {

// How long another program may hold the file, in milliseconds.
constexpr int attesaBlocco = 500;

constexpr auto soloProprietario = QFile::ReadOwner | QFile::WriteOwner;

QString chiaveIntera(const QString& sezione, const QString& chiave) {
    return sezione.isEmpty() ? chiave : sezione + '/' + chiave;
}

// Connection strings hold passwords.
void nascondiAgliAltri(const QString& percorso) {
    const QFile::Permissions permessi = QFile::permissions(percorso);
    const QFile::Permissions propri = permessi & soloProprietario;
    const QFile::Permissions altrui = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    if (permessi & altrui) QFile::setPermissions(percorso, propri);
}

// Made before its content, so that it is private from its first moment.
void creaPrivato(const QString& percorso) {
    QDir().mkpath(QFileInfo(percorso).path());
    const int file =
        ::open(QFile::encodeName(percorso).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file >= 0) ::close(file);
}

// QSettings waits for ever on a lock that another program holds, or that cannot be made.
bool prontoPerScrivere(const QString& percorso) {
    creaPrivato(percorso);
    QLockFile blocco(percorso + ".lock");
    return blocco.tryLock(attesaBlocco);
}

QString nomeLibero(const QString& percorso) {
    const QString base = percorso + ".guasto";
    QString nome = base;
    for (int numero = 2; QFileInfo::exists(nome); ++numero) {
        nome = base + '.' + QString::number(numero);
    }
    return nome;
}

}  // namespace

void SettingsStore::avverti(const QString& avviso) {
    if (mGiaDetti.contains(avviso)) return;
    mGiaDetti.append(avviso);
    mAvvisi.append(avviso);
}

QStringList SettingsStore::prendiAvvisi() {
    return std::exchange(mAvvisi, {});
}

SettingsOnDisk::SettingsOnDisk(QString cartella) : mCartella(std::move(cartella)) {}

SettingsOnDisk::~SettingsOnDisk() = default;

QString SettingsOnDisk::cartellaUtente() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Orbelune";
}

QString SettingsOnDisk::percorso(const QString& applicazione) const {
    return mCartella + '/' + applicazione + ".ini";
}

bool SettingsOnDisk::mettiDaParte(const QString& percorso, const QString& motivo) {
    const QString copia = nomeLibero(percorso);
    if (!QFile::copy(percorso, copia)) {
        avverti("Il file delle impostazioni \"" + percorso + "\" " + motivo +
                " e non se ne può fare una copia: resta com'è, e le modifiche non saranno salvate.");
        return false;
    }
    QFile::setPermissions(copia, soloProprietario);
    avverti("Il file delle impostazioni \"" + percorso + "\" " + motivo + ". Una copia è in \"" + copia +
            "\".");
    return true;
}

bool SettingsOnDisk::ripulisci(const QString& percorso, const QSettings::SettingsMap& voci) {
    QSaveFile file(percorso);
    if (file.open(QFile::WriteOnly) && scriviImpostazioni(file, voci) && file.commit()) {
        return true;
    }
    avvertiScrittura(percorso);
    return false;
}

SettingsOnDisk::File SettingsOnDisk::esamina(const QString& percorso) {
    const auto usato = [&](bool scrivibile) {
        return File{std::make_unique<QSettings>(percorso, formatoImpostazioni()), scrivibile};
    };
    if (!QFileInfo::exists(percorso)) return usato(true);
    nascondiAgliAltri(percorso);
    QFile file(percorso);
    if (!QFileInfo(percorso).isFile() || !file.open(QFile::ReadOnly)) {
        avverti("Il file delle impostazioni \"" + percorso +
                "\" non si può leggere: valgono i valori predefiniti, e le modifiche non saranno salvate.");
        return {};
    }
    const LetturaImpostazioni lettura = analizzaImpostazioni(file.read(dimensioneMassimaImpostazioni + 1));
    if (file.size() == 0) {
        avverti("Il file delle impostazioni \"" + percorso + "\" è vuoto: valgono i valori predefiniti.");
    }
    if (lettura.leggibile && lettura.righeScartate == 0) return usato(true);
    const bool salvo =
        mettiDaParte(percorso, lettura.leggibile ? "contiene righe illeggibili, che non valgono"
                                                 : "è danneggiato: valgono i valori predefiniti");
    const bool pulito = salvo && ripulisci(percorso, lettura.voci);
    return pulito || lettura.leggibile ? usato(pulito) : File{};
}

SettingsOnDisk::File& SettingsOnDisk::apri(const QString& applicazione) {
    const auto trovato = mFile.find(applicazione);
    if (trovato != mFile.end()) return trovato->second;
    File file = esamina(percorso(applicazione));
    if (file.contenuto) file.contenuto->setFallbacksEnabled(false);
    return mFile[applicazione] = std::move(file);
}

QString SettingsOnDisk::leggi(const QString& applicazione, const QString& sezione, const QString& chiave,
                              const QString& predefinito) {
    const File& file = apri(applicazione);
    if (!file.contenuto) return predefinito;
    return file.contenuto->value(chiaveIntera(sezione, chiave), predefinito).toString();
}

void SettingsOnDisk::scriviTutte(const QString& applicazione, const std::vector<Voce>& voci) {
    File& file = apri(applicazione);
    std::vector<Voce> cambiate;
    std::copy_if(voci.begin(), voci.end(), std::back_inserter(cambiate), [&](const Voce& voce) {
        const QString chiave = chiaveIntera(voce.sezione, voce.chiave);
        return !file.contenuto || !file.contenuto->contains(chiave) ||
               file.contenuto->value(chiave).toString() != voce.valore;
    });
    if (cambiate.empty()) return;
    const QString nome = percorso(applicazione);
    if (!file.contenuto || !file.scrivibile || !prontoPerScrivere(nome) || !salva(file, nome, cambiate)) {
        avvertiScrittura(nome);
    }
}

bool SettingsOnDisk::salva(File& file, const QString& percorso, const std::vector<Voce>& voci) {
    for (const Voce& voce : voci) {
        file.contenuto->setValue(chiaveIntera(voce.sezione, voce.chiave), voce.valore);
    }
    file.contenuto->sync();
    if (file.contenuto->status() == QSettings::NoError) return true;
    if (QFileInfo(percorso).size() == 0) QFile::remove(percorso);
    // A status once bad stays so: the next write begins with a fresh one.
    file.contenuto = std::make_unique<QSettings>(percorso, formatoImpostazioni());
    return false;
}

void SettingsOnDisk::avvertiScrittura(const QString& percorso) {
    avverti("Le impostazioni non si possono salvare in \"" + percorso +
            "\": valgono fino alla chiusura del programma.");
}

// ---- The settings in force

namespace {

SettingsStore* impostazioniInForza = nullptr;

}  // namespace

SettingsStore& impostazioni() {
    static SettingsOnDisk suDisco;
    return impostazioniInForza != nullptr ? *impostazioniInForza : suDisco;
}

void impostaImpostazioni(SettingsStore* impostazioni) {
    impostazioniInForza = impostazioni;
}
