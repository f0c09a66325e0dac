#include "postings/books.h"

#include "core/globals.h"

void vendi(ContoDiProva& conto, const QString& codice, const QString& quantita) {
    conto.clic(conto.vendita().txtCodProdotto);
    conto.digita(codice);
    conto.invio();
    if (!quantita.isEmpty()) {
        conto.clic(conto.vendita().txtQta);
        conto.digita(quantita);
    }
    conto.tasto(Qt::Key_F6);
}

QStringList schermata(const Vendita& v) {
    QStringList righe;
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        QStringList celle;
        for (int c = 0; c < numeroColonne; ++c) {
            celle << v.flxVB.cella(r, static_cast<Colonna>(c));
        }
        righe << celle.join('|');
    }
    for (const Campo* campo :
         {&v.lblRID, &v.txtProg, &v.txtSottoProg, &v.txtData, &v.txtCodCliente, &v.lblTotConto,
          &v.lblMainDisplay, &v.lblLastMainDisplay, &v.lblUltimaVendita}) {
        righe << campo->nome() + "=" + campo->testo();
    }
    righe << QString("chiavi=%1/%2/%3").arg(v.idPagamento).arg(v.idPrimaNota).arg(v.idPNPagamento);
    righe << QString("modificata=%1 pctSave=%2").arg(v.venditaModificata).arg(v.pctSave.visibile());
    return righe;
}

AllaIstruzione::AllaIstruzione(int numero, Fatto fatto) {
    sondaIstruzioni() = [this, numero,
                         fatto = std::move(fatto)](const QString& sql) -> std::optional<ErroreServer> {
        if (++mViste == numero) {
            accaduto = true;
            istruzione = sql;
            return fatto();
        }
        if (!accaduto && sql == "COMMIT") confermata = true;
        return std::nullopt;
    };
}

AllaIstruzione::~AllaIstruzione() {
    sondaIstruzioni() = {};
}
