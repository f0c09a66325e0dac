#include "postings/save_outcome.h"

#include <algorithm>
#include <utility>

#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "postings/lost_save.h"
#include "register/interface_link.h"
#include "sale/recall.h"
#include "sale/sale_document.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;
using Parte = SalvataggioIncerto::Parte;

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
const char* const testoTrasferimento =
    "Il trasferimento è nell'archivio: N° %1.\n"
    "Il salvataggio non è finito regolarmente: controllarlo.";
const char* const testoAncoraScontrino = "\nLo scontrino sarà stampato di nuovo.";
const char* const testoSparita =
    "Il documento N° %1 non è più nell'archivio: è stato cancellato da un'altra cassa.\n"
    "La vendita non è stata salvata. Salvarla come nuova vendita?";

// Rows marked for deletion went with their header: there is nothing left of them to delete.
void dimenticaCancellate(FlexVB& g) {
    for (int r = 1; r <= g.ultima(); ++r) {
        if (!g.viva(r)) g.scrivi(r, Colonna::Rid, {});
    }
}

void mostraTestata(Vendita& v, int idMovimento, int progressivo) {
    v.lblRID.testo(QString::number(idMovimento));
    v.txtProg.testo(Format(progressivo, u"0000"));
}

// What the save wrote to that column of the header, as SQL.
QString scritto(const SalvataggioIncerto& salvataggio, const char* colonna) {
    const RigaScritta& testata = salvataggio.testata;
    const auto trovata = std::find_if(testata.begin(), testata.end(), [colonna](const auto& scritta) {
        return scritta.first == QLatin1String(colonna);
    });
    return trovata == testata.end() ? QString() : trovata->second;
}

int progressivoScritto(const SalvataggioIncerto& salvataggio) {
    return scritto(salvataggio, "PROGRESSIVO").toInt();
}

// What stands in the books after an unforeseen error, on the screen: the rows, if they were written, else the
// header's key and number alone.
void mostraRimasta(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    if (d.righeScritte) {
        gFrmRegCassa().scontrini.salvataggioConcluso(true);
        const SalvataggioIncerto salvataggio = descriviSalvataggio(d);
        mostraSalvata(v, salvataggio);
        if (d.trasferimento)
            v.schermo.operatore().messaggio(QString(testoTrasferimento).arg(numeroScritto(salvataggio)),
                                            Icona::Esclamazione);
        return;
    }
    prima.ripristina(v);
    if (d.idMovimento > 0) mostraTestata(v, d.idMovimento, d.progressivo);
}

// Its sale is looked for before it is saved again.
void restaIncerto(Vendita& v, SalvataggioIncerto salvataggio) {
    salvataggio.schermo = descriviSchermo(v);
    salvataggio.scontrino = gFrmRegCassa().scontrini.salvataggioIncerto();
    v.salvataggioIncerto = std::move(salvataggio);
}

// What an unforeseen error left written may be a part of the sale.
void dopoErroreECommitPerso(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    OperatorPort& operatore = v.schermo.operatore();
    SalvataggioIncerto salvataggio = descriviSalvataggio(d);
    salvataggio.parte = d.righeScritte ? Parte::TestataERighe : Parte::SolaTestata;
    const EsitoCommit esito =
        d.testata.empty() ? EsitoCommit::NonRegistrato : cercaSalvataggio(operatore, salvataggio);
    if (esito == EsitoCommit::Registrato) {
        mostraRimasta(v, d, prima);
        operatore.messaggio(d.righeScritte ? testoComeNellArchivio : testoNonSalvata, Icona::Esclamazione);
        return;
    }
    prima.ripristina(v);
    if (esito == EsitoCommit::Ignoto) restaIncerto(v, std::move(salvataggio));
    operatore.messaggio(esito == EsitoCommit::Ignoto ? testoIncerta : testoNonSalvata, Icona::Critica);
}

// The save that was not known of is in the books, and is shown from there: what saving it again answers.
bool mostraRitrovata(Vendita& v, const SalvataggioIncerto& salvataggio) {
    const bool immutata = descriviSchermo(v) == salvataggio.schermo;
    const bool intera = salvataggio.parte == Parte::Tutto;
    mostraSalvata(v, salvataggio);
    if (intera) gVenditaSalvata = true;
    const QString testo =
        QString(immutata ? testoSalvata : testoSalvataPrima).arg(numeroScritto(salvataggio));
    v.schermo.operatore().messaggio(intera ? testo : QString(testoComeNellArchivio),
                                    intera && immutata ? Icona::Informazione : Icona::Esclamazione);
    return intera && immutata;
}

}  // namespace

QString transazioneSalvataggio() {
    return ".salvaVendita" + gNomeModulo;
}

void segnaSalvata(Vendita& v, const Documento& d) {
    v.lblRID.testo(QString::number(d.idMovimento));
    v.txtSottoProg.testo(Format(d.extraProg, u"0000"));
    v.venditaModificata = false;
    v.pctSave.visibile(false);
    gVenditaSalvata = true;
}

QString numeroScritto(const SalvataggioIncerto& salvataggio) {
    return Format(progressivoScritto(salvataggio), u"0000") + "/" + Format(salvataggio.extraProg, u"0000");
}

// A transfer, which has no counterparty, is one that no recall finds.
void mostraSalvata(Vendita& v, const SalvataggioIncerto& salvataggio) {
    if (scritto(salvataggio, "FK_CONTROPARTITA") == "Null") return nuovoDocumento(v);
    showVendita(v, salvataggio.idMovimento, -1, salvataggio.extraProg, -1);
}

SalvataggioIncerto descriviSalvataggio(const Documento& d) {
    return {d.idMovimento, d.extraProg, d.testata, d.righe, {}};
}

bool dopoCommitPerso(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    OperatorPort& operatore = v.schermo.operatore();
    SalvataggioIncerto salvataggio = descriviSalvataggio(d);
    const EsitoCommit esito = cercaSalvataggio(operatore, salvataggio);
    if (esito == EsitoCommit::Registrato) {
        segnaSalvata(v, d);
        operatore.messaggio(QString(testoSalvata).arg(v.numero()), Icona::Informazione);
        return true;
    }
    prima.ripristina(v);
    if (esito == EsitoCommit::Ignoto) restaIncerto(v, std::move(salvataggio));
    operatore.messaggio(esito == EsitoCommit::Ignoto ? testoIncerta : testoNonSalvata, Icona::Critica);
    return false;
}

EsitoCommit chiarisciSalvataggio(Vendita& v) {
    if (!v.salvataggioIncerto) return EsitoCommit::NonRegistrato;
    const EsitoCommit esito = cercaSalvataggio(v.schermo.operatore(), *v.salvataggioIncerto);
    if (esito == EsitoCommit::Ignoto) return esito;
    const SalvataggioIncerto salvataggio = *std::exchange(v.salvataggioIncerto, std::nullopt);
    const bool registrato = esito == EsitoCommit::Registrato;
    const bool conRighe = registrato && salvataggio.conRighe();
    gFrmRegCassa().scontrini.chiarisci(salvataggio.scontrino, conRighe);
    if (registrato && !conRighe) mostraTestata(v, salvataggio.idMovimento, progressivoScritto(salvataggio));
    return conRighe ? EsitoCommit::Registrato : EsitoCommit::NonRegistrato;
}

std::optional<bool> riprendiSalvataggio(Vendita& v) {
    const std::optional<SalvataggioIncerto> salvataggio = v.salvataggioIncerto;
    const EsitoCommit esito = chiarisciSalvataggio(v);
    if (esito == EsitoCommit::NonRegistrato) return std::nullopt;
    if (esito == EsitoCommit::Registrato) return mostraRitrovata(v, *salvataggio);
    v.schermo.operatore().messaggio(testoIncerta, Icona::Critica);
    return false;
}

bool confermaDopoErrore(Vendita& v, const Documento& d, const StatoPrimaDelSalvataggio& prima) {
    gErr.notificaSubito(erroreInCorso(), gNomeModulo, "salvaVendita", {});
    if (gAdo.commitTrasaction(transazioneSalvataggio())) {
        mostraRimasta(v, d, prima);
    } else if (gAdo.commitDiEsitoIgnoto()) {
        dopoErroreECommitPerso(v, d, prima);
    } else {
        prima.ripristina(v);
    }
    return false;
}

bool diventaNuova(Vendita& v, const Documento& d) {
    QString domanda = QString(testoSparita).arg(Format(d.progressivo, u"0000"));
    if (!gRegCassa.isEmpty() && v.extraProg() > 0) domanda += testoAncoraScontrino;
    if (!v.schermo.operatore().chiedeSi(domanda, Icona::Esclamazione)) return false;
    setForNewMovimento(v);
    dimenticaCancellate(v.flxVB);
    v.txtProg.testo("(Auto)");
    v.txtSottoProg.testo("(Auto)");
    return true;
}
