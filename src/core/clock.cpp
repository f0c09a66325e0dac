#include "core/clock.h"

namespace {

class SystemClock final : public Clock {
  public:
    QDateTime adesso() const override { return QDateTime::currentDateTime(); }
};

const SystemClock orologioDiSistema;
const Clock* orologioInForza = &orologioDiSistema;

}  // namespace

const Clock& orologio() {
    return *orologioInForza;
}

void impostaOrologio(const Clock* orologio) {
    orologioInForza = orologio != nullptr ? orologio : &orologioDiSistema;
}
