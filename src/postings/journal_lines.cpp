#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "postings/journal.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".saveDettagliPrimaNota";
}

struct RigaPN {
    const char* lato;  // the column: Dare or Avere
    int conto = 0;
    Currency importo = {};
};

// The up to four lines of an entry, in the order in which they are written.
struct RighePN {
    RigaPN dare1{"Dare"};
    RigaPN dare2{"Dare"};
    RigaPN avere1{"Avere"};
    RigaPN avere2{"Avere"};
};

// A second account takes the VAT of its side; the other side keeps the whole.
void ripartisciImposta(const ContiCausale& conti, Currency importo, Currency imposta, RighePN& righe) {
    const Currency netto = importo - imposta;
    righe.dare1.importo = righe.avere1.importo = importo;
    if (conti.dare2 > 0) {
        righe.dare2 = {"Dare", conti.dare2, imposta};
    } else if (conti.avere2 > 0) {
        righe.avere2 = {"Avere", conti.avere2, imposta};
    }
    if (righe.dare2.importo > Currency()) {
        righe.dare1.importo = netto;
    } else if (righe.avere2.importo > Currency()) {
        righe.avere1.importo = netto;
    }
}

bool contoDiControllo(int conto) {
    return conto == gContoClienti || conto == gContoFornitori;
}

// A collection with a discount or an expense: the third amount goes to the second account beside the
// customers' or suppliers' one. The credit of the second case starts from 0, not from the whole.
void ripartisciTerzoImporto(const ContiCausale& conti, const RegistrazionePN& r, RighePN& righe) {
    const Currency netto = r.importo - r.imposta;
    if (conti.dare2 > 0 && contoDiControllo(conti.dare1)) {
        righe.dare1.importo = r.importo - r.terzoImporto;
        righe.dare2 = {"Dare", conti.dare2, r.terzoImporto};
        righe.avere1.importo = netto;
        if (conti.avere2 > 0) righe.avere2 = {"Avere", conti.avere2, r.imposta};
    } else if (conti.avere2 > 0 && contoDiControllo(conti.avere1)) {
        righe.avere1.importo = -r.terzoImporto;
        righe.avere2 = {"Avere", conti.avere2, r.terzoImporto};
        righe.dare1.importo = netto;
        if (conti.dare2 > 0) righe.dare2 = {"Dare", conti.dare2, r.imposta};
    }
}

RighePN ripartisci(const ContiCausale& conti, const RegistrazionePN& r) {
    RighePN righe;
    righe.dare1.conto = conti.dare1;
    righe.avere1.conto = conti.avere1;
    if (r.terzoImporto == Currency()) {
        ripartisciImposta(conti, r.importo, r.imposta, righe);
    } else {
        ripartisciTerzoImporto(conti, r, righe);
    }
    return righe;
}

bool scriviRiga(int idPrimaNota, const RigaPN& riga) {
    return riga.conto <= 0 ||
           gAdo.executeSQL("INSERT INTO PrimaNotaDettagli (FK_PrimaNota, FK_Conto, " + QString(riga.lato) +
                               ") VALUES (" + QString::number(idPrimaNota) + ", " +
                               QString::number(riga.conto) + ", " + getSqlNumber(riga.importo) + ")",
                           sorgente());
}

QString cercaConti(int idCausale, ContiCausale& conti) {
    const Lettura lettura(
        "SELECT FK_CONTODARE1, FK_CONTODARE2, FK_CONTOAVERE1, FK_CONTOAVERE2 FROM Causali WHERE RID = " +
            QString::number(idCausale),
        sorgente());
    if (!lettura) return {};
    if (lettura->eof()) return "Impossibile assegnare i conti DARE/AVERE!";
    conti = {lettura->intero("FK_CONTODARE1"), lettura->intero("FK_CONTODARE2"),
             lettura->intero("FK_CONTOAVERE1"), lettura->intero("FK_CONTOAVERE2")};
    return righeScritte;
}

QString sostituisciRighe(const RegistrazionePN& r, const ContiCausale& conti) {
    const RighePN righe = ripartisci(conti, r);
    if (!gAdo.executeSQL(
            "DELETE FROM PrimaNotaDettagli WHERE FK_PrimaNota = " + QString::number(r.idPrimaNota),
            sorgente()))
        return {};
    for (const RigaPN* riga : {&righe.dare1, &righe.dare2, &righe.avere1, &righe.avere2}) {
        if (!scriviRiga(r.idPrimaNota, *riga)) return {};
    }
    return righeScritte;
}

}  // namespace

QString leggiConti(int idCausale, ContiCausale& conti) {
    return protetto(
        gNomeModulo, "saveDettagliPrimaNota", [&] { return cercaConti(idCausale, conti); }, QString());
}

QString saveDettagliPrimaNota(const RegistrazionePN& r, const ContiCausale& conti) {
    return protetto(
        gNomeModulo, "saveDettagliPrimaNota", [&] { return sostituisciRighe(r, conti); }, QString());
}
