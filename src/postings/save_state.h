#pragma once

#include <array>
#include <vector>

#include <QDate>
#include <QString>

#include "sale/flxvb.h"
#include "sale/uncertain_save.h"

struct Vendita;

// The keys and numbers of the save under way.
struct Documento {
    QDate data;
    int tipo = -1;
    bool trasferimento = false;
    bool conversione = false;
    int idMovimento = -1;
    int progressivo = 0;
    int extraProg = 0;
    RigaScritta testata;          // what was written to the header
    RigheSalvate righe;           // and to the rows
    bool testataSparita = false;  // another desk has deleted the header meanwhile
    bool righeScritte = false;    // all of them; before that none is in the books if the save ends here
};

// What a save writes to the sale before its commit, to be put back when it fails.
class StatoPrimaDelSalvataggio {
  public:
    explicit StatoPrimaDelSalvataggio(const Vendita& v);

    // Goods go from one of the shop's warehouses to another.
    static bool trasferimento(const Vendita& v);

    void ripristina(Vendita& v) const;

  private:
    using Celle = std::vector<std::array<QString, numeroColonne>>;

    static Celle celle(const FlexVB& g);
    void rimetti(Vendita& v) const;

    QString mRid, mProg, mTotConto, mGiaContato;
    int mPrimaNota, mPNPagamento, mPagamento;
    Celle mCelle;
};
