#include "register/ui/frmBuffer.h"

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

#include "kit/ui/touch_widgets.h"
#include "register/failure.h"
#include "register/ui/wire_text.h"

namespace {

// Some hundred receipts.
constexpr qsizetype bufferMostrato = 20000;

}  // namespace

frmBuffer::frmBuffer(QWidget* genitore)
    : QDialog(genitore), txtBuffer(testoDelFilo("txtBuffer", "Comandi in attesa", this)) {
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

void frmBuffer::startMe(const QString& buffer, bool modale) {
    txtBuffer->setPlainText(abbreviato(bufferLeggibile(buffer), bufferMostrato));
    if (modale) {
        exec();
    } else {
        show();
        raise();
        activateWindow();
    }
}
