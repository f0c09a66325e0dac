#include "register/ui/frmBuffer.h"

#include <QBoxLayout>
#include <QEventLoop>
#include <QHideEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QWindow>

#include "kit/ui/touch_widgets.h"
#include "register/failure.h"
#include "register/ui/wire_text.h"

namespace {

// Some hundred receipts.
constexpr qsizetype bufferMostrato = 20000;

}  // namespace

frmBuffer& gFrmBuffer() {
    static frmBuffer& unico = *new frmBuffer;  // lives as long as the process
    return unico;
}

frmBuffer::frmBuffer() : txtBuffer(testoDelFilo("txtBuffer", "Comandi in attesa", this)) {
    setObjectName("frmBuffer");
    setWindowTitle("Buffer");
    resize(640, 360);
    QPushButton* chiudi = pulsanteGrande("Chiudi", "cmdChiudi", this);
    chiudi->setAutoDefault(false);
    connect(chiudi, &QPushButton::clicked, this, &QDialog::hide);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(txtBuffer);
    tutto->addWidget(chiudi, 0, Qt::AlignRight);
}

void frmBuffer::startMe(const QString& buffer, bool modale, QWidget* sopra) {
    hide();
    txtBuffer->setPlainText(abbreviato(bufferLeggibile(buffer), bufferMostrato));
    setWindowModality(modale ? Qt::ApplicationModal : Qt::NonModal);
    winId();
    mSotto = sopra->window();
    windowHandle()->setTransientParent(mSotto->windowHandle());
    // A loop of its own each time: a further failure may ask for the form while it is up.
    QEventLoop attesa;
    connect(this, &frmBuffer::nascosta, &attesa, &QEventLoop::quit);
    show();
    raise();
    activateWindow();
    if (modale) attesa.exec();
}

QWidget* frmBuffer::sotto() const {
    return mSotto != nullptr && mSotto->isVisible() ? mSotto.data() : nullptr;
}

void frmBuffer::hideEvent(QHideEvent* evento) {
    QDialog::hideEvent(evento);
    if (!evento->spontaneous()) emit nascosta();
}
