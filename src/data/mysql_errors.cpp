#include "data/mysql_errors.h"

#include <algorithm>
#include <iterator>

namespace {

using Classe = ErroreServer::Classe;

struct Significato {
    int codice;
    Classe classe;
    const char* testo;  // nullptr: the server's own
};

const char* const irraggiungibile =
    "Il server MySQL non risponde: controllare che sia acceso, la rete, e le voci Server e Port.";
const char* const persa = "La connessione con il server MySQL è caduta.";
const char* const utente = "Il server MySQL ha rifiutato il nome dell'utente o la password.";
const char* const permessi = "L'utente non ha i permessi necessari sull'archivio MySQL.";
const char* const discoPieno = "Il disco del server MySQL è pieno.";
const char* const solaLettura = "L'archivio MySQL è in sola lettura.";
const char* const occupato = "Un'altra cassa o un altro programma sta usando gli stessi dati.";
const char* const cifratura = "La connessione cifrata con il server MySQL non è riuscita.";

constexpr Significato significati[] = {
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
    {28, Classe::DiscoPieno, discoPieno},
    {1021, Classe::DiscoPieno, discoPieno},
    {1114, Classe::DiscoPieno, discoPieno},
    {1406, Classe::Altro, "Un testo è più lungo di quanto l'archivio può tenere."},
    {1264, Classe::Altro, "Un numero è fuori dai limiti che l'archivio può tenere."},
};

}  // namespace

ErroreServer erroreMySql(int codice, const QString& testoServer) {
    const auto* trovato = std::find_if(std::begin(significati), std::end(significati),
                                       [codice](const Significato& s) { return s.codice == codice; });
    const bool noto = trovato != std::end(significati);
    QString testo = testoServer;
    if (noto && trovato->testo != nullptr) {
        testo = trovato->testo;
        if (!testoServer.isEmpty()) testo += " [" + testoServer + "]";
    }
    return {noto ? trovato->classe : Classe::Altro, codice, testo, "MySQL"};
}
