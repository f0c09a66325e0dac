#include "kit/ui/frmInfo.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QStyle>

#include "core/operator_port.h"
#include "kit/ui/touch_widgets.h"

frmInfo::frmInfo() : lblInfo(etichetta({}, "lblInfo", this)) {
    setObjectName("frmInfo");
    setWindowTitle(OperatorPort::titoloApplicazione());
    setWindowFlags(Qt::SplashScreen | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* icona = new QLabel(this);
    icona->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(40, 40));
    lblInfo->setFont(carattereIngrandito(1.3));
    lblInfo->setMinimumWidth(380);
    auto* riga = new QHBoxLayout(this);
    riga->setContentsMargins(24, 24, 24, 24);
    riga->setSpacing(16);
    riga->addWidget(icona);
    riga->addWidget(lblInfo, 1);
}

void frmInfo::startMe(const QString& testo) {
    lblInfo->setText(testo);
    lblInfo->setAccessibleName(testo);
    adjustSize();
    show();
    // A new window is painted when the screen asks for it: that request must be taken in here.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
    repaint();
}

bool frmInfo::event(QEvent* evento) {
    if (evento->type() == QEvent::WindowBlocked) hide();
    return QWidget::event(evento);
}
