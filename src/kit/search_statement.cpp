#include "kit/search_statement.h"

#include <QStringList>

#include "data/gateway.h"
#include "data/prepare_sql.h"

namespace {

QString conCondizione(const QString& sql, const QString& condizione) {
    return sql + (sql.contains(" WHERE ") ? " AND " : " WHERE ") + condizione;
}

QString finoA(const QString& testo, const QString& segno) {
    return testo.left(testo.indexOf(segno));
}

}  // namespace

bool haCampo(const QString& sql, int colonna) {
    return colonna >= 1 && colonna <= sql.count(u',') + 1;
}

QString getNomeCampo(const QString& sql, int colonna) {
    if (!haCampo(sql, colonna)) return {};
    const QStringList pezzi = sql.split(',');
    QString campo = gAdo.getPartSQLByTipoServer(pezzi[colonna - 1].trimmed());
    for (const char* segno : {" AS ", " FROM "}) {
        campo = finoA(campo, segno);
    }
    return gAdo.getPartSQLWithoutSP(campo).replace(u'¿', "AS");
}

QString conFiltro(const QString& sql, const QString& campo, const QString& testo, bool ovunque) {
    if (testo.isEmpty()) return sql;
    return conCondizione(sql, campo + " LIKE " + testoSQL((ovunque ? "%" : "") + testo + "%"));
}

QString conPagina(const QString& sql, const Pagina& pagina) {
    QString testo = sql;
    const bool precedente = pagina.direzione == PaginaPrecedente;
    if (precedente || pagina.direzione == PaginaSuccessiva) {
        const char* segno = precedente != pagina.discendente ? " < " : " > ";
        testo = conCondizione(testo, " " + pagina.campoChiave + segno + testoSQL(pagina.valore) + " ");
    }
    const bool aRitroso = precedente != pagina.discendente;
    return testo + " ORDER BY " + pagina.campoChiave + " " + (aRitroso ? " DESC" : " ASC");
}
