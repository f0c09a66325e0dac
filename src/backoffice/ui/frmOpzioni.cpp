#include "backoffice/ui/frmOpzioni.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/globals.h"
#include "data/client_settings.h"
#include "data/prepare_sql.h"
#include "data/settings_store.h"
#include "kit/ui/touch_widgets.h"

namespace {

// By server type.
const char* const chiavi[] = {"SqlSrv", "Path", "MySql"};
const char* const nomi[] = {"MS SqlServer", "MS Access", "MySQL"};

const char* const sezioneServer = "Server";

size_t indice(int tipo) {
    return static_cast<size_t>(tipo);
}

}  // namespace

frmOpzioni::frmOpzioni(QWidget* genitore)
    : QDialog(genitore),
      lblTipoServer(etichetta("Tipo di server", "lblTipoServer", this)),
      cmbTipoServer(new QComboBox(this)),
      lblConnStr(etichetta({}, "lblConnStr", this)),
      txtConnStr(new QPlainTextEdit(this)),
      cmdSfoglia(pulsanteGrande("Sfoglia...", "cmdSfoglia", this)),
      cmdOk(pulsanteGrande("OK", "cmdOk", this)),
      cmdCancel(pulsanteGrande("Annulla", "cmdCancel", this)) {
    setObjectName("frmOpzioni");
    setWindowTitle("Opzioni");
    cmbTipoServer->setObjectName("cmbTipoServer");
    cmbTipoServer->setAccessibleName("Tipo di server");
    for (const char* nome : nomi) {
        cmbTipoServer->addItem(nome);
    }
    txtConnStr->setObjectName("txtConnStr");
    txtConnStr->setTabChangesFocus(true);
    componi();
    connect(cmbTipoServer, &QComboBox::currentIndexChanged, this, &frmOpzioni::mostraTipo);
    connect(cmdSfoglia, &QPushButton::clicked, this, &frmOpzioni::sfoglia);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdOk, &QPushButton::clicked, this, [this] {
        salvaOpzioni();
        accept();
    });
    leggi();
}

QWidget* frmOpzioni::comandi() {
    auto* riga = new QWidget(this);
    auto* disposizione = new QHBoxLayout(riga);
    disposizione->setContentsMargins(0, 0, 0, 0);
    disposizione->addWidget(cmdSfoglia);
    disposizione->addStretch();
    disposizione->addWidget(cmdCancel);
    disposizione->addWidget(cmdOk);
    cmdSfoglia->setAutoDefault(false);
    cmdCancel->setAutoDefault(false);
    cmdOk->setDefault(true);
    return riga;
}

void frmOpzioni::componi() {
    setFont(carattereIngrandito(1.2));
    cmbTipoServer->setMinimumHeight(altezzaTocco);
    txtConnStr->setMinimumSize(620, 110);
    auto* modulo = new QFormLayout;
    modulo->addRow(lblTipoServer, cmbTipoServer);
    modulo->addRow(lblConnStr, txtConnStr);
    auto* colonna = new QVBoxLayout(this);
    colonna->addLayout(modulo);
    colonna->addWidget(comandi());
}

void frmOpzioni::leggi() {
    mLette = {gConnSqlSrv, gPathDB, gConnMySql};
    mStringhe = mLette;
    mTipoLetto = gTipoDB;
    // A type that does not exist shows nothing chosen, until one is.
    cmbTipoServer->setCurrentIndex(gTipoDB >= 0 && gTipoDB <= MySql ? gTipoDB : -1);
    mostraTipo(cmbTipoServer->currentIndex());
}

void frmOpzioni::mostraTipo(int tipo) {
    if (mTipo >= 0) mStringhe[indice(mTipo)] = txtConnStr->toPlainText();
    mTipo = tipo;
    const QString titolo = tipo == Access ? "Archivio" : "Stringa di connessione";
    lblConnStr->setText(titolo);
    txtConnStr->setAccessibleName(titolo);
    txtConnStr->setEnabled(tipo >= 0);
    txtConnStr->setPlainText(tipo >= 0 ? mStringhe[indice(tipo)] : QString());
    cmdSfoglia->setVisible(tipo == Access);
}

void frmOpzioni::sfoglia() {
    const QString scelto =
        QFileDialog::getOpenFileName(this, "Scegliere l'archivio", txtConnStr->toPlainText().trimmed(),
                                     "Archivio Bottegon (*.mdb);;Tutti i file (*)");
    if (!scelto.isEmpty()) txtConnStr->setPlainText(scelto);
}

void frmOpzioni::salvaOpzioni() {
    std::vector<SettingsStore::Voce> voci;
    if (mTipo >= 0) {
        mStringhe[indice(mTipo)] = txtConnStr->toPlainText();
        if (mTipo != mTipoLetto) voci.push_back({sezioneServer, "DBType", QString::number(mTipo)});
    }
    // A file's name typed by hand has no line breaks or blanks around it.
    QString& archivio = mStringhe[indice(Access)];
    if (archivio != mLette[indice(Access)]) archivio = archivio.trimmed();
    for (size_t tipo = 0; tipo < mStringhe.size(); ++tipo) {
        if (mStringhe[tipo] != mLette[tipo]) voci.push_back({sezioneServer, chiavi[tipo], mStringhe[tipo]});
    }
    if (!voci.empty()) impostazioni().scriviTutte(applicazioneComune, voci);
}

bool frmOpzioni::startMe() {
    return exec() == QDialog::Accepted;
}
