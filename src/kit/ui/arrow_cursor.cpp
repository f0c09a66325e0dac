#include "kit/ui/arrow_cursor.h"

#include <QCursor>
#include <QGuiApplication>

FrecciaNormale::FrecciaNormale() : mCera(QGuiApplication::overrideCursor() != nullptr) {
    if (mCera) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

FrecciaNormale::~FrecciaNormale() {
    if (mCera && QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
}
