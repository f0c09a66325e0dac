#include "data/server_driver.h"

SondaIstruzioni& sondaIstruzioni() {
    static SondaIstruzioni sonda;
    return sonda;
}

bool inviabile(const QString& sql, const QString& origine, ErroreServer& errore) {
    if (sql.contains(QChar(u'\0'))) {
        errore = {ErroreServer::Classe::Altro, 0, "L'istruzione contiene un carattere non ammesso (NUL).",
                  origine};
        return false;
    }
    if (!sql.isValidUtf16()) {
        errore = {ErroreServer::Classe::Altro, 0,
                  "L'istruzione contiene mezzo carattere e non si può inviare: riscrivere il testo.",
                  origine};
        return false;
    }
    return true;
}
