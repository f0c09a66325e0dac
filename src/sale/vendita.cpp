#include "sale/vendita.h"

#include "core/globals.h"
#include "core/numbers.h"

namespace {

constexpr unsigned coloreCodice = 0xFFFFFF;
constexpr unsigned coloreCodiceAttivo = 0xFFF6D6;

}  // namespace

CampiVendita::CampiVendita() {
    for (int i = 0; i < numeroComandi; ++i) {
        cmdComando.emplace_back(elenco, QByteArray("cmdComando_" + QByteArray::number(i)).constData());
    }
    for (int i = 0; i < numeroConti; ++i) {
        cmdConto.emplace_back(elenco, QByteArray("cmdConto_" + QByteArray::number(i)).constData());
    }
}

CaselleVendita::CaselleVendita(CampiVendita& c)
    : data(c.txtData),
      prog(c.txtProg),
      sottoProg(c.txtSottoProg),
      codCliente(c.txtCodCliente),
      codProdotto(c.txtCodProdotto),
      descProdotto(c.txtDescProdotto),
      qta(c.txtQta),
      iva(c.txtIVA),
      prezzoListino(c.txtPrezzoListino),
      prezzoListinoLordo(c.txtPrezzoListinoLordo),
      prezzoNetto(c.txtPrezzoNetto),
      prezzoFinito(c.txtPrezzoFinito),
      prezzoRiga(c.TxtPrezzoRiga),
      sconto1(c.txtSconto1),
      sconto2(c.txtSconto2),
      sconto3(c.txtSconto3) {
    data.txtType(CTextBox::Data);
    prog.txtType(CTextBox::Intero);
    prog.sepMigliaia(false);
    prog.cancelTabStep(true);
    sottoProg.txtType(CTextBox::Intero);
    sottoProg.sepMigliaia(false);
    codProdotto.txtBGColor(coloreCodice);
    codProdotto.txtGotFocusColor(coloreCodiceAttivo);
    codCliente.cancelTabStep(true);
    for (CTextBox* casella : {&qta, &prezzoListino, &prezzoListinoLordo, &prezzoNetto, &prezzoFinito,
                              &prezzoRiga, &sconto1, &sconto2, &sconto3}) {
        casella->txtType(CTextBox::Importo);
    }
    // A price box shows as many decimals as the rules write: walking through it changes nothing.
    for (CTextBox* casella : {&qta, &prezzoListino, &prezzoNetto}) {
        casella->decimali(gDecimaliDopo);
    }
}

std::vector<CTextBox*> CaselleVendita::tutte() {
    return {&data,         &prog,         &sottoProg,  &codCliente,    &codProdotto,
            &descProdotto, &qta,          &iva,        &prezzoListino, &prezzoListinoLordo,
            &prezzoNetto,  &prezzoFinito, &prezzoRiga, &sconto1,       &sconto2,
            &sconto3};
}

CTextBox* CaselleVendita::di(const Campo& campo) {
    for (CTextBox* casella : tutte()) {
        if (&casella->campo() == &campo) return casella;
    }
    return nullptr;
}

Vendita::Vendita(int indice, SchermoVendita& schermo) : schermo(schermo), indice(indice) {
    // The numbers are given by the save; nobody types them here.
    for (Campo* numero : {&txtProg, &txtSottoProg, &txtNumDoc}) {
        numero->bloccato(true);
    }
}

int Vendita::rid() const {
    return valIntero(lblRID.testo());
}

QDate Vendita::giorno() const {
    return QDate::fromString(txtData.testo(), "dd/MM/yyyy");
}

int Vendita::progressivo() const {
    return valIntero(txtProg.testo());
}

int Vendita::extraProg() const {
    return valIntero(txtSottoProg.testo());
}

QString Vendita::numero() const {
    return txtProg.testo() + "/" + txtSottoProg.testo();
}
