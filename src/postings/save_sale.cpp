#include "postings/save_sale.h"

#include "core/clock.h"
#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "postings/lost_deletion.h"
#include "postings/lost_save.h"
#include "postings/numbering.h"
#include "postings/post_accounts.h"
#include "postings/save_rows.h"
#include "postings/stored_row.h"
#include "sale/recall.h"
#include "sale/sale_document.h"
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
    int idMovimento = -1;
    int progressivo = 0;
    int extraProg = 0;
    RigaScritta testata;          // what was written to the header
    bool testataSparita = false;  // another desk has deleted the header meanwhile
};

QString controparte(const Vendita& v, const Documento& d) {
    return d.trasferimento ? QString("Null") : getIDOrNullStr(v.cliente());
}

RigaScritta colonneTestata(const Vendita& v, const Documento& d) {
    return {{"PROGRESSIVO", QString::number(d.progressivo)},
            {"ANNO", QString::number(d.data.year())},
            {"DATA", gAdo.getSQLDate(d.data)},
            {"FK_TIPODOCUMENTO", QString::number(d.tipo)},
            {"FK_ORIGINE", getIDOrNullStr(v.magazzinoOrigine)},
            {"FK_DESTINAZIONE", getIDOrNullStr(v.magazzinoDestinazione)},
            {"FK_CONTROPARTITA", controparte(v, d)},
            {"FK_PAGAMENTO", QString::number(v.idPagamento)}};
}

bool inserisciTestata(Vendita& v, Documento& d) {
    d.progressivo = getNewNumeratoreAnnuale(v.numeratore, QString::number(d.data.year()));
    RigaScritta scritte = colonneTestata(v, d);
    scritte.emplace_back("ID_CASSA", QString::number(gIDCassa));
    scritte.emplace_back("USAPREZZIIVA", QString::number(v.chkPrezziIva.valore()));
    QStringList colonne;
    QStringList valori;
    for (const auto& [colonna, valore] : scritte) {
        colonne << colonna;
        valori << valore;
    }
    d.idMovimento = gAdo.getIDByInsert(
        "INSERT INTO Movimenti (" + colonne.join(", ") + ") VALUES (" + valori.join(", ") + ") ", sorgente(),
        "RID", "Movimenti");
    if (d.idMovimento < 1) return false;
    d.testata = std::move(scritte);
    v.txtProg.testo(Format(d.progressivo, u"0000"));
    return true;
}

bool modificaTestata(const Documento& d, const RigaScritta& colonne) {
    QStringList assegnazioni;
    for (const auto& [colonna, valore] : colonne)
        assegnazioni << colonna + " = " + valore;
    return gAdo.executeSQL(
        "UPDATE Movimenti SET " + assegnazioni.join(", ") + " WHERE RID = " + QString::number(d.idMovimento),
        sorgente());
}

// The desk and the price mode stay as they were at the first save.
bool modificaTestata(const Vendita& v, Documento& d) {
    d.idMovimento = v.rid();
    d.progressivo = valIntero(v.txtProg.testo());
    const RigaScritta scritte = colonneTestata(v, d);
    if (!modificaTestata(d, scritte)) return false;
    d.testataSparita = !rigaTrovata();
    d.testata = scritte;
    return !d.testataSparita;
}

// The totals of the header are those of all sales that share it.
bool scriviTotali(Documento& d, Currency totale, Currency imposta) {
    const RigaScritta totali{{"TOTIMPONIBILE", getSqlNumber(totale - imposta)},
                             {"TOTIMPOSTA", getSqlNumber(imposta)},
                             {"TOTDOCUMENTO", getSqlNumber(totale)}};
    if (!modificaTestata(d, totali)) return false;
    d.testata.insert(d.testata.end(), totali.begin(), totali.end());
    return true;
}

bool contabilizza(Vendita& v, Documento& d) {
    Currency iva;
    if (!getTotIva(d.idMovimento, iva)) return false;
    const DocumentoContabile contabile{
        d.idMovimento, d.progressivo,   d.data,       getValoreCurrency(v.lblTotConto.testo()),
        iva,           d.trasferimento, d.conversione};
    if (!scriviTotali(d, contabile.totale, iva) || !registraContabilita(v, contabile)) return false;
    d.testata.emplace_back("FK_PRIMANOTA", getIDOrNullStr(v.idPrimaNota));
    d.testata.emplace_back("FK_PNPAGAMENTO", getIDOrNullStr(v.idPNPagamento));
    return true;
}

// Everything between begin and commit; false: roll back.
bool scriviNeiLibri(Vendita& v, Documento& d) {
    if (v.idPagamento < 1) v.idPagamento = gPagamentoVB;
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
const char* const testoComeNellArchivio =
    "Il collegamento con il server si era interrotto: si mostra la vendita come è nell'archivio.\n"
    "Controllarla prima di salvarla di nuovo.";
const char* const testoDaControllare =
    "Non si sa se la vendita è stata salvata: il server non risponde o è occupato.\n"
    "Prima di salvarla di nuovo controllare l'ultima vendita nell'archivio.";

QString numeroVendita(const Vendita& v) {
    return v.txtProg.testo() + "/" + v.txtSottoProg.testo();
}

SalvataggioIncerto descriviSalvataggio(const Vendita& v, const Documento& d) {
    return {d.idMovimento,
            d.extraProg,
            d.testata,
            descriviRighe(v, d.idMovimento, d.extraProg, d.trasferimento),
            {}};
}

// The books hold what was written, or nothing of it.
bool dopoCommitPerso(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    OperatorPort& operatore = v.schermo.operatore();
    SalvataggioIncerto salvataggio = descriviSalvataggio(v, d);
    const EsitoCommit esito = cercaSalvataggio(operatore, salvataggio);
    if (esito == EsitoCommit::Registrato) {
        segnaSalvata(v, d);
        operatore.messaggio(QString(testoSalvata).arg(numeroVendita(v)), Icona::Informazione);
        return true;
    }
    prima.ripristina(v);
    salvataggio.schermo = descriviSchermo(v);
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
    const bool immutata = descriviSchermo(v) == salvataggio.schermo;
    showVendita(v, salvataggio.idMovimento, -1, salvataggio.extraProg, -1);
    gVenditaSalvata = true;
    operatore.messaggio(QString(immutata ? testoSalvata : testoSalvataPrima).arg(numeroVendita(v)),
                        immutata ? Icona::Informazione : Icona::Esclamazione);
    return immutata;
}

// What an unforeseen error left written may be a part of the sale. Where the header is as it was written, the
// screen shows what is in the books; where it is not, nothing of the save is there.
void dopoErroreECommitPerso(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    OperatorPort& operatore = v.schermo.operatore();
    const SalvataggioIncerto salvataggio{d.idMovimento, d.extraProg, d.testata, {}, {}};
    const EsitoCommit esito =
        d.testata.empty() ? EsitoCommit::NonRegistrato : cercaTestata(operatore, salvataggio);
    if (esito == EsitoCommit::Registrato) {
        showVendita(v, d.idMovimento, -1, d.extraProg, -1);
        operatore.messaggio(testoComeNellArchivio, Icona::Esclamazione);
        return;
    }
    prima.ripristina(v);
    operatore.messaggio(esito == EsitoCommit::Ignoto ? testoDaControllare : testoNonSalvata, Icona::Critica);
}

// An unforeseen error ends with a commit of what was written. The screen then shows what is in the books,
// so that saving again books nothing twice.
bool confermaDopoErrore(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    gErr.notificaSubito(erroreInCorso(), gNomeModulo, "salvaVendita", {});
    if (gAdo.commitTrasaction(transazione())) {
        if (d.idMovimento > 0) showVendita(v, d.idMovimento, -1, d.extraProg, -1);
    } else if (gAdo.commitDiEsitoIgnoto()) {
        dopoErroreECommitPerso(v, d, prima);
    } else {
        prima.ripristina(v);
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

const char* const testoSparita =
    "Il documento N° %1 non è più nell'archivio: è stato cancellato da un'altra cassa.\n"
    "La vendita non è stata salvata. Salvarla come nuova vendita?";

// Another desk has taken the header away. True when the whole sale is to go under one of its own.
bool diventaNuova(Vendita& v, const Documento& d) {
    if (!v.schermo.operatore().chiedeSi(QString(testoSparita).arg(Format(d.progressivo, u"0000")),
                                        Icona::Esclamazione)) {
        return false;
    }
    setForNewMovimento(v);
    v.txtProg.testo("(Auto)");
    v.txtSottoProg.testo("(Auto)");
    return true;
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
            return d.testataSparita && diventaNuova(v, d) &&
                   salvaInTransazione(v, conversione, tipoDocumento, StatoPrimaDelSalvataggio(v));
        }
        if (v.primaDelCommit) v.primaDelCommit(descriviSalvataggio(v, d));
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
    if (const EsitoCommit cancellata = chiarisciCancellazione(v); cancellata != EsitoCommit::NonRegistrato) {
        if (cancellata == EsitoCommit::Registrato) nuovoDocumento(v);
        return false;
    }
    if (const auto ripreso = riprendiSalvataggio(v)) return *ripreso;
    const StatoPrimaDelSalvataggio prima(v);
    if (!conversione && v.chkPagato.valore() == 1 && v.cliente() != gClientePredefinito)
        v.idPagamento = gPagamentoVB;
    if (controllaInserimento(v) && controllaDataStampa(v))
        return salvaInTransazione(v, conversione, tipoDocumento, prima);
    prima.ripristina(v);
    return false;
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
