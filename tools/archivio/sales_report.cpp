#include "archivio/sales_report.h"

#include "archivio/archive.h"
#include "core/run_time_error.h"
#include "core/value_helpers.h"

namespace {

// A file's dates are texts.
QString dataItaliana(const QVariant& data) {
    const QString testo = data.toString();
    return testo.mid(8, 2) + "/" + testo.mid(5, 2) + "/" + testo.left(4);
}

QString soldi(const Recordset& r, const char* colonna) {
    return formattaImporto(r.importo(colonna), 2);
}

QString sconti(const Recordset& r) {
    QStringList parti;
    for (const char* colonna : {"SCONTO", "SCONTO2", "SCONTO3"}) {
        if (r.reale(colonna) != 0.0) parti << QString::number(r.reale(colonna)).replace('.', ',');
    }
    return parti.join('+');
}

void stampaRighe(Archivio& archivio, const Recordset& vendita, QTextStream& esito) {
    Recordset r = archivio.leggi(
        "SELECT POS, CODPRODOTTO, DESCPRODOTTO, QUANTITA, PREZZO, PREZZONETTO, VALOREIVA, TOTALERIGA, "
        "SCONTO, SCONTO2, SCONTO3, IK_DETTAGLIOMOVIMENTO FROM DettagliMovimento WHERE FK_MOVIMENTO = " +
        vendita.testo("RID") + " AND EXTRAPROG = " + vendita.testo("EXTRAPROG") + " ORDER BY POS, RID");
    Currency totale;
    for (; !r.eof(); r.moveNext()) {
        const QString rientro = r.intero("IK_DETTAGLIOMOVIMENTO") > 0 ? "+ " : "";
        esito << QString("  %1 %2 %3 %4 x %5 %6 = %7  IVA %8%  %9\n")
                     .arg(r.intero("POS"), 3)
                     .arg((rientro + r.testo("CODPRODOTTO")).leftJustified(14))
                     .arg(r.testo("DESCPRODOTTO").left(44).leftJustified(44))
                     .arg(formattaImporto(r.reale("QUANTITA"), 2), 8)
                     .arg(soldi(r, "PREZZO"), 9)
                     .arg(sconti(r).leftJustified(8))
                     .arg(soldi(r, "PREZZONETTO"), 9)
                     .arg(QString::number(r.reale("VALOREIVA")), 2)
                     .arg(soldi(r, "TOTALERIGA"), 10);
        totale += r.importo("TOTALERIGA");
    }
    esito << "  Totale vendita: " << formattaImporto(totale, 2) << "\n";
}

void stampaRegistrazione(Archivio& archivio, const QVariant& primaNota, QTextStream& esito) {
    if (primaNota.isNull()) return;
    Recordset r = archivio.leggi(
        "SELECT PN.PROGRESSIVO, PN.DESCRIZIONE, PC.DESCRIZIONE AS CONTO, D.DARE, D.AVERE FROM PrimaNota PN "
        "JOIN PrimaNotaDettagli D ON D.FK_PRIMANOTA = PN.RID JOIN PianoConti PC ON D.FK_CONTO = PC.RID "
        "WHERE PN.RID = " +
        QString::number(primaNota.toLongLong()) + " ORDER BY D.RID");
    if (!r.eof())
        esito << "  Prima nota " << r.testo("PROGRESSIVO") << ": " << r.testo("DESCRIZIONE") << "\n";
    for (; !r.eof(); r.moveNext()) {
        esito << QString("      %1 dare %2 avere %3\n")
                     .arg(r.testo("CONTO").leftJustified(28))
                     .arg(soldi(r, "DARE"), 10)
                     .arg(soldi(r, "AVERE"), 10);
    }
}

const char* const vendite =
    "SELECT M.RID, U.EXTRAPROG, M.PROGRESSIVO, M.DATA, M.ID_CASSA, TD.CODICE, TD.DESCRIZIONE, A.NUMERO, "
    "A.DENOMINAZIONE, P.DESCRIZIONE AS PAGAMENTO, M.TOTDOCUMENTO, M.TOTIMPONIBILE, M.TOTIMPOSTA, "
    "M.FK_PRIMANOTA, M.FK_PNPAGAMENTO FROM (SELECT FK_MOVIMENTO, EXTRAPROG, MAX(RID) AS ULTIMA "
    "FROM DettagliMovimento GROUP BY FK_MOVIMENTO, EXTRAPROG) U JOIN Movimenti M ON U.FK_MOVIMENTO = M.RID "
    "JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID "
    "LEFT JOIN Anagrafiche A ON M.FK_CONTROPARTITA = A.RID "
    "LEFT JOIN Pagamenti P ON M.FK_PAGAMENTO = P.RID ORDER BY U.ULTIMA DESC";

void stampaVendita(Archivio& archivio, const Recordset& r, QTextStream& esito) {
    esito << QString("%1 %2 n. %3/%4 del %5, cassa %6\n")
                 .arg(r.testo("CODICE"), r.testo("DESCRIZIONE"),
                      r.testo("PROGRESSIVO").rightJustified(4, '0'), r.testo("EXTRAPROG"),
                      dataItaliana(r.campo("DATA")), r.testo("ID_CASSA"));
    esito << "  Cliente: " << r.testo("NUMERO") << " " << r.testo("DENOMINAZIONE")
          << ", pagamento: " << r.testo("PAGAMENTO") << "\n";
    stampaRighe(archivio, r, esito);
    esito << "  Totale documento: " << soldi(r, "TOTDOCUMENTO") << " (imponibile "
          << soldi(r, "TOTIMPONIBILE") << ", imposta " << soldi(r, "TOTIMPOSTA") << ")\n";
    stampaRegistrazione(archivio, r.campo("FK_PRIMANOTA"), esito);
    stampaRegistrazione(archivio, r.campo("FK_PNPAGAMENTO"), esito);
    esito << "\n";
}

}  // namespace

bool stampaVendite(const QString& nome, int ultime, QTextStream& esito) {
    try {
        const auto archivio = apriPerGuardare(NomeArchivio::da(nome));
        Recordset r = archivio->leggi(primeRighe(vendite, ultime, archivio->tipoServer()));
        if (r.eof()) esito << "Nessuna vendita salvata.\n";
        for (; !r.eof(); r.moveNext())
            stampaVendita(*archivio, r, esito);
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: " << errore.descrizione() << "\n";
        return false;
    }
    return true;
}
