#include "sale/product_entry.h"

#include <cmath>

#include "core/clock.h"
#include "core/errors.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/alternatives.h"
#include "sale/grid.h"
#include "sale/kits.h"
#include "sale/line_pricing.h"
#include "sale/notice.h"
#include "sale/price_tables.h"
#include "sale/product_info.h"
#include "sale/product_query.h"
#include "sale/returns.h"
#include "sale/row_editor.h"
#include "sale/row_writer.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

using Icona = OperatorPort::Icona;

const char* const colonneScelta = "Marca¤800¤CODMARCA|Codice¤1800¤CODICE|Descrizione¤4500¤PRODOTTO|";

// What became of the policies on the found product.
enum class Esito { Avanti, Fermo, Sostituito };

void mostraNonTrovato(Vendita& v) {
    v.txtCodProdotto.testo("ARTICOLO");
    v.txtDescProdotto.testo("NON TROVATO!");
    lampeggiaAvviso(v, {&v.txtCodProdotto, &v.txtDescProdotto});
    pulisciCampiRiga(v, false);
}

bool scegliTraTanti(Vendita& v, Recordset& righe) {
    if (righe.righe() == 1) return true;
    v.schermo.operatore().clessidra(false);
    const bool scelto = v.schermo.selezionaElemento(righe, colonneScelta);
    v.schermo.operatore().clessidra(true);
    return scelto;
}

// Yes/No while the grid is painted again.
bool chiedeConGriglia(Vendita& v, const QString& domanda) {
    v.schermo.ridisegno(true);
    const bool si = v.schermo.operatore().chiedeSi(domanda);
    v.schermo.ridisegno(false);
    return si;
}

bool vuoleSostituto(Vendita& v, const Recordset& p) {
    if (p.campo("FK_SOSTITUITO").isNull()) return false;
    return chiedeConGriglia(
        v, "Il prodotto [" + p.testo("PRODOTTO") + "] è stato sostituito.\nScegliere quello relativo [" +
               p.testo("CODPRODSOSTITUITO") + " - " + p.testo("DESCPRODSOSTITUITO") + "]?");
}

// The stock policy at entry; `reso` when the row can only be a return.
bool ammessoDallaScorta(Vendita& v, const Recordset& p, bool& reso) {
    const float giacenza = getValoreSingle(p.campo("GIACENZA"));
    if (gSottoScorta != 1 || !p.vero("SETGIACENZA") || giacenza > 0) return true;
    if (gBloccaSottoScorta) {
        reso =
            chiedeConGriglia(v, "Impossibile scaricare il prodotto [" + p.testo("PRODOTTO") +
                                    "].\nLa scorta di [" + formattaImporto(giacenza, 2) +
                                    "] è inferiore al limite consentito.\nSi desidera effettuare il reso?");
        if (!reso) {
            v.txtCodProdotto.tag("-1");
            v.caselle.codProdotto.selezionaTutto();
        }
        return reso;
    }
    if (!gAvvisaSottoScorta) return true;
    return chiedeConGriglia(
        v, "Attenzione! La giacenza del prodotto [" + p.testo("PRODOTTO") +
               "] è inferiore a [1].\nScegliere [Sì] per continuare oppure [No] per annullare "
               "l'operazione");
}

// The row whose code was changed: the current one; a kit's component cannot be edited, so then it is the one
// in the editor. 0 when no row is there.
int rigaDelCodice(const Vendita& v) {
    const FlexVB& g = v.flxVB;
    const int nellEditor = valIntero(v.lblPos.testo());
    if (nellEditor < 1 || nellEditor > g.ultima()) return 0;
    const int corrente = g.corrente();
    const bool sua = corrente >= 1 && corrente <= g.ultima() && g.viva(corrente) &&
                     g.cella(corrente, Colonna::IdDistintaBase).isEmpty();
    return sua ? corrente : nellEditor;
}

// Another code typed over the row in the editor takes that row's place; its quantity stays. Answers where
// the new row goes, 0 for the end.
int liberaEditor(Vendita& v, int ridTrovato) {
    const int caricato = v.txtCodProdotto.chiave();
    const int riga = rigaDelCodice(v);
    if (caricato <= 0 || caricato == ridTrovato || riga < 1) {
        pulisciCampiRiga(v, false);
        return 0;
    }
    const QString quantita = v.txtQta.testo();
    const int reso = v.chkReso.valore();
    delRowToGrid(v, riga, false);
    pulisciCampiRiga(v, false);
    v.txtQta.testoETag(quantita);
    setResoStatus(v, reso);
    return riga;
}

void riempiProdotto(Vendita& v, const Recordset& p) {
    v.txtCodProdotto.testo(p.testo("CODICE"));
    v.txtCodProdotto.tag(p.testo("RID"));
    v.lblCodProdotto.testo(p.testo("CODICE"));
    v.txtDescProdotto.testo(p.testo("PRODOTTO"));
    v.lblMarca.testo(p.testo("CODMARCA"));
    v.lblMarca.tag(QString::number(getChekByBool(p.campo("ELENCOSPECIALE"))));
    v.txtIVA.testo(p.testo("CODIVA"));
    v.txtIVA.tag(p.testo("FK_IVA"));
    v.lblIVA.testo(p.testo("DESCIVA"));
    v.lblIDIva.testo(p.testo("FK_IVA"));
    v.lblCodIva.testo(p.testo("CODIVA"));
    v.lblDescIva.testo(p.testo("DESCIVA"));
    v.lblValoraIva.testo(formattaImporto(p.campo("VALOREIVA"), 2));
    v.lblUM.testo(p.testo("CODUM"));
    v.lblUM.tag(p.testo("FK_UNITAMISURA"));
    v.lblPrezzoListinoPanel.testo(formattaImporto(p.importo("PLISTINO"), gDecimaliDopo));
    v.lblDataListinoPanel.testo(Format(p.campo("DATALISTINO").toDate(), u"DD/MM/YYYY"));
    v.lblUbicazione.testo(p.testo("UBICAZIONE"));
    v.lblGiacenza.testo(formattaImporto(getValoreSingle(p.campo("GIACENZA")), 2));
    v.lblGiacenza.tag(p.vero("SETGIACENZA") ? "1" : "0");
}

void riempiCosto(Vendita& v, int idRichiesto) {
    // Only an entry by key knows its cost at once; a code finds it with the margin.
    if (idRichiesto < 1) return;
    const Currency taglio = getTaglioProdotto(idRichiesto, v.magazzinoOrigine);
    if (taglio >= Currency()) v.lblPrezzoAcquisto.testo(formattaImporto(taglio, gDecimaliDopo));
}

void riempiPrezzo(Vendita& v, const Recordset& p) {
    bool daListino = false;
    const Currency prezzo = getPrezzoVendita(v.cliente(), p.intero("RID"), daListino, false);
    const double iva = static_cast<double>(getValoreSingle(v.lblValoraIva.testo()));
    v.txtPrezzoListino.testo(formattaImporto(prezzo, gDecimaliDopo));
    v.txtPrezzoListinoLordo.testo(
        formattaImporto(getValoreCurrency(v.txtPrezzoListino.testo()).toDouble() * (1 + iva / 100), 2));
    v.lblPrezzoListino.tag(QString::number(getChekByBool(p.campo("BLOCCAPREZZO"))));
    v.lblPrezzoListino.testo(v.txtPrezzoListino.testo());
    v.lblPrezzoListinoLordo.testo(v.txtPrezzoListinoLordo.testo());
}

void riempiSconti(Vendita& v, const Recordset& p) {
    float sconto = getValoreSingle(p.campo("SCONTO"));
    if (sconto == 0.0F) sconto = static_cast<float>(v.mScontoCliente);
    if (sconto > 0) {
        v.txtSconto1.testoETag(formattaImporto(sconto, 2));
        v.txtSconto2.testoETag(formattaImporto(0.0, 2));
        v.txtSconto3.testoETag(formattaImporto(0.0, 2));
        v.mScontoFisso = true;
    } else if (getValoreSingle(v.txtQta.testo()) != 0.0F && setSconti(v, p.intero("RID"))) {
        applicaScontiRiga(v);
    }
    v.lblSconto1.testo(v.txtSconto1.testo());
    v.lblSconto2.testo(v.txtSconto2.testo());
    v.lblSconto3.testo(v.txtSconto3.testo());
}

void calcolaRiga(Vendita& v, const Recordset& p) {
    if (v.mGestioneTaglio) v.lblTaglio.testo(v.txtPrezzoListino.testo());
    const QString codice = p.testo("CODICE");
    if (testaDistinta(codice)) getPrezzoTotaleDistinta(v, codice);
    if (!testaDistinta(codice) && !rigaLibera(codice)) {
        const Currency netto = calcolaPrezzoNetto(v, getValoreCurrency(v.txtPrezzoListino.testo()),
                                                  getValoreSingle(v.lblValoraIva.testo()));
        v.txtPrezzoNetto.tag(netto.testo());
        v.txtPrezzoNetto.testo(formattaImporto(netto, gDecimaliDopo));
        v.lblPrezzoNetto.testo(v.txtPrezzoNetto.testo());
    }
    ricalcolaPrezzi(v, false, false);
    v.lblCatSconto.testo(p.testo("DescCatSconto"));
}

bool troppoPerLaGiacenza(Vendita& v) {
    const float giacenza = getValoreSingle(v.lblGiacenza.testo());
    const float quantita = quantitaEditor(v);
    if (v.lblGiacenza.tag() != "1" || gSottoScorta != 1 || quantita <= 0 || giacenza - quantita >= 0)
        return false;
    const QString descrizione = v.txtDescProdotto.testo();
    if (gBloccaSottoScorta) {
        v.schermo.operatore().messaggio("Impossibile scaricare la quantità desiderata per il prodotto [" +
                                            descrizione + "].\nLa scorta di [" + v.lblGiacenza.testo() +
                                            "] è inferiore alla quantità [" + v.txtQta.testo() + "] scelta!",
                                        Icona::Critica);
        return true;
    }
    return gAvvisaSottoScorta &&
           !v.schermo.operatore().chiedeSi(
               "Attenzione! La giacenza del prodotto [" + descrizione + "] è inferiore a [" +
               v.txtQta.testo() + "].\nScegliere [Sì] per continuare oppure [No] per annullare l'operazione");
}

// A product that has its row already: a scan counts it once more, a typed code only recalls the row.
void ripetiProdotto(Vendita& v, int riga) {
    const float quantita = v.flxVB.single(riga, Colonna::Quantita);
    if ((gNoBarcode != 0 || !v.mDaLaser) && gNuovaRiga != 1) return;
    showInfrmazioniStatic(v, v.txtCodProdotto.chiave());
    const float nuova = quantita <= 0 ? quantita - 1 : quantita + 1;
    v.txtQta.testo(formattaImporto(std::fabs(nuova), 2));
    setResoStatus(v, nuova < 0 ? 1 : 0);
    txtQta_LostFocus(v);
}

// What the screen tells about the product of the row.
void mostraPannelli(Vendita& v) {
    const int prodotto = v.txtCodProdotto.chiave();
    showAlternativi(v, prodotto);
    showMargineProdotto(v, prodotto, getValoreCurrency(v.txtPrezzoNetto.testo()));
}

// The row of a product in the place of another's keeps that one's quantity, as far as the stock goes.
void controllaQuantitaRipresa(Vendita& v) {
    if (getValoreSingle(v.txtQta.testo()) == 1.0F || !troppoPerLaGiacenza(v)) return;
    v.txtQta.testo(formattaImporto(1.0, 2));
    ricalcolaPrezzi(v, false, true);
    v.txtQta.tag(v.txtQta.testo());
}

bool entraInGriglia(Vendita& v, int rigaInserimento, int& riga, bool& presente) {
    const bool scontoFisso = v.mScontoFisso;
    riga = addNewElement(v, rigaInserimento, presente);
    if (riga < 1) {
        pulisciCampiRiga(v, false);
        v.schermo.fuoco(v.txtCodProdotto);
        return false;
    }
    v.mScontoFisso = scontoFisso;  // recalling the row has cleared it
    v.lblPos.testo(QString::number(riga));
    if (!presente) v.txtQta.testoETag(formattaImporto(std::fabs(v.flxVB.single(riga, Colonna::Quantita)), 2));
    mostraPannelli(v);
    if (presente && rigaInserimento == 0) ripetiProdotto(v, riga);
    if (!presente && rigaInserimento > 0) controllaQuantitaRipresa(v);
    v.mRigaDaCodice = true;
    return true;
}

bool entraProdotto(Vendita& v, const Recordset& p, int idRichiesto, int& riga, bool& presente) {
    bool reso = false;
    if (!ammessoDallaScorta(v, p, reso)) return false;
    const int rigaInserimento = liberaEditor(v, p.intero("RID"));
    riempiProdotto(v, p);
    riempiCosto(v, idRichiesto);
    riempiPrezzo(v, p);
    riempiSconti(v, p);
    calcolaRiga(v, p);
    if (!entraInGriglia(v, rigaInserimento, riga, presente)) return false;
    if (reso) setResoStatus(v, 1);
    // A new row is a return from the start; one that was there keeps its sign until its quantity is ended.
    if (reso && !presente) setReso(v, 1);
    bloccaPrezzi(v);
    return true;
}

bool cercaProdottoDigitato(Vendita& v, bool& presente) {
    const RidisegnoFermo fermo(v.schermo);
    const Clessidra clessidra(v.schermo.operatore());
    int riga = 0;
    const bool trovato = getProdotto(v, v.txtCodProdotto.chiave(), v.txtCodProdotto.testo(), riga,
                                     v.chkCodiceProdotto.valore() == 1, presente);
    v.mDaLaser = false;
    if (!trovato) return false;
    calcolaTotali(v, false);
    selFlexRow(v, riga);
    return true;
}

void avvisaPresente(Vendita& v) {
    if (gPrdEsistente == 1) {
        v.schermo.operatore().messaggio("Prodotto già inserito!", Icona::Nessuna, "Avviso");
    } else {
        v.schermo.operatore().beep();
    }
}

void entraCodice(Vendita& v) {
    if (!controlloDataMovimento(v)) return;
    v.caselle.codProdotto.cancelTabStep(true);
    bool presente = false;
    const bool trovato = cercaProdottoDigitato(v, presente);
    if (presente) avvisaPresente(v);
    if (!trovato) {
        v.schermo.fuoco(v.txtCodProdotto);
    } else if (gNuovaRiga != 0) {
        v.schermo.premiComando(15);
    } else {
        v.schermo.fuoco(rigaLibera(v.txtCodProdotto.testo()) ? v.txtDescProdotto : v.txtQta);
    }
    v.lblCodProdotto.testo(v.txtCodProdotto.testo());
}

// The rest of a customer card is typed behind its mark.
void iniziaTessera(Vendita& v) {
    v.schermo.fuoco(v.txtCodCliente);
    v.txtCodCliente.testo(gClienteChar);
    v.caselle.codCliente.setLastPositionChar();
}

// A scanned card or badge begins with its own mark, right behind the scanner's prefix.
bool tesseraOBadge(Vendita& v, QChar tasto) {
    if (!v.mDaLaser || !v.txtCodProdotto.testo().isEmpty()) return false;
    if (!gClienteChar.isEmpty() && tasto.toUpper() == gClienteChar[0].toUpper()) {
        v.mDaLaser = false;
        const bool altroConto = v.txtCodCliente.bloccato() || v.indice == 0;
        if (Vendita* conto = altroConto ? v.schermo.apriNuovoConto({}) : &v) iniziaTessera(*conto);
        return true;
    }
    if (!gVenditoreChar.isEmpty() && tasto == gVenditoreChar[0]) {
        v.mDaLaser = false;
        v.schermo.leggiBadge();
        return true;
    }
    return false;
}

}  // namespace

bool getProdotto(Vendita& v, int idProdotto, const QString& codice, int& riga, bool like, bool& presente) {
    riga = 0;
    presente = false;
    return protetto(
        moduloFrmMain, "getProdotto",
        [&] {
            QString sql = sqlProdotto(idProdotto, codice, like);
            const Lettura lettura(sql, moduloFrmMain + QString(".getProdotto"));
            if (!lettura) return false;
            if (lettura->eof()) {
                mostraNonTrovato(v);
                return false;
            }
            unaRigaAProdotto(*lettura);
            if (!scegliTraTanti(v, *lettura)) return false;
            if (vuoleSostituto(v, *lettura)) {
                return getProdotto(v, lettura->intero("FK_SOSTITUITO"), {}, riga, false, presente);
            }
            return entraProdotto(v, *lettura, codice.isEmpty() ? idProdotto : -1, riga, presente);
        },
        false);
}

std::optional<QChar> txtCodProdotto_KeyPress(Vendita& v, QChar tasto) {
    if (tesseraOBadge(v, tasto)) return std::nullopt;
    const QString& testo = v.txtCodProdotto.testo();
    if (tasto != u'\r' || testo == v.lblCodProdotto.testo()) return tasto;
    if (!testo.isEmpty() || v.txtCodProdotto.chiave() > 0) entraCodice(v);
    return tasto;
}

void iniziaScansione(Vendita& v) {
    v.mDaLaser = true;
    pulisciCampiRiga(v, false);
    v.schermo.fuoco(v.txtCodProdotto);
}

void txtQta_LostFocus(Vendita& v) {
    if (!valoreCambiato(v.txtQta)) return;
    const bool caricato = v.txtCodProdotto.chiave() > 0;
    if (caricato && getValoreSingle(v.txtQta.testo()) != 0.0F) {
        const float assoluta = std::fabs(getValoreSingle(v.txtQta.testo()));
        v.txtQta.testo(formattaImporto(v.chkReso.valore() == 1 ? -assoluta : assoluta, 2));
    }
    if (troppoPerLaGiacenza(v)) {
        v.txtQta.testo(v.txtQta.tag());
        return;
    }
    if (!v.mScontoFisso && caricato && setSconti(v, v.txtCodProdotto.chiave()))
        txtSconto_LostFocus(v, v.txtSconto1);
    ricalcolaPrezzi(v, false, true);
    v.txtQta.tag(v.txtQta.testo());
}

void setArticoloGrid(Vendita& v, const QString& elenco) {
    const QStringList parti = elenco.split('|');
    bool presente = false;
    {
        const RidisegnoFermo fermo(v.schermo);
        const Clessidra clessidra(v.schermo.operatore());
        int ultima = 0;
        for (qsizetype i = 0; i + 1 < parti.size(); ++i) {
            pulisciCampiRiga(v, false);
            v.txtCodProdotto.tag(parti[i]);
            int riga = 0;
            bool suo = false;
            if (getProdotto(v, v.txtCodProdotto.chiave(), {}, riga, false, suo)) ultima = riga;
            presente = presente || suo;
        }
        if (parti.size() < 2) pulisciCampiRiga(v, false);
        if (ultima > 0) {
            calcolaTotali(v, false);
            selFlexRow(v, ultima);
        }
    }
    if (presente) avvisaPresente(v);
    v.schermo.fuoco(v.txtCodProdotto);
}

bool controlloDataMovimento(Vendita& v) {
    const QString inizio = "Attenzione, la Data della Vendita corrente è diversa dalla Data attuale.\n";
    if (gVenditeGiorniDiversi != 1) return true;
    const QDateTime adesso = gAdo.getDataOraServer(moduloFrmMain + QString(".controlloDataMovimento"));
    if (v.txtData.testo() == Format(adesso, u"DD/MM/YYYY")) return true;
    if (gBloccaVenditeGiorniDiversi) {
        v.schermo.operatore().messaggio(inizio + "Impossibile continuare!", Icona::Critica);
        return false;
    }
    return !gAvvisaVenditeGiorniDiversi || v.schermo.operatore().chiedeSi(inizio + "Si desidera continuare?");
}
