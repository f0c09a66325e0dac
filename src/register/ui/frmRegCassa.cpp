#include "register/ui/frmRegCassa.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QTextBlock>

#include "kit/ui/touch_widgets.h"
#include "register/interface_link.h"
#include "register/ui/frmBuffer.h"
#include "register/ui/wire_text.h"

namespace {

QCheckBox* spunta(const QString& testo, const char* nome, QWidget* genitore) {
    auto* nuova = new QCheckBox(testo, genitore);
    nuova->setObjectName(nome);
    nuova->setMinimumHeight(altezzaTocco);
    return nuova;
}

QTableWidget* elencoSenzaScontrino(QWidget* genitore) {
    auto* elenco = new QTableWidget(0, 3, genitore);
    elenco->setObjectName("lswSenzaScontrino");
    elenco->setAccessibleName("Vendite da controllare");
    elenco->setHorizontalHeaderLabels({"Ora", "Vendita", "Motivo"});
    elenco->verticalHeader()->hide();
    elenco->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    elenco->horizontalHeader()->setStretchLastSection(true);
    elenco->setEditTriggers(QAbstractItemView::NoEditTriggers);
    elenco->setSelectionBehavior(QAbstractItemView::SelectRows);
    return elenco;
}

// A line that came with line breaks of its own stays one block, so that blocks go as lines do.
QString unBlocco(const QString& riga) {
    return abbreviato(riga)
        .replace("\r\n", QString(QChar::LineSeparator))
        .replace(u'\n', QChar::LineSeparator)
        .replace(u'\r', QChar::LineSeparator)
        .replace(QChar::ParagraphSeparator, QChar::LineSeparator);
}

QWidget* sezione(QLabel* titolo, QWidget* contenuto, QWidget* genitore) {
    auto* nuova = new QWidget(genitore);
    auto* colonna = new QVBoxLayout(nuova);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->addWidget(titolo);
    colonna->addWidget(contenuto, 1);
    return nuova;
}

}  // namespace

frmRegCassa::frmRegCassa(InterfacciaRegCassa& collegamento)
    : mCollegamento(collegamento),
      txtMonitor(testoDelFilo("txtMonitor", "Messaggi", this)),
      chkMonitor(spunta("Monitor", "chkMonitor", this)),
      chkConnessione(spunta("Attiva", "chkConnessione", this)),
      lblStato(etichetta({}, "lblStato", this)),
      cmdConnect(pulsanteGrande("Connetti", "cmdConnect", this)),
      Command1(pulsanteGrande("Buffer", "Command1", this)),
      cmdHide(pulsanteGrande("Nascondi", "cmdHide", this)),
      lswSenzaScontrino(elencoSenzaScontrino(this)),
      lblSenzaScontrino(etichetta({}, "lblSenzaScontrino", this)) {
    setObjectName("frmRegCassa");
    resize(900, 560);
    componi();
    collegaComandi();
}

frmRegCassa::~frmRegCassa() {
    mCollegamento.monitor.osserva({});
    mCollegamento.scontrini.osserva({});
}

void frmRegCassa::componi() {
    auto* parti = new QSplitter(Qt::Vertical, this);
    parti->setChildrenCollapsible(false);
    parti->addWidget(sezione(etichetta("Messaggi:", "Label1", this), txtMonitor, this));
    parti->addWidget(sezione(lblSenzaScontrino, lswSenzaScontrino, this));
    parti->setStretchFactor(0, 2);
    parti->setStretchFactor(1, 1);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(parti, 1);
    tutto->addWidget(comandi());
}

QWidget* frmRegCassa::comandi() {
    auto* riga = new QWidget(this);
    auto* disposizione = new QHBoxLayout(riga);
    disposizione->setContentsMargins(0, 0, 0, 0);
    for (QWidget* comando : {static_cast<QWidget*>(chkMonitor), static_cast<QWidget*>(chkConnessione)}) {
        disposizione->addWidget(comando);
    }
    disposizione->addWidget(lblStato, 1, Qt::AlignCenter);
    for (QPushButton* comando : {cmdConnect, Command1, cmdHide}) {
        disposizione->addWidget(comando);
    }
    return riga;
}

void frmRegCassa::collegaComandi() {
    connect(chkMonitor, &QCheckBox::toggled, this,
            [this](bool acceso) { mCollegamento.monitor.acceso(acceso); });
    connect(chkConnessione, &QCheckBox::toggled, this, [this](bool attiva) { mCollegamento.attiva(attiva); });
    connect(cmdConnect, &QPushButton::clicked, this, [this] { mCollegamento.connetti(); });
    connect(Command1, &QPushButton::clicked, this,
            [this] { gFrmBuffer().startMe(mCollegamento.Buffer(), false, this); });
    connect(cmdHide, &QPushButton::clicked, this, &QWidget::hide);
    connect(&mCollegamento.eventi, &EventiRegCassa::statoCambiato, this, &frmRegCassa::aggiornaStato);
    connect(&mCollegamento.eventi, &EventiRegCassa::scaricato, this, &QWidget::hide);
    mCollegamento.monitor.osserva([this](const QString& riga, int tolte) { aggiungiRiga(riga, tolte); });
    mCollegamento.scontrini.osserva([this] { aggiornaMancanti(); });
    aggiornaStato();
}

void frmRegCassa::mostra() {
    show();
    raise();
    activateWindow();
}

// Nothing is laid out for a window that nobody sees: what was written meanwhile is put in when it comes up.
void frmRegCassa::showEvent(QShowEvent* evento) {
    QWidget::showEvent(evento);
    setWindowTitle(mCollegamento.titolo());
    QString tutto;
    for (const QString& riga : mCollegamento.monitor.righe()) {
        tutto += unBlocco(riga) + "\n";
    }
    txtMonitor->setPlainText(tutto);
    txtMonitor->moveCursor(QTextCursor::End);
    aggiornaStato();
    aggiornaMancanti();
}

void frmRegCassa::aggiornaStato() {
    chkConnessione->setChecked(mCollegamento.attiva());
    chkMonitor->setChecked(mCollegamento.monitor.acceso());
    cmdConnect->setEnabled(!mCollegamento.statoConnessione());
    lblStato->setText("Registratore: " + descrizioneStato(mCollegamento.stato()));
}

void frmRegCassa::aggiungiRiga(const QString& riga, int tolte) {
    if (!isVisible()) return;
    QTextCursor cursore(txtMonitor->document());
    cursore.beginEditBlock();
    for (int i = 0; i < tolte; ++i) {
        cursore.movePosition(QTextCursor::Start);
        cursore.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
        cursore.removeSelectedText();
    }
    cursore.movePosition(QTextCursor::End);
    cursore.insertText(unBlocco(riga) + "\n");
    cursore.endEditBlock();
    txtMonitor->moveCursor(QTextCursor::End);
}

void frmRegCassa::aggiornaMancanti() {
    if (!isVisible()) return;
    const auto voci = mCollegamento.scontrini.voci();
    lblSenzaScontrino->setText("Vendite da controllare dall'avvio: " + QString::number(voci.size()));
    lswSenzaScontrino->setRowCount(static_cast<int>(voci.size()));
    int riga = 0;
    for (const RegistroScontrini::Voce& voce : voci) {
        int colonna = 0;
        for (const QString& testo : {voce.ora.toString("dd/MM HH:mm:ss"), voce.vendita, descrizione(voce)}) {
            auto* cella = new QTableWidgetItem(testo);
            cella->setToolTip(testo);
            lswSenzaScontrino->setItem(riga, colonna++, cella);
        }
        ++riga;
    }
}
