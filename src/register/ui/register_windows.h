#pragma once

#include <memory>

#include "register/failure.h"
#include "register/ui/frmRegCassa.h"

// The windows about the register, over the window in use. The monitor is made when it is first asked for.
class FinestreRegCassa final : public DialoghiRegCassa {
  public:
    // `genitore` carries the failure dialogue while no window is in use.
    explicit FinestreRegCassa(QWidget* genitore = nullptr) : mGenitore(genitore) {}

    Scelta errore(const QString& descrizione, const QString& buffer) override;
    void mostraMonitor() override;

  private:
    QWidget* mGenitore;
    std::unique_ptr<frmRegCassa> mMonitor;
};
