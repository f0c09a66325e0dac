#include "kit/ui/second_click.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QTimer>

namespace {

// Lives for as long as two clicks count as one.
class SecondoClic final : public QObject {
  public:
    SecondoClic() : QObject(qApp), mDove(QCursor::pos()) {
        qApp->installEventFilter(this);
        QTimer::singleShot(QApplication::doubleClickInterval(), this, &QObject::deleteLater);
    }

    bool eventFilter(QObject*, QEvent* evento) override {
        switch (evento->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                return vicino(*static_cast<QMouseEvent*>(evento));
            default:
                return false;
        }
    }

  private:
    bool vicino(const QMouseEvent& evento) const {
        const QPoint scarto = evento.globalPosition().toPoint() - mDove;
        return scarto.manhattanLength() <= QApplication::startDragDistance();
    }

    QPoint mDove;
};

}  // namespace

void ignoraSecondoClic() {
    new SecondoClic;
}
