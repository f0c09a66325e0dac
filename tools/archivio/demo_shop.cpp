#include "archivio/demo_shop.h"

#include "archivio/default_options.h"
#include "archivio/demo_context.h"

namespace {

void scriviOpzioniDemo(Scrittore& scrittore) {
    const auto numero = [](int valore) { return QString::number(valore); };
    scriviOpzioni(scrittore, {
                                 {"ClientePredefinito", numero(DemoNegozio::clienteBanco)},
                                 {"CatPrezziNetti", numero(DemoNegozio::categoriaPrezziNetti)},
                                 {"TipoDocVb", numero(DemoNegozio::tipoVenditaBanco)},
                                 {"CausalePagVb", numero(DemoNegozio::causaleContanti)},
                                 {"PagamentoVB", numero(DemoNegozio::pagamentoContanti)},
                                 {"ContoClienti", numero(DemoNegozio::contoClienti)},
                                 {"ContoFornitori", numero(DemoNegozio::contoFornitori)},
                                 {"VenditoreChar", "V"},
                                 {"PiePagina", "Ferramenta e casalinghi - merce non resa dopo 8 giorni"},
                                 {"ReportElencoSpeciale", "ElencoSpeciale.rpt"},
                                 {"NumeratoreElencoSpeciale", "90"},
                             });
}

void scriviSistema(Scrittore& scrittore) {
    scrittore.inserisci("GRUPPOUTENTI", {{"AMMINISTRATORE", 1}});
    for (const char* report : {"EstrattoConto.rpt", "EstrattoContoSintetico.rpt"}) {
        scrittore.inserisci("FunzionalitaReport",
                            {{"FUNZIONALITA", QString("EstrattoConto")}, {"REPORT", QString(report)}});
    }
}

}  // namespace

void riempiDemo(Scrittore& scrittore, quint64 seme) {
    ContestoDemo c(scrittore, seme);
    c.totaleProdotti = DemoNegozio::totaleProdotti;
    c.totaleClienti = DemoNegozio::totaleClienti;
    scriviNegozio(c);
}

void scriviNegozio(ContestoDemo& c) {
    scriviOpzioniDemo(c.scrittore);
    scriviSistema(c.scrittore);
    scriviCodici(c);
    scriviDocumenti(c);
    scriviAnagrafiche(c);
    scriviProdotti(c);
    scriviDistinte(c);
    scriviSconti(c);
}
