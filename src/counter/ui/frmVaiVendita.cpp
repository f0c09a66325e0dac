#include "counter/ui/frmVaiVendita.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "counter/go_to_sale.h"
#include "counter/ui/style.h"
#include "kit/CTastierino.h"
#include "kit/ui/box_focus.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/touch_keys.h"

namespace {

constexpr QSize misura{720, 380};
constexpr int larghezzaCasella = 220;

}  // namespace

frmVaiVendita::frmVaiVendita(QWidget* padre) : QDialog(padre) {
    setObjectName("frmVaiVendita");
    setWindowTitle("Vai alla vendita");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

frmVaiVendita::~frmVaiVendita() {
    delete mContenuto;
}

void frmVaiVendita::startMe(VaiVendita& scelta) {
    costruisci(scelta);
    resize(misura);
    scelta.prog.setFocus();
    if (exec() == Accepted) {
        scelta.cmdInvio();
    } else {
        scelta.cmdEsci();
    }
    delete mContenuto;
    mContenuto = nullptr;
}

CampoEdit* frmVaiVendita::casella(CTextBox& casella, const QString& nome) {
    auto* nuova = new CampoEdit(casella.campo(), &casella, nome, mContenuto);
    nuova->setFixedWidth(larghezzaCasella);
    nuova->setFont(carattereIngrandito(1.4));
    // Enter confirms from any box, formatted first.
    nuova->filtroTasti([this, &casella](QChar tasto) {
        if (tasto == u'\r') casella.cancelTabStep(true);
        const auto passa = casella.keyPress(tasto);
        if (tasto == u'\r') accept();
        return passa;
    });
    seguiFuoco(nuova, casella);
    return nuova;
}

QPushButton* frmVaiVendita::pulsante(const char* nome, const QString& testo, const QString& aiuto) {
    QPushButton* nuovo = pulsanteGrande(testo, nome, mContenuto);
    nuovo->setToolTip(aiuto);
    nuovo->setAccessibleName(aiuto);
    nuovo->setAutoDefault(false);
    nuovo->setFocusPolicy(Qt::NoFocus);
    return nuovo;
}

QBoxLayout* frmVaiVendita::campi(VaiVendita& scelta) {
    auto* moduli = new QFormLayout;
    moduli->setVerticalSpacing(2 * spazio);
    moduli->addRow("Data", casella(scelta.data, "Data della vendita"));
    moduli->addRow("Progressivo", casella(scelta.prog, "Progressivo"));
    moduli->addRow("Anno", casella(scelta.anno, "Anno"));
    moduli->addRow("Vendita del giorno", casella(scelta.sottoProg, "Sottoprogressivo"));
    auto* colonna = new QVBoxLayout;
    colonna->setSpacing(2 * spazio);
    colonna->addLayout(moduli);
    colonna->addStretch();
    auto* uscite = new QHBoxLayout;
    QPushButton* cmdEsci = pulsante("cmdEsci", "ESCI", "Esci senza scegliere (Esc)");
    connect(cmdEsci, &QPushButton::clicked, this, &QDialog::reject);
    QPushButton* cmdInvio = pulsante("cmdInvio", "VAI", "Mostra la vendita (Invio)");
    cmdInvio->setProperty(ruoli::proprieta, ruoli::principale);
    connect(cmdInvio, &QPushButton::clicked, this, &QDialog::accept);
    uscite->addWidget(cmdEsci);
    uscite->addWidget(cmdInvio, 1);
    colonna->addLayout(uscite);
    return colonna;
}

QBoxLayout* frmVaiVendita::tasti(VaiVendita& scelta) {
    auto* colonna = new QVBoxLayout;
    colonna->setSpacing(spazio);
    colonna->addWidget(tastierino(mContenuto), 1);
    auto* sotto = new QHBoxLayout;
    QPushButton* cmdDel = pulsante("cmdDel", "⌫", "Cancella l'ultimo carattere");
    connect(cmdDel, &QPushButton::clicked, this, [] { CTastierino().sendTasto("D"); });
    QPushButton* cmdCE = pulsante("cmdCE", "CE", "Svuota tutto");
    connect(cmdCE, &QPushButton::clicked, this, [&scelta] { scelta.cmdCE(); });
    sotto->addWidget(cmdDel);
    sotto->addWidget(cmdCE);
    colonna->addLayout(sotto);
    return colonna;
}

void frmVaiVendita::costruisci(VaiVendita& scelta) {
    mContenuto = new QWidget(this);
    if (layout() == nullptr) (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
    layout()->addWidget(mContenuto);
    auto* tutto = new QHBoxLayout(mContenuto);
    tutto->setSpacing(3 * spazio);
    tutto->addLayout(campi(scelta));
    tutto->addLayout(tasti(scelta), 1);
}

void frmVaiVendita::keyPressEvent(QKeyEvent* evento) {
    // Enter belongs to the boxes.
    if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter) QDialog::keyPressEvent(evento);
}
