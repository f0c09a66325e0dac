#include "data/sqlserver_errors.h"

#include <algorithm>

#include "data/server_errors.h"

namespace {

using Classe = ErroreServer::Classe;

const char* const irraggiungibile =
    "Il server SQL Server non risponde: controllare che sia acceso, la rete, e le voci Server e Port.";
const char* const persa = "La connessione con il server SQL Server è caduta.";
const char* const permessi = "L'utente non ha i permessi necessari sull'archivio SQL Server.";
const char* const utente = "Il server SQL Server ha rifiutato il nome dell'utente o la password.";
const char* const discoPieno = "Il disco del server SQL Server è pieno.";
const char* const occupato = "Un'altra cassa o un altro programma sta usando gli stessi dati.";
const char* const troppoLungo = "Un testo è più lungo di quanto l'archivio può tenere.";

// In the order in which they tell more: a refused login is also a failed connection.
constexpr SignificatoErrore significati[] = {
    {547, Classe::Integrita, nullptr},
    {-534971980, Classe::Integrita, nullptr},
    {2601, Classe::Altro, nullptr},
    {2627, Classe::Altro, nullptr},
    {1205, Classe::Conflitto, occupato},
    {1222, Classe::Conflitto, occupato},
    {3906, Classe::SolaLettura, "L'archivio SQL Server è in sola lettura."},
    {1101, Classe::DiscoPieno, discoPieno},
    {1105, Classe::DiscoPieno, discoPieno},
    {9002, Classe::DiscoPieno, discoPieno},
    {18456, Classe::Altro, utente},
    {18452, Classe::Altro, utente},
    {18487, Classe::Altro, "La password dell'utente SQL Server è scaduta."},
    {18488, Classe::Altro, "La password dell'utente SQL Server va cambiata."},
    {4060, Classe::Altro,
     "Il database indicato non esiste sul server SQL Server, o l'utente non può usarlo."},
    {911, Classe::Altro, "Il database indicato non esiste sul server SQL Server."},
    {916, Classe::Altro, "L'utente non può usare questo database SQL Server."},
    {229, Classe::Altro, permessi},
    {230, Classe::Altro, permessi},
    {262, Classe::Altro, permessi},
    {2628, Classe::Altro, troppoLungo},
    {8152, Classe::Altro, troppoLungo},
    {8115, Classe::Altro, "Un numero è fuori dai limiti che l'archivio può tenere."},
    {20003, Classe::ConnessionePersa, persa},
    {20004, Classe::ConnessionePersa, persa},
    {20006, Classe::ConnessionePersa, persa},
    {20017, Classe::ConnessionePersa, persa},
    {20020, Classe::ConnessionePersa, persa},
    {20047, Classe::ConnessionePersa, persa},
    {596, Classe::ConnessionePersa, persa},
    {6005, Classe::ConnessionePersa, persa},
    {64, Classe::ConnessionePersa, persa},
    {233, Classe::ConnessionePersa, persa},
    {10053, Classe::ConnessionePersa, persa},
    {10054, Classe::ConnessionePersa, persa},
    {10060, Classe::ConnessionePersa, persa},
    {20009, Classe::ConnessionePersa, irraggiungibile},
    {20012, Classe::ConnessionePersa, irraggiungibile},
    {20013, Classe::ConnessionePersa, irraggiungibile},
    {20002, Classe::ConnessionePersa, irraggiungibile},
};

// A failed opening does not tell all its codes.
struct Indizio {
    const char* testo;
    int codice;
};
constexpr Indizio indizi[] = {
    {"Login failed", 18456},
    {"Accesso non riuscito", 18456},
    {"Cannot open database", 4060},
    {"Communication link failure", 20047},
};

const SignificatoErrore* significatoDi(QList<int> codici, const QString& testoServer) {
    const SignificatoErrore* noto = cercaSignificato(significati, codici);
    if (noto != nullptr && noto->classe != Classe::ConnessionePersa) return noto;
    for (const Indizio& indizio : indizi) {
        if (testoServer.contains(indizio.testo, Qt::CaseInsensitive)) codici << indizio.codice;
    }
    return cercaSignificato(significati, codici);
}

int primoCodice(const QList<int>& codici) {
    const auto primo = std::find_if(codici.begin(), codici.end(), [](int codice) { return codice != 0; });
    return primo == codici.end() ? 0 : *primo;
}

}  // namespace

ErroreServer erroreSqlServer(const QList<int>& codici, const QString& testoServer) {
    return comeErroreServer(significatoDi(codici, testoServer), primoCodice(codici), testoServer,
                            "SQL Server");
}
