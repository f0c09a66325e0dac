#include "postings/save_sale.h"

#include "core/clock.h"
#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "postings/lost_save.h"
#include "postings/numbering.h"
#include "postings/post_accounts.h"
#include "postings/save_rows.h"
#include "register/interface_link.h"
#include "sale/recall.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;

// The transaction's name in reports.
QString transazione() {
    return ".salvaVendita" + gNomeModulo;
}

QString sorgente() {
    return gNomeModulo + ".salvaVendita";
}

// What a save writes to the sale before its commit, to be put back when it fails.
class StatoPrimaDelSalvataggio {
  public:
    explicit StatoPrimaDelSalvataggio(const Vendita& v)
        : mRid(v.lblRID.testo()),
          mProg(v.txtProg.testo()),
          mTotConto(v.lblTotConto.testo()),
          mPrimaNota(v.idPrimaNota),
          mPNPagamento(v.idPNPagamento),
          mPagamento(v.idPagamento) {
        if (trasferimento(v)) mCelle = celle(v.flxVB);
    }

    // Goods go from one of the shop's warehouses to another.
    static bool trasferimento(const Vendita& v) {
        return v.magazzinoOrigine >= 1 && v.magazzinoDestinazione >= 1;
    }

    void ripristina(Vendita& v) const {
        v.lblRID.testo(mRid);
        v.txtProg.testo(mProg);
        v.lblTotConto.testo(mTotConto);
        v.idPrimaNota = mPrimaNota;
        v.idPNPagamento = mPNPagamento;
        v.idPagamento = mPagamento;
        rimetti(v);
    }

  private:
    using Celle = std::vector<std::array<QString, numeroColonne>>;

    static Celle celle(const FlexVB& g) {
        Celle tutte(static_cast<size_t>(g.ultima()));
        for (int r = 1; r <= g.ultima(); ++r) {
            for (int c = 0; c < numeroColonne; ++c)
                tutte[static_cast<size_t>(r - 1)][static_cast<size_t>(c)] =
                    g.cella(r, static_cast<Colonna>(c));
        }
        return tutte;
    }

    // A transfer has put costs in the place of the prices.
    void rimetti(Vendita& v) const {
        if (mCelle.empty()) return;
        for (int r = 1; r <= v.flxVB.ultima(); ++r) {
            for (int c = 0; c < numeroColonne; ++c)
                v.flxVB.scrivi(r, static_cast<Colonna>(c),
                               mCelle[static_cast<size_t>(r - 1)][static_cast<size_t>(c)]);
        }
        calcolaTotali(v, false);
    }

    QString mRid, mProg, mTotConto;
    int mPrimaNota, mPNPagamento, mPagamento;
    Celle mCelle;
};

// The keys and numbers of the save under way.
struct Documento {
    QDate data;
    int tipo = -1;
    bool trasferimento = false;
    bool conversione = false;
    int idPagamento = -1;
    int idMovimento = -1;
    int progressivo = 0;
    int extraProg = 0;
};

QString controparte(const Vendita& v, const Documento& d) {
    return d.trasferimento ? QString("Null") : getIDOrNullStr(v.cliente());
}

bool inserisciTestata(Vendita& v, Documento& d) {
    const QString anno = QString::number(d.data.year());
    d.progressivo = getNewNumeratoreAnnuale(v.numeratore, anno);
    const QStringList valori{QString::number(d.progressivo),
                             anno,
                             gAdo.getSQLDate(d.data),
                             QString::number(d.tipo),
                             getIDOrNullStr(v.magazzinoOrigine),
                             getIDOrNullStr(v.magazzinoDestinazione),
                             controparte(v, d),
                             QString::number(v.idPagamento),
                             QString::number(gIDCassa),
                             QString::number(v.chkPrezziIva.valore())};
    d.idMovimento = gAdo.getIDByInsert(
        "INSERT INTO Movimenti (PROGRESSIVO, ANNO, DATA, FK_TIPODOCUMENTO, FK_ORIGINE, FK_DESTINAZIONE, "
        "FK_CONTROPARTITA, FK_PAGAMENTO, ID_CASSA, USAPREZZIIVA) VALUES (" +
            valori.join(", ") + ") ",
        sorgente(), "RID", "Movimenti");
    if (d.idMovimento < 1) return false;
    v.txtProg.testo(Format(d.progressivo, u"0000"));
    return true;
}

// The desk and the price mode stay as they were at the first save.
bool modificaTestata(Vendita& v, Documento& d) {
    d.idMovimento = v.rid();
    d.progressivo = valIntero(v.txtProg.testo());
    return gAdo.executeSQL("UPDATE Movimenti SET PROGRESSIVO = " + QString::number(d.progressivo) +
                               ", ANNO = " + QString::number(d.data.year()) + ", DATA = " +
                               gAdo.getSQLDate(d.data) + ", FK_TIPODOCUMENTO = " + QString::number(d.tipo) +
                               ", FK_ORIGINE = " + getIDOrNullStr(v.magazzinoOrigine) +
                               ", FK_DESTINAZIONE = " + getIDOrNullStr(v.magazzinoDestinazione) +
                               ", FK_CONTROPARTITA = " + controparte(v, d) +
                               ", FK_PAGAMENTO = " + QString::number(v.idPagamento) +
                               " WHERE RID = " + QString::number(d.idMovimento),
                           sorgente());
}

// The totals of the header are those of all sales that share it.
bool scriviTotali(const DocumentoContabile& d) {
    return gAdo.executeSQL("UPDATE Movimenti SET TOTIMPONIBILE = " + getSqlNumber(d.totale - d.imposta) +
                               ", TOTIMPOSTA = " + getSqlNumber(d.imposta) + ", TOTDOCUMENTO = " +
                               getSqlNumber(d.totale) + " WHERE RID = " + QString::number(d.idMovimento),
                           sorgente());
}

bool contabilizza(Vendita& v, const Documento& d) {
    Currency iva;
    if (!getTotIva(d.idMovimento, iva)) return false;
    const DocumentoContabile contabile{
        d.idMovimento, d.progressivo,   d.data,       getValoreCurrency(v.lblTotConto.testo()),
        iva,           d.trasferimento, d.conversione};
    return scriviTotali(contabile) && registraContabilita(v, contabile);
}

// Everything between begin and commit; false: roll back.
bool scriviNeiLibri(Vendita& v, Documento& d) {
    if (v.idPagamento < 1) v.idPagamento = gPagamentoVB;
    d.idPagamento = v.idPagamento;
    d.trasferimento = StatoPrimaDelSalvataggio::trasferimento(v);
    if (!(v.rid() <= 0 ? inserisciTestata(v, d) : modificaTestata(v, d))) return false;
    const int sottoProg = valIntero(v.txtSottoProg.testo());
    d.extraProg = sottoProg > 0 ? sottoProg : getNewSottoProgressivo(v, d.progressivo);
    if (!saveDettagli(v, d.idMovimento, d.extraProg, d.trasferimento)) return false;
    if (d.trasferimento) calcolaTotali(v, true);
    return contabilizza(v, d);
}

void segnaSalvata(Vendita& v, const Documento& d) {
    v.lblRID.testo(QString::number(d.idMovimento));
    v.txtSottoProg.testo(Format(d.extraProg, u"0000"));
    v.venditaModificata = false;
    v.pctSave.visibile(false);
    gVenditaSalvata = true;
}

// ---- The answer to the commit was lost

const char* const testoSalvata =
    "La vendita è stata salvata: N° %1.\n"
    "Il collegamento con il server si era interrotto; la vendita è stata ritrovata nell'archivio.";
const char* const testoSalvataPrima =
    "La vendita era già stata salvata: N° %1.\n"
    "Le modifiche fatte dopo non sono nell'archivio: si mostra la vendita come è stata salvata.";
const char* const testoNonSalvata =
    "La vendita non è stata salvata: il collegamento con il server si è interrotto.\n"
    "La vendita è ancora sullo schermo e si può salvare di nuovo.";
const char* const testoIncerta =
    "Non si sa se la vendita è stata salvata: il server non risponde o è occupato.\n"
    "La vendita resta sullo schermo; quando la si salva di nuovo si controlla prima se è già nell'archivio.";
const char* const testoDaControllare =
    "Non si sa se la vendita è stata salvata: il server non risponde o è occupato.\n"
    "Prima di salvarla di nuovo controllare l'ultima vendita nell'archivio.";

QString numeroVendita(const Vendita& v) {
    return v.txtProg.testo() + "/" + v.txtSottoProg.testo();
}

bool dopoCommitPerso(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    OperatorPort& operatore = v.schermo.operatore();
    const int controparte = d.trasferimento ? -1 : v.cliente();
    SalvataggioIncerto salvataggio{
        d.idMovimento, d.extraProg,
        descriviTestata({d.progressivo, d.tipo, d.idPagamento, controparte, d.data}), descriviRighe(v.flxVB)};
    const EsitoCommit esito = cercaSalvataggio(operatore, salvataggio);
    if (esito == EsitoCommit::Registrato) {
        segnaSalvata(v, d);
        operatore.messaggio(QString(testoSalvata).arg(numeroVendita(v)), Icona::Informazione);
        return true;
    }
    prima.ripristina(v);
    if (esito == EsitoCommit::Ignoto) v.salvataggioIncerto = std::move(salvataggio);
    operatore.messaggio(esito == EsitoCommit::Ignoto ? testoIncerta : testoNonSalvata, Icona::Critica);
    return false;
}

// A sale that may be in the books already is looked for before it is saved again. Nothing when it is to be
// saved now, else what the save answers.
std::optional<bool> riprendiSalvataggio(Vendita& v) {
    if (!v.salvataggioIncerto) return std::nullopt;
    OperatorPort& operatore = v.schermo.operatore();
    const EsitoCommit esito = cercaSalvataggio(operatore, *v.salvataggioIncerto);
    if (esito == EsitoCommit::Ignoto) {
        operatore.messaggio(testoIncerta, Icona::Critica);
        return false;
    }
    const SalvataggioIncerto salvataggio = *v.salvataggioIncerto;
    v.salvataggioIncerto.reset();
    if (esito == EsitoCommit::NonRegistrato) return std::nullopt;
    const bool immutata = descriviRighe(v.flxVB) == salvataggio.righe;
    showVendita(v, salvataggio.idMovimento, -1, salvataggio.extraProg, -1);
    gVenditaSalvata = true;
    operatore.messaggio(QString(immutata ? testoSalvata : testoSalvataPrima).arg(numeroVendita(v)),
                        immutata ? Icona::Informazione : Icona::Esclamazione);
    return immutata;
}

// An unforeseen error ends with a commit of what was written. The screen then shows what is in the books,
// so that saving again books nothing twice.
bool confermaDopoErrore(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    gErr.notificaSubito(erroreInCorso(), gNomeModulo, "salvaVendita", {});
    if (!gAdo.commitTrasaction(transazione())) {
        prima.ripristina(v);
        if (gAdo.commitDiEsitoIgnoto()) v.schermo.operatore().messaggio(testoDaControllare, Icona::Critica);
    } else if (d.idMovimento > 0) {
        gFrmRegCassa().scontrini.salvataggioConcluso(true);
        showVendita(v, d.idMovimento, -1, d.extraProg, -1);
    }
    return false;
}

// A row that was taken away before it was ever saved is nothing to save.
bool haElementi(const FlexVB& g) {
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.viva(r) || g.chiave(r, Colonna::Rid) > 0) return true;
    }
    return false;
}

bool salvaInTransazione(Vendita& v, bool conversione, int tipoDocumento,
                        const StatoPrimaDelSalvataggio& prima) {
    if (!gAdo.beginTrasaction(".saveRecord" + gNomeModulo)) {
        prima.ripristina(v);
        return false;
    }
    const Clessidra clessidra(v.schermo.operatore());
    Documento d;
    try {
        d.conversione = conversione;
        d.data = conversione ? orologio().oggi() : QDate::fromString(v.txtData.testo(), "dd/MM/yyyy");
        d.tipo = conversione ? tipoDocumento : gTipoDocVb;
        if (!scriviNeiLibri(v, d)) {
            prima.ripristina(v);
            gAdo.rollbackTrasaction(transazione());
            return false;
        }
    } catch (const std::exception&) {
        return confermaDopoErrore(v, d, prima);
    }
    if (!gAdo.commitTrasaction(transazione())) {
        if (gAdo.commitDiEsitoIgnoto()) return dopoCommitPerso(v, d, prima);
        prima.ripristina(v);
        return false;
    }
    segnaSalvata(v, d);
    return true;
}

}  // namespace

bool salvaVendita(Vendita& v, bool conversione, int tipoDocumento) {
    if (!haElementi(v.flxVB)) {
        v.schermo.operatore().messaggio(
            "Attenzione! non vi è nessun elemento da salvare.\nAggiungere almeno un prodotto",
            Icona::Informazione);
        return false;
    }
    if (const auto ripreso = riprendiSalvataggio(v)) return *ripreso;
    const StatoPrimaDelSalvataggio prima(v);
    if (!conversione && v.chkPagato.valore() == 1 && v.cliente() != gClientePredefinito)
        v.idPagamento = gPagamentoVB;
    if (!controllaInserimento(v) || !controllaDataStampa(v)) {
        prima.ripristina(v);
        return false;
    }
    const bool salvata = salvaInTransazione(v, conversione, tipoDocumento, prima);
    gFrmRegCassa().scontrini.salvataggioConcluso(salvata);
    return salvata;
}

bool controllaInserimento(Vendita& v) {
    QString righe;
    if (v.cliente() <= 0) righe += "\n - Campo [Cliente] Obbligatorio.";
    if (v.txtData.testo().trimmed().isEmpty()) righe += "\n - Campo [Data] Obbligatorio.";
    if (righe.isEmpty()) return true;
    v.schermo.operatore().messaggio("Attenzione:" + righe, Icona::Esclamazione);
    return false;
}

bool controllaDataStampa(Vendita& v) {
    const QString stampa = v.lblDataStampa.testo();
    if (v.cliente() == gClientePredefinito || stampa.trimmed().isEmpty()) return true;
    const bool continua =
        v.schermo.operatore().chiedeSi("Attenzione il documetno selezionato risulta gia stampato in data " +
                                           stampa + ".\nSicuri di voler continuare con le modifiche?",
                                       Icona::Esclamazione);
    if (!continua) v.venditaModificata = false;
    return continua;
}
