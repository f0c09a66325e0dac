#include "archivio/sized_sales.h"

#include <algorithm>
#include <vector>

#include "archivio/demo_shop.h"
#include "archivio/sized_document.h"

namespace {

constexpr int anniDiVendite = 3;
constexpr int casse = 3;
constexpr int apertura = 8 * 3600 + 30 * 60;  // seconds of the day
constexpr int orarioSecondi = 11 * 3600;
constexpr int righeMassime = 10;

std::vector<QDate> giorniAperti(QDate oggi) {
    std::vector<QDate> giorni;
    for (QDate giorno = oggi.addYears(-anniDiVendite); giorno < oggi; giorno = giorno.addDays(1)) {
        if (giorno.dayOfWeek() != Qt::Sunday) giorni.push_back(giorno);
    }
    return giorni;
}

class GiornataDiVendita {
  public:
    GiornataDiVendita(ContestoDemo& c, RegistroDocumenti& registro, QDate data)
        : mC(c), mRegistro(registro), mData(data), mBanco(casse) {}

    void vendi(int righe) {
        for (int restano = righe; restano > 0;) {
            const int diQuesta = std::min(restano, righeDiUnaVendita());
            mOra =
                apertura + static_cast<int>(static_cast<qint64>(orarioSecondi) * (righe - restano) / righe);
            const int cassa = mC.casuale.tra(1, casse);
            if (mC.casuale.percento(60)) {
                alBanco(cassa, diQuesta);
            } else {
                alCliente(cassa, diQuesta);
            }
            restano -= diQuesta;
        }
        for (const DocumentoInCorso& documento : mBanco) {
            if (documento.vendite > 0) mRegistro.chiudi(documento);
        }
    }

  private:
    int righeDiUnaVendita() {
        const int poche = mC.casuale.tra(1, 4);
        return mC.casuale.percento(20) ? mC.casuale.tra(poche, righeMassime) : poche;
    }

    // The sales of a day at one desk to customers without a name share one document.
    void alBanco(int cassa, int righe) {
        DocumentoInCorso& documento = mBanco[static_cast<size_t>(cassa - 1)];
        if (documento.vendite == 0) documento = nuovo(cassa, mC.clienti.front(), false);
        scriviRighe(documento, righe);
    }

    void alCliente(int cassa, int righe) {
        const auto ultimo = static_cast<int>(mC.clienti.size()) - 1;
        const auto posto = static_cast<size_t>(mC.casuale.tra(1, ultimo));
        // The first half are companies; some of them pay later.
        const bool azienda = posto < mC.clienti.size() / 2;
        DocumentoInCorso documento = nuovo(cassa, mC.clienti[posto], azienda && mC.casuale.percento(50));
        if (azienda && mC.casuale.percento(50)) {
            documento.tipo = DemoNegozio::tipoFattura;
            documento.numeratore = DemoNegozio::numeratoreFattura;
            documento.causale = DemoNegozio::causaleFattura;
        }
        scriviRighe(documento, righe);
        mRegistro.chiudi(documento);
    }

    DocumentoInCorso nuovo(int cassa, qint64 cliente, bool aScadenza) {
        DocumentoInCorso d;
        d.chiave = mC.scrittore.nuovaChiave("Movimenti");
        d.data = mData;
        d.tipo = DemoNegozio::tipoVenditaBanco;
        d.numeratore = DemoNegozio::numeratoreVenditaBanco;
        d.causale = DemoNegozio::causaleVendita;
        d.cliente = cliente;
        d.pagamento = mC.pagamenti.at(aScadenza ? "30FM" : "CONT");
        d.aScadenza = aScadenza;
        d.cassa = cassa;
        return d;
    }

    void scriviRighe(DocumentoInCorso& documento, int righe) {
        ++documento.vendite;
        const QDateTime ora(mData, QTime::fromMSecsSinceStartOfDay(mOra * 1000), Qt::UTC);
        const int sconto = mC.casuale.percento(15) ? mC.casuale.tra(1, 4) * 5 : 0;
        for (int posizione = 1; posizione <= righe; ++posizione) {
            const int quantita = mC.casuale.percento(70) ? 1 : mC.casuale.tra(2, 12);
            mRegistro.riga(documento, posizione, prodotto(), quantita, sconto, ora);
        }
    }

    // A few products make most of the sales.
    const ProdottoVenduto& prodotto() {
        constexpr quint64 passi = 1000003;
        const quint64 tiro = mC.casuale.prossimo() % passi;
        const quint64 posto = mC.venduti.size() * (tiro * tiro / passi) / passi;
        return mC.venduti[static_cast<size_t>(posto)];
    }

    ContestoDemo& mC;
    RegistroDocumenti& mRegistro;
    QDate mData;
    int mOra = 0;
    std::vector<DocumentoInCorso> mBanco;
};

}  // namespace

void scriviVendite(ContestoDemo& c, int righe, QDate oggi) {
    RegistroDocumenti registro(c);
    const std::vector<QDate> giorni = giorniAperti(oggi);
    int fatte = 0;
    for (size_t i = 0; i < giorni.size(); ++i) {
        const auto finQui = static_cast<int>(static_cast<qint64>(righe) * static_cast<qint64>(i + 1) /
                                             static_cast<qint64>(giorni.size()));
        const bool ultimo = i + 1 == giorni.size();
        const int oggiVendute = ultimo ? righe - fatte : (finQui - fatte) * c.casuale.tra(60, 100) / 100;
        GiornataDiVendita(c, registro, giorni[i]).vendi(oggiVendute);
        fatte += oggiVendute;
    }
    registro.scriviContatori();
}
