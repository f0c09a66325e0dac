#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>

#include "counter/ui/assembly.h"
#include "counter/ui/command_button.h"
#include "counter/ui/panels.h"
#include "counter/ui/style.h"
#include "kit/ui/campo_widgets.h"
#include "kit/ui/labels.h"
#include "sale/vendita.h"

namespace {

constexpr int altezzaAlternativo = 30;

constexpr int puntiTotaleMinimi = 30;
constexpr int puntiTotale = 56;
constexpr int puntiUltimaMinimi = 12;
constexpr int puntiUltima = 18;
constexpr int altezzaVoce = 28;

// A caption and its value, two of them on a line.
class Tabella {
  public:
    Tabella(const Montaggio& m, QWidget* padre) : m(m), mPadre(padre) {
        mGriglia->setContentsMargins(0, 0, 0, 0);
        mGriglia->setHorizontalSpacing(8);
        mGriglia->setVerticalSpacing(2);
        mGriglia->setColumnStretch(1, 4);
        mGriglia->setColumnStretch(3, 5);
    }

    void voce(const QString& didascalia, Campo& campo, const QString& nomeAccessibile) {
        QLabel* valore = m.testo(campo, nomeAccessibile, mPadre);
        valore->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        const int colonna = (mVoci % 2) * 2;
        mGriglia->addWidget(nuovaDidascalia(didascalia, ruoli::didascalia, mPadre), mVoci / 2, colonna);
        mGriglia->addWidget(valore, mVoci / 2, colonna + 1);
        mGriglia->setRowMinimumHeight(mVoci / 2, altezzaVoce);
        ++mVoci;
    }
    QGridLayout* griglia() const { return mGriglia; }

  private:
    const Montaggio& m;
    QWidget* mPadre;
    QGridLayout* mGriglia = new QGridLayout;
    int mVoci = 0;
};

QLabel* cifra(Campo& campo, const QString& nome, int minimi, int massimi, QWidget* padre) {
    auto* nuova = new EtichettaAdattata(minimi, massimi, padre);
    nuova->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    collega(campo, nuova);
    nuova->setAccessibleName(nome);
    return nuova;
}

QVBoxLayout* colonnaDi(QFrame* pannello) {
    auto* colonna = new QVBoxLayout(pannello);
    colonna->setContentsMargins(12, 8, 12, 8);
    colonna->setSpacing(4);
    return colonna;
}

// The products that can stand in for this one; out of sight when there are none.
QWidget* elencoAlternativi(const Montaggio& m, QWidget* padre) {
    auto* elenco = new QTableView(padre);
    elenco->setObjectName("lswAlternativi");
    elenco->setAccessibleName("Prodotti alternativi");
    elenco->setToolTip("Doppio clic per vendere il prodotto alternativo");
    ElencoAlternativi& voci = m.v.lswAlternativi;
    elenco->setModel(&voci);
    elenco->setFocusPolicy(Qt::NoFocus);
    elenco->setSelectionBehavior(QAbstractItemView::SelectRows);
    elenco->setEditTriggers(QAbstractItemView::NoEditTriggers);
    elenco->setShowGrid(false);
    // It takes the room that is left, and asks for none.
    elenco->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    elenco->setFrameShape(QFrame::NoFrame);
    elenco->verticalHeader()->hide();
    elenco->verticalHeader()->setDefaultSectionSize(altezzaAlternativo);
    elenco->horizontalHeader()->hide();
    elenco->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    auto* gruppo = new QWidget(padre);
    auto* riga = new QHBoxLayout(gruppo);
    riga->setContentsMargins(0, 0, 0, 0);
    riga->addWidget(nuovaDidascalia("Alternativi", ruoli::didascalia, gruppo), 0, Qt::AlignTop);
    riga->addWidget(elenco, 1);
    gruppo->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    gruppo->hide();
    const auto mostra = [gruppo, &voci] { gruppo->setVisible(voci.rowCount() > 0); };
    QObject::connect(&voci, &QAbstractItemModel::modelReset, gruppo, mostra);
    QObject::connect(&voci, &QAbstractItemModel::rowsInserted, gruppo, mostra);
    QObject::connect(
        elenco, &QTableView::doubleClicked, elenco,
        [premuto = m.eventi().alternativo](const QModelIndex& indice) { premuto(indice.row()); });
    return gruppo;
}

}  // namespace

QWidget* pannelloDisplay(const Montaggio& m, QWidget* padre) {
    QFrame* pannello = nuovoPannello(ruoli::display, padre);
    QVBoxLayout* colonna = colonnaDi(pannello);
    auto* testa = nuovaDisposizione<QHBoxLayout>(spazio);
    testa->addWidget(nuovaDidascalia("TOTALE DA PAGARE  €", ruoli::didascalia, pannello));
    QLabel* secondo = m.testo(m.v.lblSecondaryDisplay, "Secondo display", pannello);
    secondo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    testa->addWidget(secondo, 1);
    colonna->addLayout(testa);
    QLabel* salvata = m.testo(m.v.pctSalvata, "Vendita salvata", pannello);
    salvata->setProperty(ruoli::proprieta, ruoli::salvata);
    colonna->addWidget(postoFisso(salvata));
    colonna->addWidget(
        cifra(m.v.lblMainDisplay, "Totale da pagare", puntiTotaleMinimi, puntiTotale, pannello));

    auto* ultima = nuovaDisposizione<QHBoxLayout>(spazio);
    ultima->addWidget(nuovaDidascalia("Ultima vendita", ruoli::didascalia, pannello));
    ultima->addWidget(cifra(m.v.lblUltimaVendita, "Ultima vendita", puntiUltimaMinimi, puntiUltima, pannello),
                      1);
    ultima->addWidget(nuovaDidascalia("Resto", ruoli::didascalia, pannello));
    ultima->addWidget(
        cifra(m.v.lblUltimoResto, "Resto dell'ultima vendita", puntiUltimaMinimi, puntiUltima, pannello), 1);
    colonna->addLayout(ultima);

    auto* pagamento = nuovaDisposizione<QHBoxLayout>(spazio);
    QLabel* causale = m.testo(m.v.lblDescPagamento, "Pagamento", pannello);
    alDoppioClic(causale, m.eventi().pagamento);
    pagamento->addWidget(causale, 1);
    pagamento->addWidget(m.spunta(m.v.chkPagato, "Pagata", pannello));
    colonna->addLayout(pagamento);
    return pannello;
}

QWidget* pannelloProdotto(const Montaggio& m, QWidget* tasti, QWidget* padre) {
    QFrame* pannello = nuovoPannello(ruoli::pannello, padre);
    QVBoxLayout* colonna = colonnaDi(pannello);
    auto* testa = nuovaDisposizione<QHBoxLayout>(spazio);
    testa->addWidget(nuovaDidascalia("PRODOTTO", ruoli::titolo, pannello), 1);
    testa->addWidget(tasti);
    testa->addWidget(m.conto(10, pannello));
    colonna->addLayout(testa);

    Tabella tabella(m, pannello);
    tabella.voce("Giacenza", m.v.lblGiacenza, "Giacenza");
    tabella.voce("Ubicaz.", m.v.lblUbicazione, "Ubicazione");
    tabella.voce("Listino", m.v.lblPrezzoListinoPanel, "Prezzo di listino del prodotto");
    tabella.voce("del", m.v.lblDataListinoPanel, "Data del listino");
    tabella.voce("Costo", m.v.lblPrezzoCosto, "Prezzo di costo");
    tabella.voce("Cat. sc.", m.v.lblCatSconto, "Categoria di sconto");
    tabella.voce("Marg. €", m.v.lblMargineEuro, "Margine in euro");
    tabella.voce("Marg. %", m.v.lblMarginePerc, "Margine per cento");
    colonna->addLayout(tabella.griglia());
    colonna->addWidget(elencoAlternativi(m, pannello), 1);
    colonna->addStretch(0);
    return pannello;
}

QWidget* pannelloTotali(const Montaggio& m, QWidget* padre) {
    QFrame* pannello = nuovoPannello(ruoli::pannello, padre);
    QVBoxLayout* colonna = colonnaDi(pannello);
    Tabella tabella(m, pannello);
    tabella.voce("Pezzi", m.v.lblTOtQta, "Pezzi");
    tabella.voce("Righe", m.v.lblTotRighe, "Righe");
    tabella.voce("Netto", m.v.lblTotNetto, "Totale netto");
    tabella.voce("Lordo", m.v.lblTotLordo, "Totale lordo");
    tabella.voce("Conto", m.v.lblTotConto, "Totale del conto");
    tabella.voce("A saldo", m.v.lblLastMainDisplay, "Importo già contato nel saldo");
    colonna->addLayout(tabella.griglia());

    QLabel* ora = m.testo(m.v.lblOra, "Data e ora della riga", pannello);
    QLabel* operatore = m.testo(m.v.lblOperatoreScreen, "Operatore della riga", pannello);
    for (QLabel* etichetta : {ora, operatore}) {
        etichetta->setProperty(ruoli::proprieta, ruoli::didascalia);
        colonna->addWidget(etichetta);
    }
    return pannello;
}
