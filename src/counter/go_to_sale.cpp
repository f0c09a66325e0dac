#include "counter/go_to_sale.h"

#include <algorithm>
#include <limits>

#include <QScopedValueRollback>

#include "core/clock.h"
#include "core/format.h"
#include "core/globals.h"
#include "core/numbers.h"
#include "core/operator_port.h"
#include "counter/accounts.h"
#include "counter/save_question.h"
#include "sale/last_numbers.h"
#include "sale/recall.h"

namespace {

struct Trovata {
    NumeroVendita numero;
    int anno = 0;
};

std::optional<Trovata> cercaVendita(const Vendita& v, const VaiVendita& scelta) {
    const int progressivo = scelta.progressivo();
    if (progressivo > 0) {
        const int anno = scelta.annoScelto();
        if (scelta.sottoProgressivo() > 0) return Trovata{{progressivo, scelta.sottoProgressivo()}, anno};
        return Trovata{{progressivo, getSottoProgByProg(progressivo, anno)}, anno};
    }
    const QDate giorno = scelta.giorno();
    if (!giorno.isValid()) return std::nullopt;
    return Trovata{getProgByData(v, giorno), giorno.year()};
}

// What a box says as a number. Nobody counts as far as a long row of digits, such as a scan.
int numeroIn(const Campo& campo) {
    constexpr double massimo = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(Val(campo.testo()), massimo));
}

}  // namespace

VaiVendita::VaiVendita() {
    data.txtType(CTextBox::Data);
    for (CTextBox* casella : {&prog, &sottoProg, &anno}) {
        casella->txtType(CTextBox::Intero);
        casella->sepMigliaia(false);
    }
    for (CTextBox* casella : {&data, &prog, &sottoProg, &anno}) {
        casella->usaTastierino(true);
    }
    cmdCE();
}

void VaiVendita::cmdCE() {
    cmdEsci();
    txtAnno.testo(Format(orologio().oggi(), u"YYYY"));
}

void VaiVendita::cmdInvio() {
    data.formattaValore();
    mConfermata = true;
}

void VaiVendita::cmdEsci() {
    mConfermata = false;
    for (Campo* campo : {&txtData, &txtProg, &txtSottoProg, &txtAnno}) {
        campo->testo({});
    }
}

int VaiVendita::progressivo() const {
    return numeroIn(txtProg);
}

int VaiVendita::sottoProgressivo() const {
    return numeroIn(txtSottoProg);
}

int VaiVendita::annoScelto() const {
    const int scelto = numeroIn(txtAnno);
    return scelto > 0 ? scelto : orologio().oggi().year();
}

QDate VaiVendita::giorno() const {
    return QDate::fromString(txtData.testo(), "dd/MM/yyyy");
}

void vaiAVendita(Conto& conto) {
    if (chiediSalvataggio(conto)) return;
    VaiVendita scelta;
    {
        const QScopedValueRollback aperta(gModaleAperta, true);
        conto.scegliVendita(scelta);
    }
    Vendita& v = conto.vendita();
    const std::optional<Trovata> trovata = cercaVendita(v, scelta);
    if (!trovata && !scelta.confermata()) return;
    const auto& [numero, anno] = trovata.value_or(Trovata());
    if (numero.progressivo < 1 || numero.extraProg < 1) {
        return conto.operatore().messaggio("Nessuna vendita trovata!", OperatorPort::Icona::Informazione);
    }
    showVendita(v, 0, numero.progressivo, numero.extraProg, anno);
}
