#include "register/register_link.h"

namespace {

class MaiConnesso final : public CollegamentoRegCassa {
  public:
    bool statoConnessione() const override { return false; }
    void sendData(const QString& /*buffer*/) override {}
};

CollegamentoRegCassa*& inForza() {
    static MaiConnesso nessuno;
    static CollegamentoRegCassa* collegamento = &nessuno;
    return collegamento;
}

CollegamentoRegCassa* const nessunCollegamento = inForza();

}  // namespace

CollegamentoRegCassa& collegamentoRegCassa() {
    return *inForza();
}

void impostaCollegamentoRegCassa(CollegamentoRegCassa* collegamento) {
    inForza() = collegamento != nullptr ? collegamento : nessunCollegamento;
}
