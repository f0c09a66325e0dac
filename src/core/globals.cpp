#include "core/globals.h"

int gTipoDB;
QString gPathDB;
QString gConnMySql;
QString gConnSqlSrv;
QString gReportPathAccess;
QString gReportPathMySql;
QString gReportPathSqlSrv;
QString gRptConnectionAccess;
QString gRptConnectionMySql;
QString gRptConnectionSqlSrv;
QString gStrConnessione;
QString gReportPath;
QString gRptConnection;
QString gDescrizioneConnessione;
QString gSQLSep;
QString gFileAiuto;
QString gNomeModulo;

int gIDCassa;
int gIDVenditore;
QString gDescVenditore;
QString gRegCassa;
int gTCPPort;
bool gModaleAperta;
bool gVenditaSalvata;

int gMultiSel;
int gNuovaRiga;
int gRicercaProdAdv;
int gSottoCosto;
int gDisabilitaInvio;
int gNoBarcode;
int gMonitor;
int gStampa;
int gSimulaStampa;
int gPrdEsistente;
int gPrezzoListinoLordo;
int gDecimaliDopo;
int gRitardoGriglia;
int gPrezzoType;
int gPCType;
int gStampaCopie;
QString gLaserChar;
QString gClienteChar;
int gContoCassa;
int gTipoDocOverride;
int gCausalePagOverride;
int gIDMagazzino;
int gGiacenzaMagazzino;
QString gAltriDocConversione;

int gTipoStampaDistinta;
int gClientePredefinito;
int gCatPrezziNetti;
int gTipoDocVb;
int gCausalePagVb;
int gPagamentoVB;
int gContoClienti;
int gContoFornitori;
int gNumeratoreElencoSpeciale;
QString gDistintaBase;
QString gRigaLibera;
QString gVenditoreChar;
QString gPiePagina;
QString gReportElencoSpeciale;
int gPrezzoMedio;
int gMesiPrezzoMedio;
int gSottoScorta;
bool gBloccaSottoScorta;
bool gAvvisaSottoScorta;
int gVenditeGiorniDiversi;
bool gBloccaVenditeGiorniDiversi;
bool gAvvisaVenditeGiorniDiversi;
int gLockVBEdit;
int gLockVBPrezzo;
int gFidoAllaData;
int gVenditoriObbligatori;
int gVenditoriBlocco;
int gPagatoAltriClienti;

namespace {

void ripristinaConnessione() {
    gTipoDB = 1;
    for (QString* testo :
         {&gPathDB, &gConnMySql, &gConnSqlSrv, &gReportPathAccess, &gReportPathMySql, &gReportPathSqlSrv,
          &gRptConnectionAccess, &gRptConnectionMySql, &gRptConnectionSqlSrv, &gStrConnessione, &gReportPath,
          &gRptConnection, &gDescrizioneConnessione}) {
        testo->clear();
    }
    gSQLSep = "¤";
    gFileAiuto.clear();
    gNomeModulo = "bBottegonClientVB";
}

void ripristinaCassa() {
    gIDCassa = 255;
    gIDVenditore = -1;
    gDescVenditore.clear();
    gRegCassa.clear();
    gTCPPort = 4310;
    gModaleAperta = false;
    gVenditaSalvata = false;
}

void ripristinaComportamento() {
    for (int* flag : {&gMultiSel, &gNuovaRiga, &gRicercaProdAdv, &gSottoCosto, &gDisabilitaInvio, &gNoBarcode,
                      &gMonitor, &gStampa, &gSimulaStampa, &gPrdEsistente, &gPrezzoListinoLordo, &gPrezzoType,
                      &gPCType, &gGiacenzaMagazzino}) {
        *flag = 0;
    }
    gDecimaliDopo = 2;
    gRitardoGriglia = 500;
    gStampaCopie = 1;
    gLaserChar = "$";
    gClienteChar = "A";
    for (int* identificativo : {&gContoCassa, &gTipoDocOverride, &gCausalePagOverride, &gIDMagazzino}) {
        *identificativo = -1;
    }
    gAltriDocConversione.clear();
}

void ripristinaOpzioni() {
    for (int* identificativo :
         {&gClientePredefinito, &gCatPrezziNetti, &gTipoDocVb, &gCausalePagVb, &gPagamentoVB, &gContoClienti,
          &gContoFornitori, &gNumeratoreElencoSpeciale}) {
        *identificativo = -1;
    }
    for (int* numero : {&gTipoStampaDistinta, &gPrezzoMedio, &gMesiPrezzoMedio, &gSottoScorta,
                        &gVenditeGiorniDiversi, &gLockVBEdit, &gLockVBPrezzo, &gFidoAllaData,
                        &gVenditoriObbligatori, &gVenditoriBlocco, &gPagatoAltriClienti}) {
        *numero = 0;
    }
    for (bool* flag : {&gBloccaSottoScorta, &gAvvisaSottoScorta, &gBloccaVenditeGiorniDiversi,
                       &gAvvisaVenditeGiorniDiversi}) {
        *flag = false;
    }
    for (QString* testo :
         {&gDistintaBase, &gRigaLibera, &gVenditoreChar, &gPiePagina, &gReportElencoSpeciale}) {
        testo->clear();
    }
}

// The starting values hold before Main begins; ripristinaGlobali is their one home.
[[maybe_unused]] const bool valoriIniziali = (ripristinaGlobali(), true);

}  // namespace

void ripristinaGlobali() {
    ripristinaConnessione();
    ripristinaCassa();
    ripristinaComportamento();
    ripristinaOpzioni();
}
