#include "counter/ui/frmCodiceVenditore.h"

#include <QBoxLayout>
#include <QCloseEvent>

#include "counter/ui/style.h"
#include "kit/ui/arrow_cursor.h"
#include "kit/ui/box_focus.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/campo_widgets.h"
#include "kit/ui/labels.h"
#include "kit/ui/touch_keys.h"

namespace {

constexpr int larghezza = 420;
constexpr int altezzaTasti = 260;
constexpr int margine = 16;

QWidget* tasti(QWidget* padre) {
    QWidget* nuovi = tastierino(padre);
    nuovi->setMinimumHeight(altezzaTasti);
    for (auto* tasto : nuovi->findChildren<QPushButton*>()) {
        tasto->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }
    return nuovi;
}

}  // namespace

frmCodiceVenditore::frmCodiceVenditore(const RichiestaVenditore& richiesta, QWidget* padre)
    : QDialog(padre, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      mRegole(richiesta),
      mContenuto(costruisci()) {
    setObjectName("frmCodiceVenditore");
    setWindowTitle("Inserire il Codice  Operatore");
    auto* cornice = new QVBoxLayout(this);
    cornice->setContentsMargins(0, 0, 0, 0);
    cornice->addWidget(mContenuto);
    setFixedWidth(larghezza);
    mRegole.osservaConferma([this] { accept(); });
}

frmCodiceVenditore::~frmCodiceVenditore() {
    // The widgets show the rules' fields: they go before them.
    delete mContenuto;
}

QWidget* frmCodiceVenditore::costruisci() {
    auto* tutto = new QWidget(this);
    auto* colonna = new QVBoxLayout(tutto);
    colonna->setContentsMargins(margine, margine, margine, margine);
    colonna->setSpacing(2 * spazio);

    auto* casella = new CampoEdit(mRegole.txtCodice, &mRegole.casella, "Codice dell'operatore", tutto);
    casella->setFont(carattereIngrandito(1.8));
    casella->setPlaceholderText("Codice o badge");
    casella->filtroTasti([this](QChar tasto) { return mRegole.tasto(tasto); });
    seguiFuoco(casella, mRegole.casella);
    txtCodice = casella;
    auto* esito = new EtichettaElisa(tutto);
    collega(mRegole.lblEsito, esito);
    esito->setAccessibleName("Esito");

    QPushButton* annulla = pulsanteGrande("ANNULLA", "cmdAnnulla", tutto);
    annulla->setToolTip("Lascia l'operatore com'è (Esc)");
    annulla->setFocusPolicy(Qt::NoFocus);
    annulla->setAutoDefault(false);
    connect(annulla, &QPushButton::clicked, this, &QDialog::reject);

    colonna->addWidget(casella);
    colonna->addWidget(esito);
    colonna->addWidget(tasti(tutto));
    colonna->addWidget(annulla);
    return tutto;
}

void frmCodiceVenditore::startMe() {
    const FrecciaNormale freccia;
    txtCodice->setFocus();
    exec();
}

QString frmCodiceVenditore::codice() const {
    return result() == Accepted ? mRegole.txtCodice.testo() : QString();
}

void frmCodiceVenditore::closeEvent(QCloseEvent* evento) {
    evento->ignore();
}
