#include "register/failure.h"

#include "register/frames.h"
#include "register/interface_link.h"

namespace {

class Nessuno final : public DialoghiRegCassa {
  public:
    Scelta errore(const QString&, const QString&) override { return Nessuna; }
    void mostraMonitor() override {}
};

Nessuno nessuno;
DialoghiRegCassa* inForza = &nessuno;

}  // namespace

DialoghiRegCassa& dialoghiRegCassa() {
    return *inForza;
}

void impostaDialoghiRegCassa(DialoghiRegCassa* dialoghi) {
    inForza = dialoghi != nullptr ? dialoghi : &nessuno;
}

void mFrmRegCassa_evtError(InterfacciaRegCassa& collegamento, int codice, const QString& descrizione) {
    const QString testo = "Errore " + QString::number(codice) + " - " + descrizione;
    switch (dialoghiRegCassa().errore(testo, collegamento.Buffer())) {
        case DialoghiRegCassa::Riprova:
            return collegamento.retry();
        case DialoghiRegCassa::AnnullaTutto:
            return collegamento.annullaOperazioni();
        case DialoghiRegCassa::Interrompi:
            collegamento.annullaOperazioni();
            return collegamento.interrompi();
        case DialoghiRegCassa::Nessuna:
            return;
    }
}

QString bufferLeggibile(QString buffer) {
    buffer.replace(mNAK, mACK);
    return conNomi(buffer);
}
