#include "kit/cKeyFunction.h"

#include <Qt>

void cKeyFunction::setFunctionKey(int keyCode, int shift, Campo* source) const {
    if (keyCode >= Qt::Key_F3 && keyCode <= Qt::Key_F7 && mEvento) mEvento(keyCode, shift, source);
}
