#include "counter_screen.h"

#include <QApplication>

#include "counter/ui/style.h"

CounterScreen::CounterScreen() {
    applicaStile(*qApp, {});
    negozio.prodotto(
        {.codice = "VITE", .listino1 = 10.0, .barcode = "8001234567890", .descrizione = "Vite 4x40"});
    negozio.prodotto({.codice = "STAFFA", .listino1 = 2.5, .descrizione = "Staffa a L"});
}

CounterScreen::~CounterScreen() {
    for (ContoAperto& conto : gConti) {
        conto.reset();
    }
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void CounterScreen::apri(QSize misura) {
    finestra = std::make_unique<FinestraConti>("Bottegon");
    impostaFabbricaConti([this](int indice) { return new frmMain(indice, *finestra, negozio.operatore); });
    finestra->setGeometry(QRect(QPoint(0, 0), misura));
    finestra->show();
    getConto(0, false);
    ASSERT_TRUE(QTest::qWaitForWindowActive(finestra.get()));
}

frmMain& CounterScreen::schermo(int indice) const {
    return dynamic_cast<frmMain&>(*gConti.at(static_cast<size_t>(indice)));
}

void CounterScreen::digita(const QString& testo) const {
    for (const QChar c : testo) {
        QTest::keyClicks(QApplication::focusWidget(), QString(c));
    }
}

void CounterScreen::tasto(Qt::Key tasto, Qt::KeyboardModifiers modificatori) const {
    QTest::keyClick(QApplication::focusWidget(), tasto, modificatori);
}

void CounterScreen::clic(const Campo& campo) const {
    QTest::mouseClick(&widget(campo), Qt::LeftButton);
}

bool CounterScreen::haFuoco(const Campo& campo) const {
    const QWidget* fuoco = QApplication::focusWidget();
    return fuoco != nullptr && fuoco->objectName() == campo.nome();
}

void CounterScreen::riempi() const {
    Vendita& v = vendita();
    const std::pair<Campo*, const char*> testi[] = {
        {&v.txtData, "21/11/2026"},
        {&v.txtProg, "0042"},
        {&v.txtSottoProg, "(Auto)"},
        {&v.txtNumDoc, "(Auto)"},
        {&v.txtCodCliente, "1024"},
        {&v.lblDescCliente, "Ferramenta Bianchi & C."},
        {&v.lblFasciaScoCli, "Artigiani"},
        {&v.lblSaldo, "1.234,56"},
        {&v.lblFido, "1.000,00"},
        {&v.lblVenditore, "Maria Rossi"},
        {&v.lblDataStampa, "21/11/2026"},
        {&v.lblMainDisplay, "12.345,67"},
        {&v.lblUltimaVendita, "1.123,45"},
        {&v.lblTotNetto, "10.118,58"},
        {&v.lblTotLordo, "12.345,67"},
        {&v.lblTOtQta, "128,00"},
        {&v.lblTotRighe, "12"},
        {&v.lblTotConto, "12.468,00"},
        {&v.lblLastMainDisplay, "1.000,00"},
        {&v.lblDescPagamento, "CONTANTI"},
        {&v.txtCodProdotto, "8001234567890"},
        {&v.txtDescProdotto, "Vite autofilettante 4x40"},
        {&v.lblMarca, "FIS"},
        {&v.txtQta, "1.000,00"},
        {&v.lblUM, "PZ"},
        {&v.txtPrezzoListino, "1.234,56"},
        {&v.txtSconto1, "10,00"},
        {&v.txtSconto2, "5,00"},
        {&v.txtSconto3, "0,00"},
        {&v.txtPrezzoNetto, "1.055,55"},
        {&v.lblGiacenza, "1.250,00"},
        {&v.lblUbicazione, "B12"},
        {&v.lblPrezzoCosto, "612,00"},
        {&v.lblMargineEuro, "443,55"},
        {&v.lblMarginePerc, "42,02"},
        {&v.lblPrezzoListinoPanel, "1.234,56"},
        {&v.lblDataListinoPanel, "01/10/2026"},
        {&v.lblCatSconto, "Viteria"},
        {&v.lblOra, "Vendita del 21/11/2026 Ora: 11:59:40"},
        {&v.lblOperatoreScreen, "Maria Rossi"},
        {&v.txtIVA, "22"},
        {&v.lblIVA, "Aliquota ordinaria"},
    };
    for (const auto& [campo, testo] : testi) {
        campo->testo(testo);
    }
    for (Campo* spia : {&v.pctFido, &v.pctSegnala, &v.pctSave, &v.pctPrint, &v.shRegCassa, &v.lblRegCassa}) {
        spia->visibile(true);
    }
    for (int r = 1; r <= 12; ++r) {
        v.flxVB.aggiungi();
        v.flxVB.scrivi(r, Colonna::Codice, "80012345678" + QString::number(10 + r));
        v.flxVB.scrivi(r, Colonna::Descrizione, "Vite autofilettante");
        v.flxVB.scrivi(r, Colonna::Importo, "1.055,55");
    }
}
