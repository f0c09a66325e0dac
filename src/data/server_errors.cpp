#include "data/server_errors.h"

ErroreServer comeErroreServer(const SignificatoErrore* significato, int codice, const QString& testoServer,
                              const char* origine) {
    if (significato == nullptr) return {ErroreServer::Classe::Altro, codice, testoServer, origine};
    QString testo = testoServer;
    if (significato->testo != nullptr) {
        testo = significato->testo;
        if (!testoServer.isEmpty()) testo += " [" + testoServer + "]";
    }
    return {significato->classe, significato->codice, testo, origine};
}
