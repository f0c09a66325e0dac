#include "archivio/sales_report.h"

#include "archivio/read_only_archive.h"
#include "archivio/statement.h"
#include "core/run_time_error.h"
#include "core/value_helpers.h"

namespace {

QString dataItaliana(const QString& dataDb) {
    return dataDb.mid(8, 2) + "/" + dataDb.mid(5, 2) + "/" + dataDb.left(4);
}

QString soldi(const Istruzione& i, int colonna) {
    return formattaImporto(i.importo(colonna), 2);
}

QString sconti(const Istruzione& i, int prima) {
    QStringList parti;
    for (int colonna = prima; colonna < prima + 3; ++colonna) {
        if (i.reale(colonna) != 0.0) parti << i.testo(colonna).replace('.', ',');
    }
    return parti.join('+');
}

void stampaRighe(sqlite3* db, qint64 movimento, qint64 vendita, QTextStream& esito) {
    Istruzione i(
        db,
        "SELECT POS, CODPRODOTTO, DESCPRODOTTO, QUANTITA, PREZZO, PREZZONETTO, VALOREIVA, TOTALERIGA, "
        "SCONTO, SCONTO2, SCONTO3, IK_DETTAGLIOMOVIMENTO FROM DettagliMovimento "
        "WHERE FK_MOVIMENTO = ? AND EXTRAPROG = ? ORDER BY POS, RID");
    i.lega({movimento, vendita});
    Currency totale;
    while (i.passo()) {
        const QString rientro = i.intero(11) > 0 ? "+ " : "";
        esito << QString("  %1 %2 %3 %4 x %5 %6 = %7  IVA %8%  %9\n")
                     .arg(i.intero(0), 3)
                     .arg((rientro + i.testo(1)).leftJustified(14))
                     .arg(i.testo(2).left(44).leftJustified(44))
                     .arg(formattaImporto(i.reale(3), 2), 8)
                     .arg(soldi(i, 4), 9)
                     .arg(sconti(i, 8).leftJustified(8))
                     .arg(soldi(i, 5), 9)
                     .arg(i.testo(6).replace(".0", ""), 2)
                     .arg(soldi(i, 7), 10);
        totale += i.importo(7);
    }
    esito << "  Totale vendita: " << formattaImporto(totale, 2) << "\n";
}

void stampaRegistrazione(sqlite3* db, qint64 primaNota, QTextStream& esito) {
    Istruzione i(
        db,
        "SELECT PN.PROGRESSIVO, PN.DESCRIZIONE, PC.DESCRIZIONE, D.DARE, D.AVERE FROM PrimaNota PN "
        "JOIN PrimaNotaDettagli D ON D.FK_PRIMANOTA = PN.RID JOIN PianoConti PC ON D.FK_CONTO = PC.RID "
        "WHERE PN.RID = ? ORDER BY D.RID");
    i.lega({primaNota});
    bool prima = true;
    while (i.passo()) {
        if (prima) esito << "  Prima nota " << i.intero(0) << ": " << i.testo(1) << "\n";
        prima = false;
        esito << QString("      %1 dare %2 avere %3\n")
                     .arg(i.testo(2).leftJustified(28))
                     .arg(soldi(i, 3), 10)
                     .arg(soldi(i, 4), 10);
    }
}

const char* const vendite =
    "SELECT M.RID, D.EXTRAPROG, M.PROGRESSIVO, M.DATA, M.ID_CASSA, TD.CODICE, TD.DESCRIZIONE, A.NUMERO, "
    "A.DENOMINAZIONE, P.DESCRIZIONE, M.TOTDOCUMENTO, M.TOTIMPONIBILE, M.TOTIMPOSTA, M.FK_PRIMANOTA, "
    "M.FK_PNPAGAMENTO, MAX(D.RID) AS ULTIMA FROM DettagliMovimento D JOIN Movimenti M ON D.FK_MOVIMENTO = "
    "M.RID "
    "JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID LEFT JOIN Anagrafiche A ON M.FK_CONTROPARTITA = "
    "A.RID "
    "LEFT JOIN Pagamenti P ON M.FK_PAGAMENTO = P.RID GROUP BY M.RID, D.EXTRAPROG ORDER BY ULTIMA DESC LIMIT "
    "?";

void stampaVendita(sqlite3* db, const Istruzione& i, QTextStream& esito) {
    esito << QString("%1 %2 n. %3/%4 del %5, cassa %6\n")
                 .arg(i.testo(5), i.testo(6), i.testo(2).rightJustified(4, '0'), i.testo(1),
                      dataItaliana(i.testo(3)), i.testo(4));
    esito << "  Cliente: " << i.testo(7) << " " << i.testo(8) << ", pagamento: " << i.testo(9) << "\n";
    stampaRighe(db, i.intero(0), i.intero(1), esito);
    esito << "  Totale documento: " << soldi(i, 10) << " (imponibile " << soldi(i, 11) << ", imposta "
          << soldi(i, 12) << ")\n";
    stampaRegistrazione(db, i.intero(13), esito);
    stampaRegistrazione(db, i.intero(14), esito);
    esito << "\n";
}

}  // namespace

bool stampaVendite(const QString& percorso, int ultime, QTextStream& esito) {
    try {
        const ArchivioLetto archivio(percorso);
        Istruzione i(archivio.db(), vendite);
        i.lega({ultime});
        int stampate = 0;
        for (; i.passo(); ++stampate)
            stampaVendita(archivio.db(), i, esito);
        if (stampate == 0) esito << "Nessuna vendita salvata.\n";
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: " << errore.descrizione() << "\n";
        return false;
    }
    return true;
}
