#include "counter/recovery_journal.h"

#include <algorithm>

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>

#include "core/errors.h"
#include "core/globals.h"
#include "counter/uncertain_save_record.h"
#include "data/disk.h"
#include "data/settings_store.h"
#include "postings/lost_deletion.h"
#include "postings/lost_save.h"
#include "sale/customer.h"
#include "sale/row_editor.h"
#include "sale/totals.h"

namespace {

GiornaleVendite* inVigore = nullptr;

const QString nomeConto = "conto";
const QString nomeFine = "fine";
const QString nomeSalva = "salva";
const QString nomeCancella = "cancella";

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

// A record of one account, into what is known of it.
void applica(const QJsonObject& record, std::optional<GiornaleVendite::VenditaAperta>& aperta, int conto) {
    if (record.contains(nomeFine)) return aperta.reset();
    if (!aperta) aperta = GiornaleVendite::VenditaAperta{conto, {}, {}, {}};
    aperta->immagine.applica(record);
    // Any other record: something was done after the save or the deletion, which failed.
    aperta->salvataggio.reset();
    if (record.contains(nomeSalva)) aperta->salvataggio = salvataggioDa(record[nomeSalva].toObject());
    aperta->cancellate = chiaviDa(record[nomeCancella]);
}

// False when its save or its deletion turns out to be in the books.
bool daRiprendere(GiornaleVendite::VenditaAperta& aperta, OperatorPort& operatore) {
    if (!aperta.cancellate.empty()) {
        const EsitoCommit esito = cercaCancellazione(operatore, aperta.cancellate);
        if (esito != EsitoCommit::Ignoto) aperta.cancellate.clear();
        if (esito == EsitoCommit::Registrato) return false;
    }
    if (!aperta.salvataggio) return true;
    const EsitoCommit esito = cercaSalvataggio(operatore, *aperta.salvataggio);
    // Looked up once more before it is saved again.
    if (esito != EsitoCommit::Ignoto) aperta.salvataggio.reset();
    return esito != EsitoCommit::Registrato;
}

void riprendi(const GiornaleVendite::VenditaAperta& aperta) {
    getConto(aperta.conto, false);
    Conto* conto = gConti[static_cast<size_t>(aperta.conto)].get();
    if (conto == nullptr) return;
    Vendita& v = conto->vendita();
    const RidisegnoFermo fermo(v.schermo);
    aperta.immagine.scriviIn(v);
    if (aperta.salvataggio) {
        v.salvataggioIncerto = aperta.salvataggio;
        v.salvataggioIncerto->schermo = descriviSchermo(v);
    }
    // Looked up once more before it is deleted or saved again.
    if (!aperta.cancellate.empty()) v.cancellazioneIncerta = aperta.cancellate;
    calcolaTotali(v, false);
    mostraSegnala(v);
    mostraSaldo(v);
    applicaModificaConsentita(v);
    setVenditaModificata(v);
    v.schermo.fuoco(v.txtCodProdotto);
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

std::vector<GiornaleVendite::VenditaAperta> GiornaleVendite::leggi() {
    // A file of before: the program ended while it was bringing those sales back.
    const QString file = QFile::exists(percorsoPrima()) ? percorsoPrima() : mPercorso;
    const QList<QByteArray> record = RegistroAppeso::leggi(file);
    std::array<std::optional<VenditaAperta>, contiMassimi> aperte;
    for (const QByteArray& riga : record) {
        const QJsonObject oggetto = oggettoDi(riga);
        const int conto = oggetto[nomeConto].toInt(-1);
        if (conto >= 0 && conto < contiMassimi) applica(oggetto, aperte[static_cast<size_t>(conto)], conto);
    }
    std::vector<VenditaAperta> daSalvare;
    for (std::optional<VenditaAperta>& aperta : aperte) {
        if (aperta && aperta->immagine.daSalvare()) daSalvare.push_back(std::move(*aperta));
    }
    return daSalvare;
}

void GiornaleVendite::cominciaRipresa() {
    if (!QFile::exists(percorsoPrima())) sposta(mPercorso, percorsoPrima());
}

void GiornaleVendite::finisciRipresa() {
    annota();
    if (!mGuasto) sincronizza();
    if (!mGuasto) togli(percorsoPrima());
}

void GiornaleVendite::dimentica() {
    mRegistro.elimina();
    togli(percorsoPrima());
}

bool GiornaleVendite::qualcosaDaSalvare() const {
    return std::any_of(gConti.begin(), gConti.end(), [](const ContoAperto& conto) {
        return conto && conto->vendita().venditaModificata && conto->vendita().flxVB.righe() > 1;
    });
}

void GiornaleVendite::annota() {
    if (!qualcosaDaSalvare()) {
        if (std::any_of(mTracce.begin(), mTracce.end(),
                        [](const auto& traccia) { return traccia.has_value(); })) {
            mRegistro.elimina();
            mTracce = {};
        }
        return;
    }
    for (int i = 0; i < contiMassimi; ++i) {
        auto& traccia = mTracce[static_cast<size_t>(i)];
        const ContoAperto& conto = gConti[static_cast<size_t>(i)];
        if (conto && conto->vendita().venditaModificata) {
            if (!traccia) traccia.emplace();
            QJsonObject record = traccia->differenza(conto->vendita());
            if (record.isEmpty()) continue;
            record[nomeConto] = i;
            if (!scrivi(record)) return;
        } else if (traccia) {
            traccia.reset();
            if (!scrivi({{nomeConto, i}, {nomeFine, true}})) return;
        }
    }
}

void GiornaleVendite::inSalvataggio(int conto, const SalvataggioIncerto& salvataggio) {
    if (scrivi({{nomeConto, conto}, {nomeSalva, jsonDi(salvataggio)}})) sincronizza();
}

void GiornaleVendite::inCancellazione(int conto, const std::set<int>& righe) {
    if (!mTracce[static_cast<size_t>(conto)] || righe.empty()) return;
    if (scrivi({{nomeConto, conto}, {nomeCancella, jsonDi(righe)}})) sincronizza();
}

void GiornaleVendite::sincronizza() {
    if (!mRegistro.sincronizza()) riferisciGuasto();
}

void GiornaleVendite::riferisciGuasto() {
    if (!mGuasto) {
        gErr.annotaErrore(
            RunTimeError(RunTimeError::ErroreApplicazione, "Giornale delle vendite aperte non scritto"),
            gNomeModulo, "GiornaleVendite", mPercorso);
    }
    mGuasto = true;
}

// What could not be written is told once; the next record then begins the file anew, with all that is open.
bool GiornaleVendite::scrivi(const QJsonObject& record) {
    if (mRegistro.aggiungi(QJsonDocument(record).toJson(QJsonDocument::Compact))) {
        mGuasto = false;
        return true;
    }
    mRegistro.elimina();
    mTracce = {};
    riferisciGuasto();
    return false;
}

void riprendiVendite(GiornaleVendite& giornale, OperatorPort& operatore) {
    std::vector<GiornaleVendite::VenditaAperta> aperte = giornale.leggi();
    std::erase_if(aperte, [&](auto& aperta) { return !daRiprendere(aperta, operatore); });
    if (aperte.empty() || !operatore.chiedeSi("Riprendere le vendite non salvate?")) {
        giornale.dimentica();
        return;
    }
    giornale.cominciaRipresa();
    for (const auto& aperta : aperte) {
        protetto(moduloFrmMain, "riprendiVendite", [&] { riprendi(aperta); });
    }
    giornale.finisciRipresa();
}
