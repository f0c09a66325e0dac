#include "data/mysql_errors.h"

#include <QRegularExpression>

#include "data/server_errors.h"

namespace {

using Classe = ErroreServer::Classe;

const char* const irraggiungibile =
    "Il server MySQL non risponde: controllare che sia acceso, la rete, e le voci Server e Port.";
const char* const persa = "La connessione con il server MySQL è caduta.";
const char* const utente = "Il server MySQL ha rifiutato il nome dell'utente o la password.";
const char* const permessi = "L'utente non ha i permessi necessari sull'archivio MySQL.";
const char* const discoPieno = "Il disco del server MySQL è pieno.";
const char* const solaLettura = "L'archivio MySQL è in sola lettura.";
const char* const occupato = "Un'altra cassa o un altro programma sta usando gli stessi dati.";
const char* const cifratura = "La connessione cifrata con il server MySQL non è riuscita.";

// The number of a full disk among the operating system's errors.
constexpr int discoSenzaSpazio = 28;

constexpr SignificatoErrore significati[] = {
    {1216, Classe::Integrita, nullptr},
    {1217, Classe::Integrita, nullptr},
    {1451, Classe::Integrita, nullptr},
    {1452, Classe::Integrita, nullptr},
    {2002, Classe::ConnessionePersa, irraggiungibile},
    {2003, Classe::ConnessionePersa, irraggiungibile},
    {2005, Classe::ConnessionePersa, irraggiungibile},
    {2006, Classe::ConnessionePersa, persa},
    {2012, Classe::ConnessionePersa, persa},
    {2013, Classe::ConnessionePersa, persa},
    {2055, Classe::ConnessionePersa, persa},
    {1053, Classe::ConnessionePersa, persa},
    {1077, Classe::ConnessionePersa, persa},
    {1152, Classe::ConnessionePersa, persa},
    {1158, Classe::ConnessionePersa, persa},
    {1159, Classe::ConnessionePersa, persa},
    {1160, Classe::ConnessionePersa, persa},
    {1161, Classe::ConnessionePersa, persa},
    {1927, Classe::ConnessionePersa, persa},
    {4031, Classe::ConnessionePersa, persa},
    {1040, Classe::Altro, "Il server MySQL ha troppe connessioni aperte."},
    {1203, Classe::Altro, "Il server MySQL ha troppe connessioni aperte."},
    {1045, Classe::Altro, utente},
    {1698, Classe::Altro, utente},
    {1862, Classe::Altro, "La password dell'utente MySQL è scaduta."},
    {1044, Classe::Altro, "L'utente non può usare questo database MySQL."},
    {1049, Classe::Altro, "Il database indicato non esiste sul server MySQL."},
    {1130, Classe::Altro, "Il server MySQL non accetta connessioni da questo computer."},
    {1129, Classe::Altro, "Il server MySQL ha bloccato questo computer per troppi errori di connessione."},
    {1142, Classe::Altro, permessi},
    {1143, Classe::Altro, permessi},
    {1227, Classe::Altro, permessi},
    {1370, Classe::Altro, permessi},
    {2026, Classe::Altro, cifratura},
    {1205, Classe::Conflitto, occupato},
    {1213, Classe::Conflitto, occupato},
    {1020, Classe::Conflitto, occupato},
    {1290, Classe::SolaLettura, solaLettura},
    {1792, Classe::SolaLettura, solaLettura},
    {1836, Classe::SolaLettura, solaLettura},
    {1036, Classe::SolaLettura, solaLettura},
    {3, Classe::DiscoPieno, discoPieno},
    {discoSenzaSpazio, Classe::DiscoPieno, discoPieno},
    {1021, Classe::DiscoPieno, discoPieno},
    {1114, Classe::DiscoPieno, discoPieno},
    {1406, Classe::Altro, "Un testo è più lungo di quanto l'archivio può tenere."},
    {1264, Classe::Altro, "Un numero è fuori dai limiti che l'archivio può tenere."},
};

// Writing a file failed; the server's text tells the number of the reason.
constexpr int erroriDelFile[] = {1026, 1030};

int codiceRivelatore(int codice, const QString& testoServer) {
    if (std::find(std::begin(erroriDelFile), std::end(erroriDelFile), codice) == std::end(erroriDelFile))
        return codice;
    static const QRegularExpression motivo("\\b(?:Got error|errno:) *(\\d+)");
    const int detto = motivo.match(testoServer).captured(1).toInt();
    return detto == discoSenzaSpazio ? detto : codice;
}

}  // namespace

ErroreServer erroreMySql(int codice, const QString& testoServer) {
    const int codici[] = {codiceRivelatore(codice, testoServer)};
    ErroreServer errore =
        comeErroreServer(cercaSignificato(significati, codici), codice, testoServer, "MySQL");
    errore.codice = codice;
    return errore;
}
