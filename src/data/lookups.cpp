#include "data/lookups.h"

#include "core/errors.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"

namespace {

// A statement up to " WHERE ", and the fields that hold the code and the description.
struct Archivio {
    const char* procedura;  // name in error reports
    QString testa;
    const char* codice = "CODICE";
    const char* descrizione = "DESCRIZIONE";
    OperatorPort::Icona icona = OperatorPort::Icona::Nessuna;
};

QString sorgente(const char* procedura) {
    return gNomeModulo + '.' + procedura;
}

QString condizioneChiave(int rid) {
    return "RID = " + QString::number(rid);
}

// `condizione` makes the text behind WHERE of code and key. `altriCampi` takes what else the row holds.
void valida(const Archivio& archivio, QString (*condizione)(const QString& codice, int rid), QString& codice,
            QString& descrizione, int& rid, const std::function<void(const Recordset&)>& altriCampi = {}) {
    protetto(gNomeModulo, archivio.procedura, [&] {
        {
            const Lettura riga(archivio.testa + condizione(codice, rid), sorgente(archivio.procedura));
            if (!riga) return;
            if (!riga->eof()) {
                codice = riga->testo(archivio.codice);
                descrizione = riga->testo(archivio.descrizione);
                rid = riga->intero("RID");
                if (altriCampi) altriCampi(*riga);
            }
        }
        if (rid < 1) gErr.mostraMessaggio("Codice: " + codice + " inesistente!", archivio.icona);
    });
}

QString condizioneCodice(const QString& codice, int rid) {
    return codice.isEmpty() ? condizioneChiave(rid) : "CODICE = " + testoSQL(codice);
}

void validaCodice(const char* procedura, const char* tabella, QString& codice, QString& descrizione,
                  int& rid) {
    valida({procedura, QString("SELECT RID, CODICE, DESCRIZIONE FROM ") + tabella + " WHERE "},
           condizioneCodice, codice, descrizione, rid);
}

QString condizioneAnagrafica(const QString& codice, int rid) {
    if (codice.isEmpty()) return condizioneChiave(rid);
    if (isNumeric(codice)) return "NUMERO = " + getSqlNumber(codice);
    return "CODICEEXTRA = " + testoSQL(codice);
}

QString condizioneProdotto(const QString& codice, int rid) {
    if (codice.isEmpty()) return "P." + condizioneChiave(rid);
    const QString testo = testoSQL(codice);
    return " P.CODICE = " + testo + " OR P.BARCODE = " + testo + " OR P.EXTRACODICE = " + testo;
}

}  // namespace

void validaAspetto(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaAspetto", "AspettoEsteriore", codice, descrizione, rid);
}
void validaMagazzino(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaMagazzino", "Magazzini", codice, descrizione, rid);
}
void ValidaTipoDocumento(QString& codice, QString& descrizione, int& rid) {
    validaCodice("ValidaTipoDocumento", "TipoDocumenti", codice, descrizione, rid);
}
void ValidaConto(QString& codice, QString& descrizione, int& rid) {
    validaCodice("ValidaConto", "PianoConti", codice, descrizione, rid);
}
void valisaCausale(QString& codice, QString& descrizione, int& rid) {
    validaCodice("valisaCausale", "Causali", codice, descrizione, rid);
}
void validaCausaleTrasporto(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaCausaleTrasporto", "CausaliTrasporto", codice, descrizione, rid);
}
void validaCategoria(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaCategoria", "CategorieMerceologiche", codice, descrizione, rid);
}
void validaDocumento(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaDocumento", "TipoDocumenti", codice, descrizione, rid);
}
void validaGruppo(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaGruppo", "Gruppi", codice, descrizione, rid);
}
void validaMarca(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaMarca", "Marche", codice, descrizione, rid);
}
void validaSpedizione(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaSpedizione", "Spedizioni", codice, descrizione, rid);
}
void validaVenditore(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaVenditore", "Venditori", codice, descrizione, rid);
}
void validaPagamento(QString& codice, QString& descrizione, int& rid) {
    validaCodice("validaPagamento", "Pagamenti", codice, descrizione, rid);
}

void validaAnagrafica(QString& codice, QString& descrizione, int& rid) {
    valida({"validaCliente", "SELECT RID, NUMERO, DENOMINAZIONE FROM Anagrafiche WHERE ", "NUMERO",
            "DENOMINAZIONE"},
           condizioneAnagrafica, codice, descrizione, rid);
}

void validaProdottoEsteso(QString& codice, QString& descrizione, int& rid, double& valoreIva,
                          QString& codIva) {
    valida(
        {"validaProdottoEsteso",
         "SELECT P.RID, P.CODICE, P.DESCRIZIONE AS DESCPRODOTTO, I.CODICE AS CODIVA, I.VALORE AS VALOREIVA "
         "FROM Prodotti P LEFT JOIN Iva I ON P.FK_Iva = I.RID WHERE ",
         "CODICE", "DESCPRODOTTO", OperatorPort::Icona::Esclamazione},
        condizioneProdotto, codice, descrizione, rid, [&](const Recordset& riga) {
            if (riga.campo("VALOREIVA").isNull()) return;
            valoreIva = riga.reale("VALOREIVA");
            codIva = riga.testo("CODIVA");
        });
}

QString getDescrizioneProdotto(int rid) {
    return protetto(
        gNomeModulo, "getDescrizioneProdotto",
        [&] {
            const Lettura riga(
                "SELECT P.DESCRIZIONE AS DESCPRODOTTO FROM Prodotti P WHERE P.RID = " + QString::number(rid),
                sorgente("getDescrizioneProdotto"));
            return riga.trovata() ? riga->testo("DESCPRODOTTO") : QString();
        },
        QString());
}

void getTotaliFigli(int rigaPadre, Currency& totaleLordo, Currency& totaleNetto, Currency& totaleIvato) {
    totaleLordo = totaleNetto = totaleIvato = {};
    protetto(gNomeModulo, "getTotaliFigli", [&] {
        const Lettura figli(
            "SELECT QUANTITA, PREZZO, PREZZONETTO, VALOREIVA FROM DettagliMovimento "
            "WHERE IK_DETTAGLIOMOVIMENTO = " +
                QString::number(rigaPadre),
            sorgente("getTotaliFigli"));
        if (!figli) return;
        for (; !figli->eof(); figli->moveNext()) {
            const double quantita = static_cast<double>(figli->single("QUANTITA"));
            const double netto = figli->importo("PREZZONETTO").toDouble() * quantita;
            totaleLordo += Currency::daDouble(figli->importo("PREZZO").toDouble() * quantita);
            totaleNetto += Currency::daDouble(netto);
            totaleIvato += Currency::daDouble(netto * (1.0 + figli->reale("VALOREIVA") / 100.0));
        }
    });
}
