#include "kit/ui/box_focus.h"

#include <QFocusEvent>

#include "kit/CTextBox.h"
#include "kit/ui/campo_edit.h"

namespace {

class FiltroFuoco final : public QObject {
  public:
    FiltroFuoco(CampoEdit* campo, CTextBox& casella) : QObject(campo), mCasella(casella) {
        campo->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::FocusIn) mCasella.gotFocus();
        if (evento->type() == QEvent::FocusOut && lasciato(*static_cast<QFocusEvent*>(evento))) {
            mCasella.lostFocus();
            mCasella.validate();
        }
        return false;
    }

  private:
    static bool lasciato(const QFocusEvent& evento) {
        return evento.reason() != Qt::ActiveWindowFocusReason && evento.reason() != Qt::PopupFocusReason;
    }

    CTextBox& mCasella;
};

}  // namespace

void seguiFuoco(CampoEdit* campo, CTextBox& casella) {
    new FiltroFuoco(campo, casella);
}
