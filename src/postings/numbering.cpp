#include "postings/numbering.h"

#include "core/clock.h"
#include "core/format.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "sale/vendita.h"

namespace {

QString sorgente(const char* procedura) {
    return gNomeModulo + procedura;
}

bool nuovoContatore(const QString& numeratore, const QString& anno) {
    return gAdo.executeSQL("INSERT INTO Contatori (FK_NUMERATORE, ANNO, NUMERO, `NOTE`) VALUES (" +
                               numeratore + ", " + testoSQL(anno) +
                               ", "
                               "1, " +
                               testoSQL("n/d") + ")",
                           sorgente(".getNewNumeratoreAnnuale"));
}

}  // namespace

int getNewNumeratoreAnnuale(int idNumeratore, const QString& anno) {
    const QString numeratore = QString::number(idNumeratore);
    int numero = 0;
    bool presente = false;
    {
        const Lettura lettura("SELECT NUMERO FROM Contatori WHERE FK_NUMERATORE = " + numeratore +
                                  " AND ANNO =  " + testoSQL(anno),
                              sorgente(".getNewNumeratoreAnnuale"));
        if (!lettura) return 0;
        presente = lettura.trovata();
        if (presente) numero = lettura->intero("NUMERO");
    }
    if (!presente) return nuovoContatore(numeratore, anno) ? 1 : 0;
    const bool scritto =
        gAdo.executeSQL("UPDATE Contatori SET NUMERO = " + QString::number(numero + 1) +
                            " WHERE FK_NUMERATORE = " + numeratore + " AND ANNO = " + testoSQL(anno),
                        sorgente(".getNewNumeratoreAnnuale"));
    return scritto ? numero + 1 : 0;
}

int getNewSottoProgressivo(const Vendita& v, int progressivo) {
    if (progressivo <= 0) return 1;
    const Lettura lettura(
        "SELECT MAX(EXTRAPROG) FROM DettagliMovimento DM INNER JOIN Movimenti M ON DM.FK_MOVIMENTO = M.RID "
        "WHERE M.ANNO = " +
            QString::number(orologio().oggi().year()) + " AND M.PROGRESSIVO = " +
            QString::number(progressivo) + " AND M.FK_TIPODOCUMENTO = " + QString::number(v.idTipoDocumento),
        sorgente(".getNewSottoProgressivo"));
    if (!lettura.trovata() || lettura->campo(0).isNull()) return 1;
    return lettura->campo(0).toInt() + 1;
}

int getNewProgressivoPrimaNota(QDate data) {
    const Lettura lettura(
        "SELECT MAX(PROGRESSIVO) FROM PrimaNota WHERE YEAR(DATA) = " + Format(data.year(), u"0000"),
        sorgente(".getNewProgressivoPrimaNota"));
    if (!lettura) return -1;
    return lettura.trovata() && !lettura->campo(0).isNull() ? lettura->campo(0).toInt() + 1 : 1;
}
