#include "data/client_settings.h"

#include <variant>
#include <vector>

#include "core/globals.h"
#include "core/program_folder.h"
#include "core/run_time_error.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/setting_values.h"
#include "data/settings_store.h"

namespace {

const char* const sezioneServer = "Server";
const char* const sezioneOpzioni = "Opzioni";
const char* const sezioneClient = "Client";

enum class Correzione {
    Nessuna,
    SottoUnoDiventaMenoUno,
    SottoUnoDiventaUno,
    SenzaVirgolaFinale,
    SeVuotoPredefinito
};
enum class Conversione { Val, Stretta };
enum class Riscrittura { Si, No };

// A number: where it goes and how it is converted.
struct Numero {
    int* variabile;
    TipoIntero tipo = TipoIntero::Int16;
    Conversione conversione = Conversione::Val;
};

struct Impostazione {
    const char* applicazione;
    const char* sezione;
    const char* chiave;
    QString predefinito;
    std::variant<Numero, QString*> variabile;
    Correzione correzione = Correzione::Nessuna;
    Riscrittura riscrittura = Riscrittura::No;
};

// Shown in the field until somebody types a connection string there.
QString invito(const char* cosa) {
    return QString("digitare una stringa di connessione ") + cosa + " (solo per esperti)";
}

QString stringaAccess(const QString& archivio) {
    return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + archivio + ";Persist Security Info=False";
}

std::vector<Impostazione> impostazioniServer() {
    const QString cartella = cartellaProgramma();
    const auto voce = [](const char* chiave, const QString& predefinito, auto variabile) {
        return Impostazione{applicazioneComune, sezioneServer, chiave, predefinito, variabile};
    };
    return {
        voce("DBType", "1", Numero{&gTipoDB, TipoIntero::Int32}),
        voce("Path", cartellaScrivibile() + "/../Bottegon.mdb", &gPathDB),
        voce("MySql", invito("MySQL"), &gConnMySql),
        voce("SqlSrv", invito("Sql Server"), &gConnSqlSrv),
        voce("ReportPathAccess", cartella + "/../AccessReports/", &gReportPathAccess),
        voce("ReportPathMySql", cartella + "/../ODBCReports/", &gReportPathMySql),
        voce("ReportPathSqlSrv", cartella + "/../ODBCReports/", &gReportPathSqlSrv),
        voce("RptConnectionAccess", stringaAccess(cartella + "/bottegon.mdb"), &gRptConnectionAccess),
        voce("RptConnectionMySql", invito("per Crystal Report"), &gRptConnectionMySql),
        voce("RptConnectionSqlSrv", invito("per Crystal Report"), &gRptConnectionSqlSrv),
        {applicazioneComune, sezioneOpzioni, "LaserChar", "$", &gLaserChar, Correzione::SeVuotoPredefinito},
        {applicazioneComune, sezioneOpzioni, "ClienteChar", "A", &gClienteChar},
    };
}

std::vector<Impostazione> impostazioniClient() {
    const auto voce = [](const char* chiave, const char* predefinito, auto variabile,
                         Correzione correzione = Correzione::Nessuna,
                         Riscrittura riscrittura = Riscrittura::Si) {
        return Impostazione{applicazioneClient, sezioneClient, chiave,     predefinito,
                            variabile,          correzione,    riscrittura};
    };
    const auto int16 = [](int* variabile) { return Numero{variabile}; };
    const auto int32 = [](int* variabile) { return Numero{variabile, TipoIntero::Int32}; };
    const auto stretto = [](int* variabile) {
        return Numero{variabile, TipoIntero::Int16, Conversione::Stretta};
    };
    using enum Correzione;
    return {
        voce("ID", "255", int16(&gIDCassa)),
        voce("MultiSel", "0", int16(&gMultiSel)),
        voce("NuovaRiga", "0", int16(&gNuovaRiga)),
        voce("RicercaProdAdv", "0", int16(&gRicercaProdAdv)),
        voce("RitardoGriglia", "500", int32(&gRitardoGriglia)),
        voce("SottoCosto", "0", int16(&gSottoCosto)),
        voce("DisabilitaInvio", "0", int16(&gDisabilitaInvio), Nessuna, Riscrittura::No),
        voce("NoBarcode", "0", int16(&gNoBarcode), Nessuna, Riscrittura::No),
        voce("Monitor", "0", int16(&gMonitor)),
        voce("Stampa", "0", int16(&gStampa)),
        voce("SimulaStampa", "0", int16(&gSimulaStampa)),
        voce("PrdEsistente", "0", int16(&gPrdEsistente)),
        voce("DecimaliDopo", "2", int16(&gDecimaliDopo)),
        voce("RegCassa", "", &gRegCassa),
        voce("TCPPort", "4310", int16(&gTCPPort)),
        voce("PrezzoType", "0", stretto(&gPrezzoType)),
        voce("PCType", "0", stretto(&gPCType)),
        voce("PrezzoListinoLordo", "0", int16(&gPrezzoListinoLordo)),
        voce("ContoCassa", "-1", int32(&gContoCassa), SottoUnoDiventaMenoUno),
        voce("TipoDocOverride", "-1", int32(&gTipoDocOverride), SottoUnoDiventaMenoUno),
        voce("CausalePagOverride", "-1", int32(&gCausalePagOverride), SottoUnoDiventaMenoUno),
        voce("GiacenzaMagazzino", "0", Numero{&gGiacenzaMagazzino, TipoIntero::Byte}),
        voce("IDMagazzino", "-1", int32(&gIDMagazzino), SottoUnoDiventaMenoUno),
        voce("AltriDocConversione", "", &gAltriDocConversione, SenzaVirgolaFinale, Riscrittura::No),
        voce("StampaCopie", "1", int16(&gStampaCopie), SottoUnoDiventaUno),
    };
}

int correggi(int valore, Correzione correzione) {
    if (valore >= 1) return valore;
    if (correzione == Correzione::SottoUnoDiventaMenoUno) return -1;
    return correzione == Correzione::SottoUnoDiventaUno ? 1 : valore;
}

QString correggi(QString valore, const Impostazione& impostazione) {
    if (impostazione.correzione == Correzione::SenzaVirgolaFinale && valore.endsWith(',')) valore.chop(1);
    if (impostazione.correzione == Correzione::SeVuotoPredefinito && valore.trimmed().isEmpty()) {
        return impostazione.predefinito;
    }
    return valore;
}

// False when the number does not fit and the variable keeps what it had.
bool leggiNumero(const Impostazione& impostazione, const Numero& numero, const QString& testo) {
    const QString descrizione = QString("L'impostazione \"%1\" (sezione \"%2\") non è valida: \"")
                                    .arg(impostazione.chiave, impostazione.sezione) +
                                testo + "\".";
    try {
        const int valore = numero.conversione == Conversione::Stretta ? interoStretto(testo, numero.tipo)
                                                                      : valNelTipo(testo, numero.tipo);
        *numero.variabile = correggi(valore, impostazione.correzione);
        return true;
    } catch (const RunTimeError& errore) {
        if (numero.conversione == Conversione::Stretta) throw RunTimeError(errore.numero(), descrizione);
        impostazioni().avverti(descrizione + " Resta " + QString::number(*numero.variabile) + ".");
        return false;
    }
}

bool leggi(const Impostazione& impostazione) {
    const QString testo = impostazioni().leggi(impostazione.applicazione, impostazione.sezione,
                                               impostazione.chiave, impostazione.predefinito);
    if (const auto* numero = std::get_if<Numero>(&impostazione.variabile)) {
        return leggiNumero(impostazione, *numero, testo);
    }
    *std::get<QString*>(impostazione.variabile) = correggi(testo, impostazione);
    return true;
}

QString valoreInForza(const Impostazione& impostazione) {
    if (const auto* numero = std::get_if<Numero>(&impostazione.variabile))
        return QString::number(*numero->variabile);
    return *std::get<QString*>(impostazione.variabile);
}

void riscrivi(const std::vector<Impostazione>& lette) {
    std::vector<SettingsStore::Voce> voci = {{"", "ver", BOTTEGON_VERSION},
                                             {"", "path", cartellaProgramma()}};
    for (const Impostazione& impostazione : lette) {
        if (impostazione.riscrittura == Riscrittura::No) continue;
        voci.push_back({impostazione.sezione, impostazione.chiave, valoreInForza(impostazione)});
    }
    impostazioni().scriviTutte(applicazioneClient, voci);
}

QString senzaRitorni(QString testo) {
    return testo.remove('\r').remove('\n');
}

void mettiInForza(const QString& connessione, const QString& report, const QString& cartellaReport,
                  const QString& descrizione) {
    gStrConnessione = connessione;
    gRptConnection = report;
    gReportPath = cartellaReport;
    gDescrizioneConnessione = descrizione;
}

void scegliServer() {
    gAdo.TipoServer = gTipoDB;
    switch (gTipoDB) {
        case SqlServer:
            mettiInForza(gConnSqlSrv, gRptConnectionSqlSrv, gReportPathSqlSrv,
                         senzaRitorni(gConnSqlSrv) + ": SQL Server");
            break;
        case Access:
            mettiInForza(stringaAccess(gPathDB), gRptConnectionAccess, gReportPathAccess,
                         gPathDB + ": MS Access");
            break;
        case MySql:
            mettiInForza(gConnMySql, gRptConnectionMySql, gReportPathMySql,
                         senzaRitorni(gConnMySql) + ": MySql");
            break;
        default:
            break;
    }
}

}  // namespace

void leggiImpostazioniServer() {
    for (const Impostazione& impostazione : impostazioniServer()) {
        leggi(impostazione);
    }
    scegliServer();
}

void leggiImpostazioniClient() {
    leggiImpostazioniServer();
    // What somebody mistyped stays in the file, to be mended by hand.
    std::vector<Impostazione> lette;
    for (const Impostazione& impostazione : impostazioniClient()) {
        if (leggi(impostazione)) lette.push_back(impostazione);
    }
    riscrivi(lette);
}
