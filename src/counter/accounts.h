#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>

#include <QObject>

#include "counter/close_account.h"
#include "counter/key_burst.h"
#include "counter/operator_entry.h"
#include "kit/cKeyFunction.h"
#include "kit/tender.h"
#include "sale/schermo.h"
#include "sale/vendita.h"

class ElencoMovimento;
class VaiVendita;

// An open account: a screen with a sale of its own. The window and the headless script are its two kinds.
class Conto : public SchermoVendita {
  public:
    explicit Conto(int indice);

    Vendita& vendita() { return mVendita; }
    // The field being typed in, also while another window is in front; nothing when there is none.
    Campo* campoAttivo() const { return mCampoAttivo; }
    void campoAttivo(Campo* campo) { mCampoAttivo = campo; }
    // Whether a held cursor key has stepped since it went down.
    bool passoFatto = false;
    // Function keys that act on the field they are pressed in.
    cKeyFunction tastiFunzione;
    // Keys that come as fast as a scanner's.
    RafficaTasti raffica;
    // The code of the badge that is being scanned, as far as it has come; nothing when none is.
    std::optional<QString> badge;
    // Shows the screen, in front of the others.
    virtual void mostra() = 0;
    // The screen's end: the object goes as soon as no procedure of its own is running.
    virtual void elimina() = 0;
    // The dialogue for the operator's code; empty when none was confirmed.
    virtual QString codiceVenditore(const RichiestaVenditore& richiesta) = 0;
    // The options of the workstation.
    virtual void mostraOpzioni() = 0;

    // ---- The dialogues of the counter, each shown until it is answered
    virtual EsitoIncasso incassa(Currency totale) = 0;
    virtual void scegliVendita(VaiVendita& scelta) = 0;
    // The key of the picked row; empty for none.
    virtual QString scegliRiga(ElencoMovimento& movimento) = 0;
    // A named customer's sale is about to be saved, its tender is over, and the workstation wants to be asked
    // about the printing (`simula` false) or to have it taken as done (true).
    virtual void messaggioStampa([[maybe_unused]] bool simula) {}
    // A sale of this screen has been saved, and the screen shows it.
    virtual void venditaSalvata() {}

    void premiComando(int comando) override;
    void premiOperatore() override;
    void leggiBadge() override;
    Vendita* apriNuovoConto(const QString& codiceCliente) override;
    void scarica() override;

    // Hears of the register's link from now on, and shows its state.
    void ascoltaRegCassa();

  protected:
    // The register refused a frame; every open screen asks in turn.
    virtual void mFrmRegCassa_evtError(int codice, const QString& descrizione);

  private:
    Vendita mVendita;
    QObject mFrmRegCassa;  // holds the subscription
    Campo* mCampoAttivo = nullptr;
};

struct EliminaConto {
    void operator()(Conto* conto) const { conto->elimina(); }
};
using ContoAperto = std::unique_ptr<Conto, EliminaConto>;

constexpr int contiMassimi = 4;

// The open accounts; an unused place is empty. They are never destroyed with the process: their windows may
// have gone before.
extern std::array<ContoAperto, contiMassimi>& gConti;

// How a screen is made, and what happens when the last one has gone: set at start.
void impostaFabbricaConti(std::function<Conto*(int indice)> fabbrica);
void impostaChiudiApplicazione(std::function<void()> chiudi);

// Opens the account or shows it. With `aperturaDaConto` a new one starts without a customer. An index out
// of 0 to 3: RunTimeError 9.
void getConto(int indice, bool aperturaDaConto);

// Account 0 and one or more of the others are open.
bool bChiudiConto();

// Shows a saved sale in the first free account; false when there is none.
bool apriContoConVendita(int ridVendita);

// The entry of a screen: brings a new one up. `nuovoDocumento` negative starts an empty sale; `ridVendita`
// and `idPagamento` above 0 show that sale and take that payment.
void startMe(Conto& conto, int nuovoDocumento, int ridVendita, int idPagamento);

// The account buttons' colours as this screen shows them; run at every activation. True when the screen
// should give the focus to its first field.
bool attivaConto(Conto& conto);

// Offers to save every open sale and closes its account; true when all are closed. Asked again meanwhile, it
// answers false.
bool chiudiTuttiIConti(Chiusura chiusura = Chiusura::Chiesta);
