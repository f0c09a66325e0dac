#include "counter/recovery_journal.h"

#include <algorithm>
#include <map>

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>

#include "core/errors.h"
#include "core/globals.h"
#include "counter/uncertain_save_record.h"
#include "data/disk.h"
#include "data/settings_store.h"

namespace {

GiornaleVendite* inVigore = nullptr;

const QString nomeConto = "conto";
const QString nomeFine = "fine";
const QString nomeSalva = "salva";
const QString nomeCancella = "cancella";
const QString nomeRipresa = "ripresa";

const char* const testoNonScritto = "Giornale delle vendite aperte non scritto";
const char* const testoNomeNonScritto = "Nome del giornale delle vendite aperte non scritto";

// Names that change have to reach the disk too, or a power cut brings the ones before back.
void sposta(const QString& da, const QString& a) {
    QFile::remove(a);
    QFile::rename(da, a);
    disco().scaricaCartellaDi(a);
}

void togli(const QString& file) {
    if (QFile::remove(file)) disco().scaricaCartellaDi(file);
}

QJsonObject oggettoDi(const QByteArray& record) {
    return QJsonDocument::fromJson(record).object();
}

QByteArray rigaDi(const QJsonObject& record) {
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

using VenditaAperta = GiornaleVendite::VenditaAperta;

// A record of one account, into what is known of it.
void applica(const QJsonObject& record, VenditaAperta& aperta) {
    aperta.immagine.applica(record);
    // Any other record: something was done after the save or the deletion, which failed.
    aperta.salvataggio.reset();
    if (record.contains(nomeSalva)) aperta.salvataggio = salvataggioDa(record[nomeSalva].toObject());
    aperta.cancellate = chiaviDa(record[nomeCancella]);
}

QJsonObject recordDi(const VenditaAperta& aperta, int conto) {
    QJsonObject record = aperta.immagine.intera();
    record[nomeConto] = conto;
    if (aperta.salvataggio) record[nomeSalva] = jsonDi(*aperta.salvataggio);
    if (!aperta.cancellate.empty()) record[nomeCancella] = jsonDi(aperta.cancellate);
    return record;
}

}  // namespace

GiornaleVendite::GiornaleVendite(const QString& percorso) : mPercorso(percorso), mRegistro(percorso) {
    inVigore = this;
}

GiornaleVendite::~GiornaleVendite() {
    inVigore = nullptr;
}

GiornaleVendite* giornaleVendite() {
    return inVigore;
}

QString GiornaleVendite::percorsoUtente() {
    const QString negozio = gDescrizioneConnessione + '\n' + QString::number(gIDCassa);
    const QByteArray impronta = QCryptographicHash::hash(negozio.toUtf8(), QCryptographicHash::Sha1).toHex();
    return SettingsOnDisk::cartellaUtente() + "/vendite_aperte_" + impronta.left(12) + ".giornale";
}

// The program ended while it was bringing those sales back, or the disk never took the file that tells them
// anew: which of the two, that file says itself, at its end.
bool GiornaleVendite::primaSuperata() const {
    const QList<QByteArray> record = RegistroAppeso::leggi(mPercorso);
    return std::any_of(record.begin(), record.end(),
                       [](const QByteArray& riga) { return oggettoDi(riga).contains(nomeRipresa); });
}

std::vector<VenditaAperta> GiornaleVendite::leggi() {
    const bool prima = QFile::exists(percorsoPrima()) && !primaSuperata();
    std::map<int, VenditaAperta> aperte;
    for (const QByteArray& riga : RegistroAppeso::leggi(prima ? percorsoPrima() : mPercorso)) {
        const QJsonObject record = oggettoDi(riga);
        const int conto = record[nomeConto].toInt(-1);
        if (conto < 0) continue;
        if (record.contains(nomeFine)) {
            aperte.erase(conto);
            continue;
        }
        aperte[conto].conto = conto;
        applica(record, aperte[conto]);
    }
    std::vector<VenditaAperta> daSalvare;
    for (auto& [conto, aperta] : aperte) {
        if (aperta.immagine.daSalvare()) daSalvare.push_back(std::move(aperta));
    }
    return daSalvare;
}

void GiornaleVendite::cominciaRipresa() {
    if (!QFile::exists(percorsoPrima()) || primaSuperata()) sposta(mPercorso, percorsoPrima());
}

void GiornaleVendite::finisciRipresa(std::vector<VenditaAperta> rimaste) {
    mRimaste = std::move(rimaste);
    mPrimaPendente = true;
    mDaCapo = true;
    if (aggiorna()) sincronizza();
}

void GiornaleVendite::dimentica() {
    mRegistro.elimina();
    togli(percorsoPrima());
}

void GiornaleVendite::togliPrima() {
    if (mPrimaPendente) togli(percorsoPrima());
    mPrimaPendente = false;
}

bool GiornaleVendite::qualcosaDaSalvare() const {
    return std::any_of(gConti.begin(), gConti.end(), [](const ContoAperto& conto) {
        return conto && conto->vendita().venditaModificata && conto->vendita().flxVB.righe() > 1;
    });
}

void GiornaleVendite::annota() {
    aggiorna();
}

bool GiornaleVendite::aggiorna() {
    if (!qualcosaDaSalvare()) return sgombra();
    for (int i = 0; i < contiMassimi; ++i) {
        auto& seguita = mSeguite[static_cast<size_t>(i)];
        const ContoAperto& conto = gConti[static_cast<size_t>(i)];
        if (conto && conto->vendita().venditaModificata) {
            if (!seguita) seguita.emplace();
            const QJsonObject record = seguita->traccia.differenza(conto->vendita(), conto->campoAttivo());
            if (record.isEmpty()) continue;
            applica(record, seguita->scritta);
            scrivi(i, record);
        } else if (seguita) {
            seguita.reset();
            scrivi(i, {{nomeFine, true}});
        }
    }
    return !mDaCapo || ricomincia();
}

// No screen holds what the books do not have.
bool GiornaleVendite::sgombra() {
    const bool vuoto = std::none_of(mSeguite.begin(), mSeguite.end(),
                                    [](const auto& seguita) { return seguita.has_value(); });
    if (vuoto && !mDaCapo) return true;
    mSeguite = {};
    if (!mRimaste.empty()) {
        if (!ricomincia()) return false;
        if (mPrimaPendente) sincronizza();
        return true;
    }
    mDaCapo = false;
    // The older file first: a death between the two leaves the one that knows of the last save.
    togliPrima();
    mRegistro.elimina();
    return true;
}

void GiornaleVendite::inSalvataggio(int conto, const SalvataggioIncerto& salvataggio) {
    impegna(conto, {{nomeSalva, jsonDi(salvataggio)}});
}

void GiornaleVendite::inCancellazione(int conto, const std::set<int>& righe) {
    if (!righe.empty()) impegna(conto, {{nomeCancella, jsonDi(righe)}});
}

// What has to be on the disk before the books change.
void GiornaleVendite::impegna(int conto, const QJsonObject& record) {
    auto& seguita = mSeguite[static_cast<size_t>(conto)];
    if (!seguita) return;
    applica(record, seguita->scritta);
    scrivi(conto, record);
    if (!mDaCapo || ricomincia()) sincronizza();
}

// Records that the disk has refused may be lost though it takes the next ones: another file is tried with all
// of them.
void GiornaleVendite::sincronizza() {
    EsitoScarico esito = mRegistro.sincronizza();
    if (esito == EsitoScarico::DatiRifiutati && ricomincia()) esito = mRegistro.sincronizza();
    if (esito == EsitoScarico::DatiRifiutati) return riferisci(mGuasto, testoNonScritto);
    mGuasto = false;
    if (esito == EsitoScarico::NomeRifiutato) return riferisci(mGuastoNome, testoNomeNonScritto);
    mGuastoNome = false;
    togliPrima();
}

// What lasts is told once.
void GiornaleVendite::riferisci(bool& detto, const QString& guasto) const {
    if (!detto) {
        gErr.annotaErrore(RunTimeError(RunTimeError::ErroreApplicazione, guasto), gNomeModulo,
                          "GiornaleVendite", mPercorso);
    }
    detto = true;
}

void GiornaleVendite::scrivi(int conto, QJsonObject record) {
    record[nomeConto] = conto;
    if (!mDaCapo && !mRegistro.aggiungi(rigaDi(record))) mDaCapo = true;
}

// The file anew, with all that is open as the records before told it.
bool GiornaleVendite::ricomincia() {
    mRegistro.elimina();
    QList<QJsonObject> tutti;
    for (size_t i = 0; i < mSeguite.size(); ++i) {
        if (mSeguite[i]) tutti << recordDi(mSeguite[i]->scritta, static_cast<int>(i));
    }
    for (size_t i = 0; i < mRimaste.size(); ++i) {
        tutti << recordDi(mRimaste[i], contiMassimi + static_cast<int>(i));
    }
    if (mPrimaPendente) tutti << QJsonObject{{nomeRipresa, true}};
    mDaCapo = !std::all_of(tutti.begin(), tutti.end(),
                           [&](const QJsonObject& record) { return mRegistro.aggiungi(rigaDi(record)); });
    if (!mDaCapo) return true;
    mRegistro.elimina();
    riferisci(mGuasto, testoNonScritto);
    return false;
}
