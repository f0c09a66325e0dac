#include "counter/accounts.h"

#include <algorithm>

#include <QScopedValueRollback>

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "counter/badge.h"
#include "counter/captions.h"
#include "counter/commands.h"
#include "counter/fields.h"
#include "counter/keys.h"
#include "counter/recovery_journal.h"
#include "counter/register_indicator.h"
#include "data/client_settings.h"
#include "data/settings_store.h"
#include "register/failure.h"
#include "register/interface_link.h"
#include "sale/customer.h"
#include "sale/document_info.h"
#include "sale/grid.h"
#include "sale/product_entry.h"
#include "sale/recall.h"
#include "sale/row_editor.h"
#include "sale/sale_document.h"

std::array<ContoAperto, contiMassimi>& gConti = *new std::array<ContoAperto, contiMassimi>;

namespace {

std::function<Conto*(int)> fabbricaConti;
std::function<void()> chiudi;

constexpr unsigned coloreContoAperto = 0x00FF00;
constexpr unsigned coloreContoCorrente = 0xFF8000;

ContoAperto& posto(int indice) {
    if (indice < 0 || indice >= contiMassimi) throw RunTimeError(RunTimeError::IndiceNonValido);
    return gConti[static_cast<size_t>(indice)];
}

// The sale has no customer, and waits for one.
void vuotaCliente(Vendita& v) {
    v.txtCodCliente.testo({});
    v.txtCodCliente.tag("-1");
    v.lblDescCliente.testo({});
    v.schermo.fuoco(v.txtCodCliente);
}

// What a screen shows before its first sale.
void Form_Load(Conto& conto) {
    Vendita& v = conto.vendita();
    v.modificaConsentita = true;
    v.lblTotConto.testo(formattaImporto(0.0, 2));
    v.lblMainDisplay.testoETag(formattaImporto(0.0, 2));
    v.lblCassa.testo(QString::number(gIDCassa));
    conto.ascoltaRegCassa();
    v.pctIVA.visibile(false);
    v.cmdAddRow.visibile(false);
    impostaCampiPrezzo(v);
    const QString like = impostazioni().leggi(applicazioneClient, "Options", "ChkLike_Prodotto", "0");
    v.chkCodiceProdotto.valore(Val(like) != 0.0 ? 1 : 0);
    conto.raffica.attiva =
        Val(impostazioni().leggi(applicazioneClient, "Client", "ScansioniSenzaPrefisso", "1")) != 0.0;
}

// The lowest place without an account; -1 when all are taken.
int primoLibero() {
    const auto libero = std::find(gConti.begin(), gConti.end(), nullptr);
    return libero == gConti.end() ? -1 : static_cast<int>(libero - gConti.begin());
}

Conto& nuovoConto(int indice) {
    ContoAperto& conto = posto(indice);
    conto.reset(fabbricaConti(indice));
    conto->vendita().primaDelCommit = [indice](const SalvataggioIncerto& salvataggio) {
        if (GiornaleVendite* giornale = giornaleVendite()) giornale->inSalvataggio(indice, salvataggio);
    };
    conto->vendita().primaDellaCancellazione = [indice](const std::set<int>& righe) {
        if (GiornaleVendite* giornale = giornaleVendite()) giornale->inCancellazione(indice, righe);
    };
    Form_Load(*conto);
    return *conto;
}

// Where every sale needs an operator, a screen without one does not stay.
void pretendiVenditore(Conto& conto) {
    if (gVenditoriObbligatori != 1) return;
    if (gIDVenditore < 1) conto.premiOperatore();
    if (conto.vendita().lblVenditore.chiave() <= 0) conto.scarica();
}

Conto* contoDavanti() {
    for (const ContoAperto& conto : gConti) {
        if (conto) return conto.get();
    }
    return nullptr;
}

}  // namespace

Conto::Conto(int indice) : mVendita(indice, *this) {
    scriviDidascalie(mVendita);
    ascoltaTastiFunzione(*this);
}

void Conto::premiComando(int comando) {
    cmdComando_Click(*this, comando, Pressione::Tasto);
}

void Conto::premiOperatore() {
    cmdOperatore_Click(*this);
}

void Conto::leggiBadge() {
    iniziaBadge(*this);
}

Vendita* Conto::apriNuovoConto(const QString& codiceCliente) {
    if (!controlloDataMovimento(mVendita)) return nullptr;
    const int indice = primoLibero();
    if (indice < 0) {
        operatore().messaggio("Nessun conto disponibile!\nChiudere prima un conto e riprovare.",
                              OperatorPort::Icona::Critica);
        return nullptr;
    }
    cmdConto_Click(*this, indice);
    Conto* nuovo = posto(indice).get();
    if (nuovo == nullptr) return nullptr;
    if (codiceCliente.isEmpty()) {
        vuotaCliente(nuovo->vendita());
    } else {
        nuovo->vendita().txtCodCliente.testo(codiceCliente);
        txtCodCliente_Invio(nuovo->vendita());
    }
    return &nuovo->vendita();
}

void Conto::ascoltaRegCassa() {
    InterfacciaRegCassa& registratore = gFrmRegCassa();
    QObject::connect(&registratore.eventi, &EventiRegCassa::evtError, &mFrmRegCassa,
                     [this](int codice, const QString& descrizione) {
                         if (!mVendita.inChiusura) mFrmRegCassa_evtError(codice, descrizione);
                     });
    QObject::connect(&registratore.eventi, &EventiRegCassa::statoCambiato, &mFrmRegCassa,
                     [this, &registratore] { mostraStatoRegCassa(mVendita, registratore); });
    mostraStatoRegCassa(mVendita, registratore);
}

void Conto::mFrmRegCassa_evtError(int codice, const QString& descrizione) {
    ::mFrmRegCassa_evtError(gFrmRegCassa(), codice, descrizione);
}

void Conto::scarica() {
    mVendita.inChiusura = true;
    ContoAperto questo = std::move(posto(mVendita.indice));
    if (GiornaleVendite* giornale = giornaleVendite()) giornale->annota();
    if (std::any_of(gConti.begin(), gConti.end(), [](const ContoAperto& c) { return !!c; })) return;
    annotaSenzaScontrino();
    if (chiudi) chiudi();
    // The program has ended by now: the register is told nothing, and sees its connection close.
    gFrmRegCassa().disconnect();
}

void impostaFabbricaConti(std::function<Conto*(int indice)> fabbrica) {
    fabbricaConti = std::move(fabbrica);
}

void impostaChiudiApplicazione(std::function<void()> chiudiApplicazione) {
    chiudi = std::move(chiudiApplicazione);
}

void getConto(int indice, bool aperturaDaConto) {
    ContoAperto& conto = posto(indice);
    if (conto) {
        conto->mostra();
        return;
    }
    startMe(nuovoConto(indice), -1, 0, 0);
    if (conto && aperturaDaConto) vuotaCliente(conto->vendita());
}

bool bChiudiConto() {
    return gConti[0] &&
           std::any_of(gConti.begin() + 1, gConti.end(), [](const ContoAperto& c) { return !!c; });
}

bool apriContoConVendita(int ridVendita) {
    const int indice = primoLibero();
    if (indice >= 0) startMe(nuovoConto(indice), 0, ridVendita, 0);
    return indice >= 0;
}

void startMe(Conto& conto, int nuovo, int ridVendita, int idPagamento) {
    Vendita& v = conto.vendita();
    const Clessidra clessidra(conto.operatore());
    v.lblConto.testo(QString::number(v.indice + 1));
    v.preferitiInPrimoPiano =
        getBoolByChek(impostazioni().leggi(applicazioneClient, "Client", "PreferitiTopMost", "0"));
    setInfoDocumento(v, gTipoDocVb);
    setNuovoPagamento(v, idPagamento > 0 ? idPagamento : gCausalePagVb);
    v.txtCodCliente.tag(QString::number(gClientePredefinito));
    formattaGriglia(v);
    mostraVenditore(v);
    conto.mostra();
    if (nuovo < 0) nuovoDocumento(v);
    if (!v.inChiusura && ridVendita > 0) showVendita(v, ridVendita, -1, 1, -1);
    if (!v.inChiusura) pretendiVenditore(conto);
}

bool attivaConto(Conto& conto) {
    Vendita& v = conto.vendita();
    for (int i = 0; i < contiMassimi; ++i) {
        const bool aperto = posto(i) != nullptr;
        v.cmdConto[static_cast<size_t>(i)].colori(aperto ? std::optional(coloreContoAperto) : std::nullopt,
                                                  std::nullopt);
    }
    v.cmdConto[static_cast<size_t>(v.indice)].colori(coloreContoCorrente, std::nullopt);
    // Another account may have changed the operator, who is the same for all.
    mostraVenditore(v);
    return !gModaleAperta;
}

bool chiudiTuttiIConti(Chiusura chiusura) {
    // Asked again while a question is up: that one is not answered yet. The system's word holds for what
    // comes behind the answer.
    static bool inCorso = false;
    static Chiusura come = Chiusura::Chiesta;
    if (chiusura == Chiusura::FineSessione || !inCorso) come = chiusura;
    if (inCorso) return false;
    const QScopedValueRollback unaVolta(inCorso, true);
    return protetto(
        moduloFrmMain, "Form_QueryUnload",
        [] {
            while (Conto* conto = contoDavanti()) {
                const Chiusura prima = come;
                conto->mostra();
                if ((!terminaCampo(*conto) || !chiudiConto(*conto, prima)) && come == prima) return false;
            }
            return true;
        },
        false);
}
