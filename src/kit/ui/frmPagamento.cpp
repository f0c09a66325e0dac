#include "kit/ui/frmPagamento.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QScreen>

#include "core/errors.h"
#include "kit/ui/box_focus.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/campo_widgets.h"
#include "kit/ui/labels.h"
#include "kit/ui/touch_keys.h"

namespace {

const char* const nomeModulo = "frmPagamento";
constexpr QSize misura{900, 520};
constexpr int distanza = 10;
constexpr int puntiCasella = 34;
constexpr int puntiRestoMinimi = 24;
constexpr int puntiResto = 52;
constexpr int altezzaCasella = 84;
constexpr int altezzaUscita = 64;

// Digits of a readout; what that font has not got, as the comma, comes from the program's own.
QFont carattereDisplay(int punti) {
    QFont carattere;
    carattere.setFamilies({"DSEG7 Classic", carattere.family()});
    carattere.setPointSize(punti);
    return carattere;
}

}  // namespace

frmPagamento::frmPagamento(QWidget* padre) : QDialog(padre) {
    setObjectName("frmPagamento");
    setWindowTitle("Pagamento e resto");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    // The key that saves goes on with the save.
    mFunzioni.evtFunctionKey([this](int tasto, int modificatori, Campo*) {
        if (tasto == Qt::Key_F5 && modificatori == Qt::NoModifier && !sorda()) accept();
    });
}

// The widgets show the monitor's fields: they go before it, whatever ends the dialogue.
frmPagamento::~frmPagamento() {
    delete mContenuto;
}

EsitoIncasso frmPagamento::startMe(Currency totale) {
    mMonitor.emplace(totale);
    costruisci();
    resize(misura.boundedTo(screen()->availableSize()));
    mMonitor->pagato.setFocus();
    exec();
    // A total that is no amount of money leaves the one that was due.
    return protetto(
        nomeModulo, "Form_Unload", [this] { return mMonitor->esito(); }, EsitoIncasso{totale, {}});
}

std::optional<QChar> frmPagamento::tasto(CTextBox& casella, QChar tasto) {
    return protetto(
        nomeModulo, "calcolaResto", [&] { return mMonitor->tasto(casella, tasto); }, std::optional<QChar>());
}

QLabel* frmPagamento::titolo(const QString& didascalia, const Campo& campo) {
    QLabel* nuovo = etichetta(didascalia, "lbl_" + campo.nome(), mContenuto);
    nuovo->setFont(carattereIngrandito(1.3));
    return nuovo;
}

CampoEdit* frmPagamento::riga(QBoxLayout& colonna, const QString& didascalia, CTextBox& casella,
                              const QString& nome) {
    colonna.addWidget(titolo(didascalia, casella.campo()));
    auto* campo = new CampoEdit(casella.campo(), &casella, nome, mContenuto);
    campo->setFont(carattereDisplay(puntiCasella));
    campo->setMinimumHeight(altezzaCasella);
    campo->filtroTasti([this, &casella](QChar tasto) { return this->tasto(casella, tasto); });
    seguiFuoco(campo, casella);
    colonna.addWidget(campo);
    return campo;
}

QBoxLayout* frmPagamento::importi() {
    auto* colonna = new QVBoxLayout;
    colonna->setSpacing(distanza);
    CampoEdit* totale = riga(*colonna, "Totale", mMonitor->totale, "Totale da pagare");
    CampoEdit* pagato = riga(*colonna, "pagato", mMonitor->pagato, "Importo pagato");
    pagato->setPlaceholderText("0,00");
    setTabOrder(pagato, totale);
    colonna->addWidget(titolo("resto", mMonitor->lblResto));
    auto* resto = new EtichettaAdattata(puntiRestoMinimi, puntiResto, mContenuto);
    resto->setFont(carattereDisplay(puntiResto));
    resto->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    collega(mMonitor->lblResto, resto);
    resto->setAccessibleName("Resto");
    resto->setContentsMargins(distanza, 0, distanza, 0);
    resto->setProperty("ruolo", "display");  // its green and red want a dark ground
    colonna->addWidget(resto, 1);
    return colonna;
}

void frmPagamento::costruisci() {
    mContenuto = new QWidget(this);
    auto* cornice = new QVBoxLayout(this);
    cornice->setContentsMargins(0, 0, 0, 0);
    cornice->addWidget(mContenuto);
    auto* sopra = new QHBoxLayout;
    sopra->setSpacing(2 * distanza);
    sopra->addLayout(importi(), 3);
    sopra->addWidget(tastierino(mContenuto), 2);
    auto* tutto = new QVBoxLayout(mContenuto);
    tutto->setSpacing(distanza);
    tutto->addLayout(sopra, 1);
    QPushButton* cmdEsci = pulsanteGrande("RITORNA ALLA VENDITA <<<<", "cmdEsci", mContenuto);
    cmdEsci->setMinimumHeight(altezzaUscita);
    cmdEsci->setAutoDefault(false);
    cmdEsci->setProperty("ruolo", "principale");
    cmdEsci->setToolTip("Ritorna alla vendita, che viene salvata (Esc o F5)");
    connect(cmdEsci, &QPushButton::clicked, this, [this] {
        if (!sorda()) accept();
    });
    tutto->addWidget(cmdEsci);
}

bool frmPagamento::sorda() const {
    return mSordaDa.isValid() && mSordaDa.elapsed() < mSordita;
}

void frmPagamento::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    mSordaDa.start();
}

void frmPagamento::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape && !evento->isAutoRepeat()) return accept();
    auto* casella = qobject_cast<CampoEdit*>(focusWidget());
    if (!evento->isAutoRepeat())
        mFunzioni.setFunctionKey(evento->key(), static_cast<int>(evento->modifiers()),
                                 casella == nullptr ? nullptr : &casella->campo());
    // Enter belongs to the boxes.
    if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter) QDialog::keyPressEvent(evento);
}
