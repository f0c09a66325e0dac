#pragma once

#include <memory>

#include "register/failure.h"
#include "register/ui/frmRegCassa.h"

// The windows about the register, over the window in use. The monitor is made when it is first asked for.
class FinestreRegCassa final : public DialoghiRegCassa {
  public:
    Scelta errore(const QString& descrizione, const QString& buffer) override;
    void mostraMonitor() override;

  private:
    std::unique_ptr<frmRegCassa> mMonitor;
};
