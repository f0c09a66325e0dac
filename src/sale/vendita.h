#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <set>

#include <QDate>
#include <QString>

#include "kit/CTextBox.h"
#include "kit/campo.h"
#include "sale/alternatives.h"
#include "sale/flxvb.h"
#include "sale/row_sums.h"
#include "sale/schermo.h"
#include "sale/uncertain_save.h"

// The named fields of a counter screen.
struct CampiVendita {
    ElencoCampi elenco;

    // ---- Header
    Campo txtData{elenco, "txtData"};                // sale date
    Campo txtProg{elenco, "txtProg"};                // PROGRESSIVO, "(Auto)" until saved
    Campo txtSottoProg{elenco, "txtSottoProg"};      // EXTRAPROG, "(Auto)" until saved
    Campo txtNumDoc{elenco, "txtNumDoc"};            // document number box
    Campo txtCodCliente{elenco, "txtCodCliente"};    // customer number; tag: the customer's key
    Campo lblDescCliente{elenco, "lblDescCliente"};  // name; tag: the code text, to put back the box
    Campo lblRID{elenco, "lblRID"};                  // key of the Movimenti row, "-1" before the first save
    Campo chkPagato{elenco, "chkPagato"};
    Campo chkPrezziIva{elenco, "chkPrezziIva"};
    Campo chkReso{elenco, "chkReso"};
    Campo chkCodiceProdotto{elenco, "chkCodiceProdotto"};  // look the code up with wildcards
    Campo lblDataStampa{elenco, "lblDataStampa"};
    Campo lblDescPagamento{elenco, "lblDescPagamento"};  // payment reason; tag: its key
    Campo lblFasciaScoCli{elenco, "lblFasciaScoCli"};
    Campo lblCatSconto{elenco, "lblCatSconto"};
    Campo lblFido{elenco, "lblFido"};    // credit limit; tag "1": it is watched
    Campo lblSaldo{elenco, "lblSaldo"};  // balance; tag: the balance in the journal
    Campo pctFido{elenco, "pctFido"};
    Campo pctSegnala{elenco, "pctSegnala"};
    Campo pctSave{elenco, "pctSave"};
    Campo pctPrint{elenco, "pctPrint"};
    Campo pctChiusa{elenco, "pctChiusa"};    // shown: the sale in sight may not be changed any more
    Campo pctSospesa{elenco, "pctSospesa"};  // shown: a named customer's saved sale that is not printed yet
    Campo pctSalvata{elenco, "pctSalvata"};  // shown: the sale in sight has just been saved
    Campo pctIVA{elenco, "pctIVA"};
    Campo lblCassa{elenco, "lblCassa"};
    Campo lblConto{elenco, "lblConto"};
    Campo lblVenditore{elenco, "lblVenditore"};
    Campo shRegCassa{elenco, "shRegCassa"};    // colour: the state of the link to the fiscal register
    Campo lblRegCassa{elenco, "lblRegCassa"};  // that state in words

    // ---- Displays
    Campo lblMainDisplay{elenco, "lblMainDisplay"};          // total to pay; tag: before an outside change
    Campo lblLastMainDisplay{elenco, "lblLastMainDisplay"};  // amount already counted in the balance
    Campo lblUltimaVendita{elenco, "lblUltimaVendita"};
    Campo lblUltimoResto{elenco, "lblUltimoResto"};  // change of the last sale; tag: of the last tender
    Campo lblSecondaryDisplay{elenco, "lblSecondaryDisplay"};
    Campo lblTotLordo{elenco, "lblTotLordo"};
    Campo lblTotNetto{elenco, "lblTotNetto"};
    Campo lblTOtQta{elenco, "lblTOtQta"};
    Campo lblTotRighe{elenco, "lblTotRighe"};
    Campo lblTotConto{elenco, "lblTotConto"};

    // ---- Row editor
    Campo txtCodProdotto{elenco, "txtCodProdotto"};  // code or barcode; tag: product key, "-1" when none
    Campo lblCodProdotto{elenco, "lblCodProdotto"};  // last code text already processed
    Campo txtDescProdotto{elenco, "txtDescProdotto"};
    Campo lblMarca{elenco, "lblMarca"};  // brand code; tag: ELENCOSPECIALE
    Campo txtQta{elenco, "txtQta"};
    Campo lblUM{elenco, "lblUM"};  // unit code; tag: its key
    Campo lblTaglio{elenco, "lblTaglio"};
    Campo txtIVA{elenco, "txtIVA"};
    Campo lblIVA{elenco, "lblIVA"};
    Campo lblCodIva{elenco, "lblCodIva"};
    Campo lblIDIva{elenco, "lblIDIva"};
    Campo lblDescIva{elenco, "lblDescIva"};
    Campo lblValoraIva{elenco, "lblValoraIva"};          // VAT percentage
    Campo txtPrezzoListino{elenco, "txtPrezzoListino"};  // tag: the reference price of the commit test
    Campo lblPrezzoListino{elenco, "lblPrezzoListino"};  // tag: BLOCCAPREZZO
    Campo txtPrezzoListinoLordo{elenco, "txtPrezzoListinoLordo"};
    Campo lblPrezzoListinoLordo{elenco, "lblPrezzoListinoLordo"};
    Campo txtSconto1{elenco, "txtSconto1"};
    Campo txtSconto2{elenco, "txtSconto2"};
    Campo txtSconto3{elenco, "txtSconto3"};
    Campo lblSconto1{elenco, "lblSconto1"};
    Campo lblSconto2{elenco, "lblSconto2"};
    Campo lblSconto3{elenco, "lblSconto3"};
    Campo txtPrezzoNetto{elenco, "txtPrezzoNetto"};  // tag: the unrounded net price
    Campo lblPrezzoNetto{elenco, "lblPrezzoNetto"};
    Campo txtPrezzoFinito{elenco, "txtPrezzoFinito"};
    Campo TxtPrezzoRiga{elenco, "TxtPrezzoRiga"};
    Campo lblScNetto{elenco, "lblScNetto"};
    Campo lblTotPrezzoNetto{elenco, "lblTotPrezzoNetto"};
    Campo lblIvaProdotto{elenco, "lblIvaProdotto"};
    Campo lblTotIVA{elenco, "lblTotIVA"};
    Campo lblTotRiga{elenco, "lblTotRiga"};
    Campo lblPrezzoAcquisto{elenco, "lblPrezzoAcquisto"};
    Campo lblPos{elenco, "lblPos"};  // grid row in the editor, "-1" when none
    Campo lblOperatoreScreen{elenco, "lblOperatoreScreen"};
    Campo lblOra{elenco, "lblOra"};
    Campo lblGiacenza{elenco, "lblGiacenza"};  // tag "1": stock is managed
    Campo lblUbicazione{elenco, "lblUbicazione"};
    Campo lblPrezzoCosto{elenco, "lblPrezzoCosto"};
    Campo lblMargineEuro{elenco, "lblMargineEuro"};
    Campo lblMarginePerc{elenco, "lblMarginePerc"};
    Campo lblPrezzoListinoPanel{elenco, "lblPrezzoListinoPanel"};
    Campo lblDataListinoPanel{elenco, "lblDataListinoPanel"};

    // ---- Buttons: commands by index 0 to 19, and accounts and fields by index 0 to 13. Text: the caption.
    static constexpr int numeroComandi = 20;
    static constexpr int numeroConti = 14;
    std::deque<Campo> cmdComando;
    std::deque<Campo> cmdConto;
    Campo cmdAddRow{elenco, "cmdAddRow"};
    Campo cmdOperatore{elenco, "cmdOperatore"};

    CampiVendita();
};

// The typed boxes over the input fields.
struct CaselleVendita {
    explicit CaselleVendita(CampiVendita& campi);
    std::vector<CTextBox*> tutte();
    CTextBox* di(const Campo& campo);

    CTextBox data, prog, sottoProg, codCliente, codProdotto, descProdotto, qta, iva;
    CTextBox prezzoListino, prezzoListinoLordo, prezzoNetto, prezzoFinito, prezzoRiga;
    CTextBox sconto1, sconto2, sconto3;
};

// The document type in force, as its TipoDocumenti and Causali rows say.
struct InfoDocumento {
    int idTipoDocumento = -1;
    QString descTipoDocumento;
    QString codTipoDocumento;
    QString reportDocumento;
    int numeratore = -1;   // NCONTATORE
    int mCausaleDoc = -1;  // FK_CAUSALE
    bool mUsaPrezziIva = false;
    bool generaPN = false;
    bool generaScad = false;
    bool scadenzeNegative = false;
    bool operazione = false;
    int origine = 0;  // 1 customer, 2 supplier, 3 warehouse
    int destinazione = 0;
    int magazzinoOrigine = -1;
    int magazzinoDestinazione = -1;
    bool mGestioneTaglio = false;
    bool mAccompagnatorio = false;
    bool documentoConStampa = false;  // printed at the counter
};

// One sale in memory: a header, its rows, and the row in the editor. Rules read and write it; no window
// is needed.
struct Vendita : CampiVendita, InfoDocumento {
    Vendita(int indice, SchermoVendita& schermo);

    SchermoVendita& schermo;
    CaselleVendita caselle{*this};
    FlexVB flxVB;
    SommeRighe sommeRighe;
    ElencoAlternativi lswAlternativi;

    int indice;            // the place among the open accounts, 0 to 3
    int idPagamento = -1;  // the payment in force, a Pagamenti row; -1: the stored one, or the counter's own
    int idCausalePagamento = -1;  // the payment reason, a Causali row
    int idPrimaNota = -1;         // journal entry of the document; -1 when absent
    int idPNPagamento = -1;       // journal entry of the collection
    int mPagamentoCliente = -1;
    double mScontoCliente = 0.0;  // percentage
    QDate giornoDocumento;        // the day on which the sale came to the screen
    int mRigaInserimento = -1;    // where the next new row goes; -1 at the end

    // Guards of the grid's events.
    bool ridisegnoGriglia = false;
    bool selezioneInCorso = false;
    bool rigaGiaCaricata = false;

    bool venditaModificata = false;
    bool grigliaConFocus = false;
    bool tastoShift = false;
    bool tastoCtrl = false;
    int direzioneTasti = 0;  // row stepping: 1 up, 2 down

    bool mDaLaser = false;       // a scanned code is coming in
    bool mRigaDaCodice = false;  // a commit of the editor updates the row that the code placed
    bool mSottocostoOk = false;  // a price below cost was accepted for this row
    bool mScontoFisso = false;   // the row's discounts do not follow the quantity
    bool preferitiInPrimoPiano = false;
    bool modificaConsentita = true;
    bool inChiusura = false;

    // Hears what the books will hold, before a save is committed.
    std::function<void(const SalvataggioIncerto&)> primaDelCommit;
    // Hears which rows, DettagliMovimento keys, a deletion is about to take that nothing but its transaction
    // can stop any more.
    std::function<void(const std::set<int>&)> primaDellaCancellazione;
    // The last save, while it is not known whether it is in the books.
    std::optional<SalvataggioIncerto> salvataggioIncerto;
    // The rows of the last deletion, DettagliMovimento keys, while it is not known whether they are gone.
    std::set<int> cancellazioneIncerta;

    // The customer's key; -1 when there is none.
    int cliente() const { return txtCodCliente.chiave(); }
    // The key of the Movimenti row; -1 before the first save.
    int rid() const;
    // The day of the document; invalid while the field holds none.
    QDate giorno() const;
    // PROGRESSIVO and EXTRAPROG; 0 until they are given.
    int progressivo() const;
    int extraProg() const;
    // Both as the screen shows them: "12/1".
    QString numero() const;
};
