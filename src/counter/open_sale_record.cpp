#include "counter/open_sale_record.h"

#include <QJsonArray>

#include "counter/uncertain_save_record.h"
#include "postings/lost_save.h"
#include "sale/row_writer.h"
#include "sale/totals.h"

namespace {

// The names of a record's parts.
const QString nomeCampi = "campi";
const QString nomeStato = "stato";
const QString nomeRighe = "righe";
// In the state: what is being typed there has not reached its row yet.
const QString nomeAttivo = "attivo";
// And, while a save or a deletion is not known to be in the books.
const QString nomeIncerto = "incerto";
const QString nomeImmutata = "immutata";
const QString nomeCancellazione = "cancellazione";

// Fields that belong to the screen and not to its sale.
bool dellaSchermata(const Campo& campo) {
    const QString& nome = campo.nome();
    return nome.startsWith("cmdConto") || nome == "lblConto" || nome == "lblCassa" || nome == "lblRegCassa" ||
           nome == "lblVenditore" || nome == "chkCodiceProdotto";
}

QJsonArray partiDi(const ValoreCampo& v) {
    return {v.testo, v.tag, v.valore, v.segni};
}

ValoreCampo valoreDi(const Campo& c) {
    return {c.testo(), c.tag(), c.valore(),
            (c.bloccato() ? 1 : 0) | (c.abilitato() ? 2 : 0) | (c.visibile() ? 4 : 0)};
}

void scrivi(Campo& campo, const ValoreCampo& valore) {
    campo.testo(valore.testo);
    campo.tag(valore.tag);
    campo.valore(valore.valore);
    campo.bloccato((valore.segni & 1) != 0);
    campo.abilitato((valore.segni & 2) != 0);
    campo.visibile((valore.segni & 4) != 0);
}

// What a sale holds beside its fields and rows.
QJsonObject statoDi(const Vendita& v) {
    QJsonObject stato{{"idPagamento", v.idPagamento},
                      {"idCausalePagamento", v.idCausalePagamento},
                      {"idPrimaNota", v.idPrimaNota},
                      {"idPNPagamento", v.idPNPagamento},
                      {"pagamentoCliente", v.mPagamentoCliente},
                      {"scontoCliente", v.mScontoCliente},
                      {"rigaInserimento", v.mRigaInserimento},
                      {"modificata", v.venditaModificata},
                      {"consentita", v.modificaConsentita},
                      {"rigaDaCodice", v.mRigaDaCodice},
                      {"sottocostoOk", v.mSottocostoOk},
                      {"scontoFisso", v.mScontoFisso},
                      {"giorno", v.giornoDocumento.toString(Qt::ISODate)}};
    if (v.salvataggioIncerto) {
        stato[nomeIncerto] = jsonDi(*v.salvataggioIncerto);
        stato[nomeImmutata] = descriviSchermo(v) == v.salvataggioIncerto->schermo;
    }
    if (!v.cancellazioneIncerta.empty()) stato[nomeCancellazione] = jsonDi(v.cancellazioneIncerta);
    return stato;
}

void scriviStato(const QJsonObject& s, Vendita& v) {
    v.idPagamento = s["idPagamento"].toInt();
    v.idCausalePagamento = s["idCausalePagamento"].toInt();
    v.idPrimaNota = s["idPrimaNota"].toInt();
    v.idPNPagamento = s["idPNPagamento"].toInt();
    v.mPagamentoCliente = s["pagamentoCliente"].toInt();
    v.mScontoCliente = s["scontoCliente"].toDouble();
    v.mRigaInserimento = s["rigaInserimento"].toInt();
    v.venditaModificata = s["modificata"].toBool();
    v.modificaConsentita = s["consentita"].toBool();
    v.mRigaDaCodice = s["rigaDaCodice"].toBool();
    v.mSottocostoOk = s["sottocostoOk"].toBool();
    v.mScontoFisso = s["scontoFisso"].toBool();
    v.giornoDocumento = QDate::fromString(s["giorno"].toString(), Qt::ISODate);
    if (s.contains(nomeIncerto)) v.salvataggioIncerto = salvataggioDa(s[nomeIncerto].toObject());
    v.cancellazioneIncerta = chiaviDa(s[nomeCancellazione]);
}

QJsonObject rigaDi(const FlexVB& g, int r) {
    QJsonArray celle;
    for (int c = 0; c < numeroColonne; ++c) {
        celle.append(g.cella(r, static_cast<Colonna>(c)));
    }
    return {{"celle", celle},
            {"nascosta", g.nascosta(r)},
            {"piegata", g.piegata(r)},
            {"listino", g.listinoLetto(r)}};
}

void scriviRiga(const QJsonObject& riga, Vendita& v) {
    FlexVB& g = v.flxVB;
    const int r = g.aggiungi();
    const QJsonArray celle = riga["celle"].toArray();
    for (int c = 0; c < numeroColonne; ++c) {
        g.scrivi(r, static_cast<Colonna>(c), celle[c].toString());
    }
    g.nascondi(r, riga["nascosta"].toBool());
    g.piega(r, riga["piegata"].toBool());
    g.listinoLetto(r, riga["listino"].toString());
    checkRowReso(v, r);
}

}  // namespace

QJsonObject TracciaVendita::differenza(const Vendita& v, const Campo* attivo) {
    QJsonObject record;
    const QJsonObject campi = differenzaCampi(v);
    if (!campi.isEmpty()) record[nomeCampi] = campi;
    QJsonObject stato = statoDi(v);
    if (attivo != nullptr) stato[nomeAttivo] = attivo->nome();
    if (stato != mStato) record[nomeStato] = stato;
    mStato = stato;
    const QJsonObject righe = differenzaRighe(v.flxVB);
    if (!righe.isEmpty()) record[nomeRighe] = righe;
    mIniziata = true;
    return record;
}

QJsonObject TracciaVendita::differenzaCampi(const Vendita& v) {
    QJsonObject cambiati;
    const auto& tutti = v.elenco.tutti();
    mCampi.resize(tutti.size());
    for (size_t i = 0; i < tutti.size(); ++i) {
        ValoreCampo adesso = valoreDi(*tutti[i]);
        if ((mIniziata && adesso == mCampi[i]) || dellaSchermata(*tutti[i])) continue;
        cambiati[tutti[i]->nome()] = partiDi(adesso);
        mCampi[i] = std::move(adesso);
    }
    return cambiati;
}

// The rows between those that stayed at the head and at the end.
QJsonObject TracciaVendita::differenzaRighe(const FlexVB& g) {
    const auto vecchie = static_cast<int>(mRevisioni.size());
    const int adesso = g.ultima();
    const auto uguale = [&](int vecchia, int nuova) {
        return mRevisioni[static_cast<size_t>(vecchia)] == g.revisione(nuova + 1);
    };
    int testa = 0;
    while (testa < vecchie && testa < adesso && uguale(testa, testa)) {
        ++testa;
    }
    int coda = 0;
    while (coda < vecchie - testa && coda < adesso - testa && uguale(vecchie - 1 - coda, adesso - 1 - coda)) {
        ++coda;
    }
    if (testa + coda == vecchie && vecchie == adesso) return {};
    QJsonArray nuove;
    std::vector<quint64> revisioni;
    for (int r = testa; r < adesso - coda; ++r) {
        nuove.append(rigaDi(g, r + 1));
        revisioni.push_back(g.revisione(r + 1));
    }
    const auto da = mRevisioni.begin() + testa;
    mRevisioni.insert(mRevisioni.erase(da, mRevisioni.end() - coda), revisioni.begin(), revisioni.end());
    return {{"da", testa}, {"via", vecchie - testa - coda}, {"nuove", nuove}};
}

void ImmagineVendita::applica(const QJsonObject& record) {
    const QJsonObject campi = record[nomeCampi].toObject();
    for (auto c = campi.begin(); c != campi.end(); ++c) {
        const QJsonArray parti = c.value().toArray();
        mCampi[c.key()] = {parti[0].toString(), parti[1].toString(), parti[2].toInt(), parti[3].toInt()};
    }
    if (record.contains(nomeStato)) mStato = record[nomeStato].toObject();
    if (!record.contains(nomeRighe)) return;
    const QJsonObject righe = record[nomeRighe].toObject();
    const qsizetype da = std::clamp<qsizetype>(righe["da"].toInt(), 0, mRighe.size());
    mRighe.remove(da, std::min<qsizetype>(righe["via"].toInt(), mRighe.size() - da));
    qsizetype posto = da;
    for (const QJsonValue& riga : righe["nuove"].toArray()) {
        mRighe.insert(posto++, riga.toObject());
    }
}

bool ImmagineVendita::daSalvare() const {
    return mStato["modificata"].toBool() && !mRighe.isEmpty();
}

QString ImmagineVendita::campoAttivo() const {
    return mStato[nomeAttivo].toString();
}

void ImmagineVendita::scriviIn(Vendita& v) const {
    v.flxVB.svuota();
    for (const QJsonObject& riga : mRighe) {
        scriviRiga(riga, v);
    }
    for (Campo* campo : v.elenco.tutti()) {
        const auto valore = mCampi.constFind(campo->nome());
        if (valore != mCampi.constEnd() && !dellaSchermata(*campo)) scrivi(*campo, *valore);
    }
    scriviStato(mStato, v);
}

QJsonObject ImmagineVendita::intera() const {
    QJsonObject campi;
    for (auto c = mCampi.begin(); c != mCampi.end(); ++c) {
        campi[c.key()] = partiDi(c.value());
    }
    QJsonArray righe;
    for (const QJsonObject& riga : mRighe) {
        righe.append(riga);
    }
    return {{nomeCampi, campi},
            {nomeStato, mStato},
            {nomeRighe, QJsonObject{{"da", 0}, {"via", 0}, {"nuove", righe}}}};
}

std::optional<SalvataggioIncerto> ImmagineVendita::salvataggioIncerto() const {
    if (!mStato.contains(nomeIncerto)) return std::nullopt;
    return salvataggioDa(mStato[nomeIncerto].toObject());
}

std::set<int> ImmagineVendita::cancellazioneIncerta() const {
    return chiaviDa(mStato[nomeCancellazione]);
}

bool ImmagineVendita::comeSalvata() const {
    return mStato[nomeImmutata].toBool();
}

void ImmagineVendita::salvataggioChiarito() {
    mStato.remove(nomeIncerto);
    mStato.remove(nomeImmutata);
}

void ImmagineVendita::cancellazioneChiarita() {
    mStato.remove(nomeCancellazione);
}
