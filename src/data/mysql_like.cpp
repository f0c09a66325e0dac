#include "data/mysql_like.h"

#include "data/access_tokens.h"

QString modelliLikeMySql(const QString& sql) {
    if (!sql.contains('\\')) return sql;
    QString nuovo;
    qsizetype copiati = 0;
    bool dietroLike = false;
    for (const dialetto::Token& token : dialetto::tokenizza(sql)) {
        if (dietroLike && token.tipo == dialetto::Tipo::Testo) {
            nuovo += QStringView(sql).mid(copiati, token.inizio - copiati);
            nuovo += token.testo.toString().replace('\\', "\\\\");
            copiati = token.fine();
        }
        dietroLike = token.chiave == dialetto::parola("LIKE");
    }
    return nuovo += QStringView(sql).mid(copiati);
}
